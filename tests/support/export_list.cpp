#include "support/export_list.h"

#include <dlfcn.h>

#include <cctype>
#include <cstring>

#include "frame/elf_file.h"

namespace zptg::test {
namespace {

struct Family {
    const char* stem;
    Layout layout;
};

// Every fixed-size family the library has or is to have, by stem.
constexpr Family kFamilies[] = {
    {"zptgDFTFwd_CToC", Layout::Complex},   {"zptgDFTInv_CToC", Layout::Complex},
    {"zptgDFTFwd_RToCCS", Layout::ToCcs},   {"zptgDFTInv_CCSToR", Layout::FromCcs},
    {"zptgDFTFwd_RToPack", Layout::Real},   {"zptgDFTInv_PackToR", Layout::Real},
    {"zptgDFTFwd_RToPerm", Layout::Real},   {"zptgDFTInv_PermToR", Layout::Real},
    {"zptgHartley", Layout::Real},          {"zptgWHT", Layout::Walsh},
};

// Exported functions that are not fixed-size transforms.
constexpr const char* kOtherPrefixes[] = {"zptgenGetLibVersion", "zptgWHTGetBufferSize_",
                                          "zptgDCT4"};

bool is_number(const std::string& s)
{
    if (s.empty()) return false;
    for (char c : s)
        if (!std::isdigit(static_cast<unsigned char>(c))) return false;
    return true;
}

// Splits `<stem>_<size>_<kind>` or `<stem>_<kind>`; false if the name is
// not of that form or its stem and kind are no family's.
bool parse(const std::string& name, Transform* t)
{
    const auto last = name.rfind('_');
    if (last == std::string::npos) return false;
    const std::string kind = name.substr(last + 1);
    std::string stem = name.substr(0, last);
    int size = 0;
    const auto before = stem.rfind('_');
    if (before != std::string::npos && is_number(stem.substr(before + 1))) {
        size = std::stoi(stem.substr(before + 1));
        stem.resize(before);
    }
    for (const Family& f : kFamilies) {
        if (stem != f.stem) continue;
        const bool complex = f.layout == Layout::Complex;
        unsigned width = 0;
        if (kind == (complex ? "32fc" : "32f")) width = 4;
        else if (kind == (complex ? "64fc" : "64f")) width = 8;
        else return false;
        *t = {name, stem, f.layout, width, size, nullptr};
        return size == 0 || (size >= t->min_size() && size <= t->max_size());
    }
    return false;
}

template <class E>
zptgStatus call_typed(const Transform& t, const void* src, void* dst, int size, int flag,
                      void* buffer)
{
    const E* s = static_cast<const E*>(src);
    E* d = static_cast<E*>(dst);
    E* b = static_cast<E*>(buffer);
    if (t.layout == Layout::Walsh && t.dispatcher())
        return reinterpret_cast<zptgStatus (*)(const E*, E*, int, int, E*)>(t.address)(
            s, d, size, flag, b);
    if (t.dispatcher())
        return reinterpret_cast<zptgStatus (*)(const E*, E*, int, int)>(t.address)(s, d, size,
                                                                                   flag);
    if (t.takes_buffer(t.size))
        return reinterpret_cast<zptgStatus (*)(const E*, E*, int, E*)>(t.address)(s, d, flag, b);
    return reinterpret_cast<zptgStatus (*)(const E*, E*, int)>(t.address)(s, d, flag);
}

}  // namespace

int Transform::src_values(int size) const
{
    const int n = length(size);
    switch (layout) {
    case Layout::Complex: return 2 * n;
    case Layout::FromCcs: return n + 1;  // position N + 1 of an even N is never read
    default: return n;
    }
}

int Transform::dst_values(int size) const
{
    const int n = length(size);
    switch (layout) {
    case Layout::Complex: return 2 * n;
    case Layout::ToCcs: return n % 2 == 0 ? n + 2 : n + 1;
    default: return n;
    }
}

bool Transform::literal_zero(int size, int p) const
{
    const int n = length(size);
    return layout == Layout::ToCcs && (p == 1 || (n % 2 == 0 && p == n + 1));
}

zptgStatus Transform::call(const void* src, void* dst, int size, int flag, void* buffer) const
{
    if (layout == Layout::Complex)
        return width == 4 ? call_typed<zptg32fc>(*this, src, dst, size, flag, buffer)
                          : call_typed<zptg64fc>(*this, src, dst, size, flag, buffer);
    return width == 4 ? call_typed<zptg32f>(*this, src, dst, size, flag, buffer)
                      : call_typed<zptg64f>(*this, src, dst, size, flag, buffer);
}

std::vector<Transform> exported_transforms(std::vector<std::string>* unknown)
{
    std::vector<Transform> out;
    Dl_info info{};
    ElfFile elf;
    std::string error;
    if (dladdr(reinterpret_cast<void*>(&zptgenGetLibVersion), &info) == 0 ||
        !elf.load(info.dli_fname, &error)) {
        unknown->push_back("cannot read the library's export list: " + error);
        return out;
    }
    constexpr unsigned kSttFunc = 2, kStbLocal = 0;
    for (const ElfSymbol& s : elf.dynamic_symbols) {
        if (s.section == 0 || s.binding == kStbLocal || s.type != kSttFunc) continue;
        Transform t{};
        if (parse(s.name, &t)) {
            t.address = dlsym(RTLD_DEFAULT, s.name.c_str());
            if (t.address != nullptr) {
                out.push_back(t);
                continue;
            }
        }
        bool other = false;
        for (const char* prefix : kOtherPrefixes)
            other = other || s.name.rfind(prefix, 0) == 0;
        if (!other) unknown->push_back(s.name);
    }
    return out;
}

}  // namespace zptg::test
