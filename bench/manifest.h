// The operation counts of the generated kernels, read from the manifest
// that the generator writes into the build tree for each family.
#ifndef ZPTG_BENCH_MANIFEST_H
#define ZPTG_BENCH_MANIFEST_H

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zptg::bench {

struct KernelCounts {
    std::string rule;
    long additions = 0, subtractions = 0, products = 0, constants = 0;
    // Floating-point operations of one call: the body's, plus the one
    // product with the scale factor of each stored output (2N for a complex
    // kernel of length N, N for a real or Hartley one).
    long operations(long scale_products) const { return sums() + multiplications(scale_products); }
    long sums() const { return additions + subtractions; }
    long multiplications(long scale_products) const { return products + scale_products; }
};

// (n, body) -> counts, the body named as the generator names it ("forward",
// "inverse", ...). Empty if the file cannot be read.
using Manifest = std::map<std::pair<int, std::string>, KernelCounts>;

Manifest read_manifest(const std::string& path);

// The counts of the body of length n with the first of the given names that
// the manifest has, else of its first body of length n whose name starts
// with the last of them (an empty name takes any body); null if none.
const KernelCounts* find_counts(const Manifest& m, int n, const std::vector<std::string>& names);

}  // namespace zptg::bench

#endif
