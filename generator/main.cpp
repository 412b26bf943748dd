// zptg_gen: writes the generated kernels of the library's fixed-size
// families into a build tree.
//
//   zptg_gen <output dir> <family>...      families: complex, real, hartley,
//                                          dct4_constants
//   zptg_gen --counts <family>             prints each body's counts and error
#include <cstdio>
#include <exception>
#include <string>

#include "core/analysis.h"
#include "families/complex_family.h"
#include "families/dct4_constants.h"
#include "families/real_family.h"

namespace {

using namespace zptg::gen;

// The kernel families by their name on the command line.
struct Named {
    const char* name;
    Family (*describe)();
};
constexpr Named kFamilies[] = {
    {"complex", complex_family},
    {"real", real_family},
    {"hartley", hartley_family},
};

const Named* find_family(const std::string& name)
{
    for (const Named& f : kFamilies)
        if (name == f.name) return &f;
    return nullptr;
}

void print_counts(const Family& f)
{
    for (int n = f.first; n <= f.last; ++n) {
        for (const Body& b : f.bodies(n)) {
            const Counts c = count(b.graph, b.outputs);
            std::printf("%2d %s %5d %5d %5d %3d  err %.2Le\n", n, b.name.c_str(), c.additions,
                        c.subtractions, c.products, c.constants, f.error(b, n));
        }
    }
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 3 && std::string(argv[1]) == "--counts") {
            const Named* f = find_family(argv[2]);
            if (f == nullptr) {
                std::fprintf(stderr, "zptg_gen: unknown family '%s'\n", argv[2]);
                return 2;
            }
            print_counts(f->describe());
            return 0;
        }
        if (argc < 3) {
            std::fprintf(stderr, "usage: zptg_gen <output dir> complex|real|hartley|dct4_constants\n");
            return 2;
        }
        const std::string out = argv[1];
        for (int i = 2; i < argc; ++i) {
            const std::string family = argv[i];
            const std::string command = "zptg_gen <dir> " + family;
            if (const Named* f = find_family(family)) {
                write_family(f->describe(), out, command);
            } else if (family == "dct4_constants") {
                write_dct4_constants(out, command);
            } else {
                std::fprintf(stderr, "zptg_gen: unknown family '%s'\n", family.c_str());
                return 2;
            }
        }
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "zptg_gen: %s\n", e.what());
        return 1;
    }
}
