// The real layouts as the tests see them: where each term of the half
// spectrum X[0 .. N/2] stands in CCS, Pack and Perm, and how long each
// packed array is. (Hartley kernels work on plain arrays of N.)
#ifndef ZPTG_TESTS_DFT_REAL_LAYOUTS_H
#define ZPTG_TESTS_DFT_REAL_LAYOUTS_H

namespace zptg::test {

enum class Shape { CCS, Pack, Perm, Hartley };

constexpr Shape kPackings[] = {Shape::CCS, Shape::Pack, Shape::Perm};

// The length of the packed side of a transform of length n.
constexpr int packed_size(Shape s, int n) { return s == Shape::CCS ? 2 * (n / 2 + 1) : n; }

// The position of Re X[k] (im: Im X[k]) in a packing, -1 for none (the
// imaginary parts of X[0] and X[n/2]; CCS stores literal zeros there).
constexpr int position(Shape s, int n, int k, bool im)
{
    const bool edge = k == 0 || 2 * k == n;
    if (im && edge) return -1;
    if (s == Shape::CCS || (s == Shape::Perm && n % 2 == 0 && !edge)) return 2 * k + im;
    if (k == 0) return 0;
    if (2 * k == n) return s == Shape::Perm ? 1 : n - 1;
    return im ? 2 * k : 2 * k - 1;
}

}  // namespace zptg::test

#endif
