// A minimal reader of the parts of an ELF shared object that the library's
// binary-interface tests look at: section headers, the dynamic symbol table
// and the dynamic section. Handles 32- and 64-bit little-endian files.
#ifndef ZPTG_TESTS_ELF_FILE_H
#define ZPTG_TESTS_ELF_FILE_H

#include <cstdint>
#include <string>
#include <vector>

namespace zptg::test {

struct ElfSection {
    std::string name;
    uint64_t size = 0;
};

struct ElfSymbol {
    std::string name;
    unsigned type = 0;     // STT_*
    unsigned binding = 0;  // STB_*
    uint16_t section = 0;  // 0 for undefined
};

struct ElfFile {
    bool is64 = false;
    std::vector<ElfSection> sections;
    std::vector<ElfSymbol> dynamic_symbols;
    std::vector<std::string> needed;
    std::string soname;

    // Reads `path`; on failure returns false and says why in `error`.
    bool load(const std::string& path, std::string* error);
    const ElfSection* section(const std::string& name) const;
};

}  // namespace zptg::test

#endif
