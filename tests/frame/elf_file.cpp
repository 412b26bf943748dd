#include "frame/elf_file.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace zptg::test {
namespace {

constexpr uint32_t kShtDynsym = 11;
constexpr uint32_t kShtDynamic = 6;
constexpr int64_t kDtNeeded = 1;
constexpr int64_t kDtSoname = 14;

// Little-endian field access at a byte offset.
struct Bytes {
    const std::vector<unsigned char>& data;
    uint64_t get(uint64_t offset, unsigned width) const
    {
        uint64_t v = 0;
        for (unsigned i = 0; i < width; ++i) v |= uint64_t(data.at(offset + i)) << (8 * i);
        return v;
    }
    std::string str(uint64_t offset) const
    {
        std::string s;
        while (data.at(offset) != 0) s.push_back(char(data[offset++]));
        return s;
    }
};

}  // namespace

bool ElfFile::load(const std::string& path, std::string* error)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        *error = "cannot open " + path;
        return false;
    }
    const std::vector<unsigned char> data((std::istreambuf_iterator<char>(in)),
                                          std::istreambuf_iterator<char>());
    if (data.size() < 52 || std::memcmp(data.data(), "\177ELF", 4) != 0 || data[5] != 1) {
        *error = path + " is not a little-endian ELF file";
        return false;
    }
    is64 = data[4] == 2;
    const Bytes b{data};
    const unsigned w = is64 ? 8 : 4;  // width of addresses and offsets
    const uint64_t shoff = b.get(is64 ? 0x28 : 0x20, w);
    const unsigned shentsize = unsigned(b.get(is64 ? 0x3a : 0x2e, 2));
    const unsigned shnum = unsigned(b.get(is64 ? 0x3c : 0x30, 2));
    const unsigned shstrndx = unsigned(b.get(is64 ? 0x3e : 0x32, 2));

    struct Raw {
        uint32_t name, type, link;
        uint64_t offset, size, entsize;
    };
    std::vector<Raw> raw(shnum);
    for (unsigned i = 0; i < shnum; ++i) {
        const uint64_t h = shoff + uint64_t(i) * shentsize;
        Raw& r = raw[i];
        r.name = uint32_t(b.get(h, 4));
        r.type = uint32_t(b.get(h + 4, 4));
        r.offset = b.get(h + 8 + 2 * w, w);
        r.size = b.get(h + 8 + 3 * w, w);
        r.link = uint32_t(b.get(h + 8 + 4 * w, 4));
        r.entsize = b.get(h + 16 + 5 * w, w);
    }
    for (const Raw& r : raw) {
        sections.push_back({b.str(raw.at(shstrndx).offset + r.name), r.size});
    }
    for (const Raw& r : raw) {
        const uint64_t strtab = raw.at(r.link).offset;
        if (r.type == kShtDynsym) {
            for (uint64_t e = r.offset; e + r.entsize <= r.offset + r.size; e += r.entsize) {
                ElfSymbol s;
                const uint64_t info_at = is64 ? e + 4 : e + 12;
                s.name = b.str(strtab + b.get(e, 4));
                const unsigned info = unsigned(b.get(info_at, 1));
                s.type = info & 0xf;
                s.binding = info >> 4;
                s.section = uint16_t(b.get(info_at + 2, 2));
                dynamic_symbols.push_back(s);
            }
        } else if (r.type == kShtDynamic) {
            for (uint64_t e = r.offset; e + 2 * w <= r.offset + r.size; e += 2 * w) {
                const int64_t tag = int64_t(b.get(e, w));
                const uint64_t val = b.get(e + w, w);
                if (tag == kDtNeeded) needed.push_back(b.str(strtab + val));
                if (tag == kDtSoname) soname = b.str(strtab + val);
            }
        }
    }
    return true;
}

const ElfSection* ElfFile::section(const std::string& name) const
{
    for (const ElfSection& s : sections)
        if (s.name == name) return &s;
    return nullptr;
}

}  // namespace zptg::test
