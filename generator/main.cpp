// zptg_gen: writes the generated kernels of the library's fixed-size
// families into a build tree.
//
//   zptg_gen <output dir> <family>...      families: complex, dct4_constants
//   zptg_gen --counts <family>             prints each kernel's counts
#include <cstdio>
#include <exception>
#include <string>

#include "core/analysis.h"
#include "families/complex_family.h"
#include "families/dct4_constants.h"

int main(int argc, char** argv)
{
    using namespace zptg::gen;
    try {
        if (argc == 3 && std::string(argv[1]) == "--counts") {
            for (int n = 2; n <= 64; ++n) {
                for (Dir d : {Dir::Forward, Dir::Inverse}) {
                    const ComplexKernel k = build_complex_kernel(n, d);
                    const Counts c = count(k.graph, k.outputs);
                    std::printf("%2d %s %5d %5d %5d %3d  err %.2Le\n", n,
                                d == Dir::Forward ? "fwd" : "inv", c.additions, c.subtractions,
                                c.products, c.constants, complex_kernel_error(k));
                }
            }
            return 0;
        }
        if (argc < 3) {
            std::fprintf(stderr, "usage: zptg_gen <output dir> complex|dct4_constants\n");
            return 2;
        }
        const std::string out = argv[1];
        for (int i = 2; i < argc; ++i) {
            const std::string family = argv[i];
            const std::string command = "zptg_gen <dir> " + family;
            if (family == "complex") {
                write_complex_family(out, command);
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
