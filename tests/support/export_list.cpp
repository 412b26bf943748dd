#include "support/export_list.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <regex>

namespace zptg::test {
namespace {

struct Family {
    const char* stem;
    Layout layout;
    Direction direction;
};

constexpr Direction F = Direction::Forward, I = Direction::Inverse, S = Direction::SelfInverse;
constexpr Family kFamilies[] = {
    {"zptgDFTFwd_CToC", Layout::Complex, F},   {"zptgDFTInv_CToC", Layout::Complex, I},
    {"zptgDFTFwd_RToCCS", Layout::ToCcs, F},   {"zptgDFTInv_CCSToR", Layout::FromCcs, I},
    {"zptgDFTFwd_RToPack", Layout::ToPack, F}, {"zptgDFTInv_PackToR", Layout::FromPack, I},
    {"zptgDFTFwd_RToPerm", Layout::ToPerm, F}, {"zptgDFTInv_PermToR", Layout::FromPerm, I},
    {"zptgHartley", Layout::Hartley, S},       {"zptgWHT", Layout::Walsh, S},
};
// The library's other functions.
constexpr const char* kOthers = "zptgenGetLibVersion|zptgWHTGetBufferSize_.*|zptgDCT4.*";

// A transform of a known family and kind, with a size in its range.
bool parse(const std::string& name, Transform* t)
{
    static const std::regex form(R"((\w+?)(?:_(\d+))?_((?:32|64)f)(c?))");
    std::smatch m;
    if (!std::regex_match(name, m, form)) return false;
    for (const Family& f : kFamilies)
        if (m[1] == f.stem && (m[4].length() == 1) == (f.layout == Layout::Complex)) {
            *t = {name, f.stem, f.layout, f.direction, m[3] == "32f" ? 4u : 8u, m[2].matched ? std::stoi(m[2]) : 0, nullptr};
            return !m[2].matched || (t->size >= t->min_size() && t->size <= t->max_size());
        }
    return false;
}

template <class E>
zptgStatus call_typed(const Transform& t, const void* src, void* dst, int size, int flag, void* buffer)
{
    const E* s = static_cast<const E*>(src);
    E* d = static_cast<E*>(dst);
    E* b = static_cast<E*>(buffer);
    if (t.layout == Layout::Walsh && t.dispatcher())
        return reinterpret_cast<zptgStatus (*)(const E*, E*, int, int, E*)>(t.address)(s, d, size, flag, b);
    if (t.dispatcher()) return reinterpret_cast<zptgStatus (*)(const E*, E*, int, int)>(t.address)(s, d, size, flag);
    if (t.takes_buffer(t.size)) return reinterpret_cast<zptgStatus (*)(const E*, E*, int, E*)>(t.address)(s, d, flag, b);
    return reinterpret_cast<zptgStatus (*)(const E*, E*, int)>(t.address)(s, d, flag);
}

}  // namespace

int packed_position(Layout layout, int n, int k, bool im)
{
    const bool edge = k == 0 || 2 * k == n;
    const bool ccs = layout == Layout::ToCcs || layout == Layout::FromCcs;
    const bool perm = layout == Layout::ToPerm || layout == Layout::FromPerm;
    if (im && edge) return -1;
    if (ccs || (perm && n % 2 == 0 && !edge)) return 2 * k + im;
    if (k == 0) return 0;
    if (2 * k == n) return perm ? 1 : n - 1;
    return im ? 2 * k : 2 * k - 1;
}

int Transform::src_values(int s) const
{
    return layout == Layout::Complex ? 2 * length(s) : layout == Layout::FromCcs ? s + 1 : length(s);
}

int Transform::dst_values(int s) const
{
    return layout == Layout::Complex ? 2 * length(s) : layout == Layout::ToCcs ? s + 2 - s % 2 : length(s);
}

bool Transform::literal_zero(int s, int p) const
{
    return layout == Layout::ToCcs && (p == 1 || (s % 2 == 0 && p == s + 1));
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
    Dl_info info{};
    FILE* symbols = nullptr;
    if (dladdr(reinterpret_cast<void*>(&zptgenGetLibVersion), &info) != 0)
        symbols = popen(("readelf -W --dyn-syms '" + std::string(info.dli_fname) + "'").c_str(), "r");
    std::vector<Transform> out;
    char line[512], type[16], bind[16], section[16], name[256];
    // "Num: Value Size Type Bind Vis Ndx Name": the defined functions that are not local.
    while (symbols != nullptr && std::fgets(line, sizeof line, symbols) != nullptr) {
        if (std::sscanf(line, "%*d: %*x %*s %15s %15s %*s %15s %255s", type, bind, section, name) != 4 ||
            std::strcmp(type, "FUNC") != 0 || std::strcmp(bind, "LOCAL") == 0 || std::strcmp(section, "UND") == 0)
            continue;
        *strchrnul(name, '@') = '\0';
        Transform t{};
        if (parse(name, &t) && (t.address = dlsym(RTLD_DEFAULT, name)) != nullptr) out.push_back(t);
        else if (!std::regex_match(name, std::regex(kOthers))) unknown->push_back(name);
    }
    if (symbols == nullptr || pclose(symbols) != 0 || out.empty()) unknown->push_back("the export list, unread");
    return out;
}

}  // namespace zptg::test
