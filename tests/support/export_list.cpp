#include "support/export_list.h"

#include <dlfcn.h>
#include <link.h>

#include <cctype>
#include <cstdint>
#include <cstring>

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

namespace {

// The names that the loaded object holding `address` exports, read from its
// dynamic symbol table through its GNU hash table (the table's chains give
// the symbol count).
bool exported_names(const void* address, std::vector<std::string>* names)
{
    Dl_info info{};
    link_map* map = nullptr;
    if (dladdr(address, &info) == 0) return false;
    void* handle = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    if (handle == nullptr) return false;
    const bool found = dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0;
    dlclose(handle);
    if (!found) return false;
    const ElfW(Sym)* symbols = nullptr;
    const char* strings = nullptr;
    const uint32_t* gnu_hash = nullptr;
    // The loader has made most of these addresses absolute; any that is
    // not is relative to the object's base.
    const auto at = [map](ElfW(Addr) p) { return p < map->l_addr ? p + map->l_addr : p; };
    for (const ElfW(Dyn)* d = map->l_ld; d->d_tag != DT_NULL; ++d) {
        if (d->d_tag == DT_SYMTAB) symbols = reinterpret_cast<const ElfW(Sym)*>(at(d->d_un.d_ptr));
        if (d->d_tag == DT_STRTAB) strings = reinterpret_cast<const char*>(at(d->d_un.d_ptr));
        if (d->d_tag == DT_GNU_HASH) gnu_hash = reinterpret_cast<const uint32_t*>(at(d->d_un.d_ptr));
    }
    if (symbols == nullptr || strings == nullptr || gnu_hash == nullptr) return false;
    const uint32_t buckets = gnu_hash[0], first = gnu_hash[1], bloom_words = gnu_hash[2];
    const uint32_t* bucket = gnu_hash + 4 + bloom_words * (sizeof(ElfW(Addr)) / 4);
    const uint32_t* chain = bucket + buckets;
    uint32_t count = first;
    for (uint32_t b = 0; b < buckets; ++b)
        if (bucket[b] >= count) count = bucket[b] + 1;
    while (count > first && (chain[count - 1 - first] & 1u) == 0) ++count;
    for (uint32_t i = first; i < count; ++i)
        if (symbols[i].st_shndx != SHN_UNDEF && (symbols[i].st_info & 0xf) == STT_FUNC &&
            (symbols[i].st_info >> 4) != STB_LOCAL)
            names->push_back(strings + symbols[i].st_name);
    return true;
}

}  // namespace

std::vector<Transform> exported_transforms(std::vector<std::string>* unknown)
{
    std::vector<Transform> out;
    std::vector<std::string> names;
    if (!exported_names(reinterpret_cast<void*>(&zptgenGetLibVersion), &names)) {
        unknown->push_back("the library's export list cannot be read");
        return out;
    }
    for (const std::string& name : names) {
        Transform t{};
        if (parse(name, &t)) {
            t.address = dlsym(RTLD_DEFAULT, name.c_str());
            if (t.address != nullptr) {
                out.push_back(t);
                continue;
            }
        }
        bool other = false;
        for (const char* prefix : kOtherPrefixes)
            other = other || name.rfind(prefix, 0) == 0;
        if (!other) unknown->push_back(name);
    }
    return out;
}

}  // namespace zptg::test
