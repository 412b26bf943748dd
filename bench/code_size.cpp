#include "code_size.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zptg::bench {
namespace {

struct Function {
    std::uint64_t size = 0;
    bool local = false;
};

// The functions of one shared object by their offset from its load address.
std::map<std::uint64_t, Function> read_functions(const char* path)
{
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> file{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    std::map<std::uint64_t, Function> functions;
    ElfW(Ehdr) eh;
    if (file.size() < sizeof eh) return functions;
    std::memcpy(&eh, file.data(), sizeof eh);
    if (std::memcmp(eh.e_ident, ELFMAG, SELFMAG) != 0 || eh.e_shentsize != sizeof(ElfW(Shdr)) ||
        eh.e_shoff + std::uint64_t(eh.e_shnum) * sizeof(ElfW(Shdr)) > file.size())
        return functions;
    std::vector<ElfW(Shdr)> sections(eh.e_shnum);
    std::memcpy(sections.data(), file.data() + eh.e_shoff, sections.size() * sizeof(ElfW(Shdr)));
    // The full table when there is one, else the exported symbols.
    for (const unsigned type : {SHT_SYMTAB, SHT_DYNSYM}) {
        for (const ElfW(Shdr)& s : sections) {
            if (s.sh_type != type || s.sh_entsize != sizeof(ElfW(Sym)) || s.sh_offset + s.sh_size > file.size())
                continue;
            for (std::uint64_t off = s.sh_offset; off + sizeof(ElfW(Sym)) <= s.sh_offset + s.sh_size;
                 off += sizeof(ElfW(Sym))) {
                ElfW(Sym) sym;  // (type and binding: the same bits in both ELF classes)
                std::memcpy(&sym, file.data() + off, sizeof sym);
                if (ELF32_ST_TYPE(sym.st_info) != STT_FUNC || sym.st_size == 0) continue;
                functions[sym.st_value] = {sym.st_size, ELF32_ST_BIND(sym.st_info) == STB_LOCAL};
            }
        }
        if (!functions.empty()) break;
    }
    return functions;
}

}  // namespace

long code_bytes(const void* function)
{
    Dl_info info;
    if (dladdr(function, &info) == 0 || info.dli_fname == nullptr) return 0;
    static std::map<std::string, std::map<std::uint64_t, Function>> objects;
    auto it = objects.find(info.dli_fname);
    if (it == objects.end()) it = objects.emplace(info.dli_fname, read_functions(info.dli_fname)).first;
    const std::map<std::uint64_t, Function>& functions = it->second;
    const auto* base = static_cast<const unsigned char*>(info.dli_fbase);
    // From the kernel's symbol through every call (E8) or jump (E9) whose
    // 32-bit displacement lands on the first byte of a local function. A
    // byte pattern that is no such instruction but happens to hit a
    // function's first byte would be counted too; in practice none does.
    std::set<std::uint64_t> seen;
    std::vector<std::uint64_t> todo = {std::uint64_t(static_cast<const unsigned char*>(function) - base)};
    long bytes = 0;
    while (!todo.empty()) {
        const std::uint64_t at = todo.back();
        todo.pop_back();
        const auto f = functions.find(at);
        if (f == functions.end() || !seen.insert(at).second) continue;
        bytes += long(f->second.size);
        const unsigned char* code = base + at;
        for (std::uint64_t i = 0; i + 5 <= f->second.size; ++i) {
            if (code[i] != 0xE8 && code[i] != 0xE9) continue;
            std::int32_t rel;
            std::memcpy(&rel, code + i + 1, sizeof rel);
            const std::uint64_t target = at + i + 5 + std::uint64_t(std::int64_t(rel));
            const auto g = functions.find(target);
            if (g != functions.end() && g->second.local) todo.push_back(target);
        }
    }
    return bytes;
}

}  // namespace zptg::bench
