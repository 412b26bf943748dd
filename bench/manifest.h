// The operation counts of the generated complex kernels, read from the
// manifest that the generator writes into the build tree.
#ifndef ZPTG_BENCH_MANIFEST_H
#define ZPTG_BENCH_MANIFEST_H

#include <map>
#include <string>
#include <utility>

namespace zptg::bench {

struct KernelCounts {
    std::string rule;
    long additions = 0, subtractions = 0, products = 0, constants = 0;
    // Floating-point operations of one call: the body's, plus the one
    // product with the scale factor of each of the 2N outputs.
    long operations(int n) const { return additions + subtractions + products + 2L * n; }
    long sums() const { return additions + subtractions; }
    long multiplications(int n) const { return products + 2L * n; }
};

// (n, "forward" or "inverse") -> counts. Empty if the file cannot be read.
using Manifest = std::map<std::pair<int, std::string>, KernelCounts>;

Manifest read_manifest(const std::string& path);

}  // namespace zptg::bench

#endif
