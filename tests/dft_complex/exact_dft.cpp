// Roots of unity from the Taylor series on at most an eighth of a turn,
// carried to the whole circle by exact symmetries, and the plain DFT.
#include "dft_complex/exact_dft.h"

#include <utility>

namespace zptg::test {
namespace {

constexpr long double kPi = 3.14159265358979323846264338327950288L;

// sin and cos of x for |x| <= pi/4, summed from the smallest term up.
std::pair<long double, long double> sin_cos_small(long double x)
{
    const long double x2 = x * x;
    long double s = 0, c = 0;
    // sin x = x (1 - x^2/(2*3) (1 - x^2/(4*5) (1 - ...))), likewise cos.
    for (int k = 13; k >= 1; --k) {
        s = 1 - x2 / ((2 * k) * (2 * k + 1)) * s;
        c = 1 - x2 / ((2 * k - 1) * (2 * k)) * c;
    }
    return {x * s, c};
}

}  // namespace

Exact unit_root(long long num, long long den)
{
    long long r = num % den;
    if (r < 0) r += den;
    // The angle is (pi/4) (8 r / den): octant o = 8r / den, and within the
    // octant f / den of an eighth turn, with f in [0, den).
    const long long o = 8 * r / den;
    const long long f = 8 * r % den;
    // Odd octants are measured back from their upper end, so the argument
    // of the series is never more than pi/4.
    const long long along = (o % 2 == 0) ? f : den - f;
    const auto [s, c] = sin_cos_small(kPi / 4 * (long double)along / (long double)den);
    switch (o) {
    case 0: return {c, s};
    case 1: return {s, c};
    case 2: return {-s, c};
    case 3: return {-c, s};
    case 4: return {-c, -s};
    case 5: return {-s, -c};
    case 6: return {s, -c};
    default: return {c, -s};
    }
}

std::vector<Exact> exact_dft(const std::vector<Exact>& x, Dir dir)
{
    const long long n = (long long)x.size();
    std::vector<Exact> w(n);
    for (long long m = 0; m < n; ++m) {
        w[m] = unit_root(m, n);
        if (dir == Dir::Forward) w[m].im = -w[m].im;
    }
    std::vector<Exact> out(n);
    for (long long k = 0; k < n; ++k) {
        long double re = 0, im = 0;
        for (long long t = 0; t < n; ++t) {
            const Exact& r = w[t * k % n];
            re += x[t].re * r.re - x[t].im * r.im;
            im += x[t].re * r.im + x[t].im * r.re;
        }
        out[k] = {re, im};
    }
    return out;
}

}  // namespace zptg::test
