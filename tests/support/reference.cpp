#include "support/reference.h"

#include <utility>

namespace zptg::test {
namespace {

constexpr long double kPi = 3.14159265358979323846264338327950288L;

// sin and cos of x for |x| <= pi/4, summed from the smallest term up.
std::pair<long double, long double> sin_cos_small(long double x)
{
    const long double x2 = x * x;
    long double s = 0, c = 0;
    for (int k = 13; k >= 1; --k) {
        s = 1 - x2 / ((2 * k) * (2 * k + 1)) * s;
        c = 1 - x2 / ((2 * k - 1) * (2 * k)) * c;
    }
    return {x * s, c};
}

// In place: X_s = sum_t x_t exp(2 pi i s t / L), L a power of two.
void fft_plus(std::vector<cld>& a)
{
    const size_t n = a.size();
    for (size_t i = 1, j = 0; i < n; ++i) {
        size_t bit = n >> 1;
        for (; j & bit; bit >>= 1) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(a[i], a[j]);
    }
    std::vector<cld> w(n / 2 + 1);
    for (size_t q = 0; q < w.size(); ++q) w[q] = exp_i_pi(2 * int64_t(q), int64_t(n));
    for (size_t len = 2; len <= n; len <<= 1)
        for (size_t i = 0; i < n; i += len)
            for (size_t k = 0; k < len / 2; ++k) {
                const cld u = a[i + k], v = a[i + k + len / 2] * w[k * (n / len)];
                a[i + k] = u + v;
                a[i + k + len / 2] = u - v;
            }
}

}  // namespace

cld exp_i_pi(int64_t num, int64_t den)
{
    // The angle is (pi/4) (4 r / den), r = num mod 2 den: octant o and within it f / den of an
    // eighth turn; odd octants are measured back from their upper end, so the series never sees
    // more than pi/4.
    int64_t r = num % (2 * den);
    if (r < 0) r += 2 * den;
    const int64_t o = 4 * r / den, f = 4 * r % den;
    const auto [s, c] = sin_cos_small(kPi / 4 * (long double)(o % 2 == 0 ? f : den - f) / (long double)den);
    const long double octants[8][2] = {{c, s}, {s, c}, {-s, c}, {-c, s}, {-c, -s}, {-s, -c}, {s, -c}, {c, -s}};
    return {octants[o][0], octants[o][1]};
}

std::vector<cld> exact_dft(const std::vector<cld>& x, int sign)
{
    const int64_t n = int64_t(x.size());
    std::vector<cld> out(n);
    for (int64_t k = 0; k < n; ++k)
        for (int64_t t = 0; t < n; ++t) out[k] += x[t] * exp_i_pi(sign * 2 * (k * t % n), n);
    return out;
}

Reals dct4_fast(const Reals& x)
{
    // Pairs x[2j] - i x[N-1-2j] turned by exp(i pi j / N), a DFT of N/2; output p, turned by exp(i
    // pi (4p+1) / 4N), gives X[2p] and X[N-1-2p].
    const int64_t n = int64_t(x.size()), half = n / 2;
    if (n < 2) return x;
    std::vector<cld> z(half);
    for (int64_t j = 0; j < half; ++j) z[j] = cld(x[2 * j], -x[n - 1 - 2 * j]) * exp_i_pi(j, n);
    fft_plus(z);
    Reals out(n);
    for (int64_t p = 0; p < half; ++p) {
        const cld v = z[p] * exp_i_pi(4 * p + 1, 4 * n);
        out[2 * p] = v.real();
        out[n - 1 - 2 * p] = v.imag();
    }
    return out;
}

std::vector<cld> oddfreq(const Reals& y)
{
    const int64_t m = int64_t(y.size());
    std::vector<cld> a(m);
    for (int64_t j = 0; j < m; ++j) a[j] = y[j] * exp_i_pi(j, m);
    fft_plus(a);
    a.resize(m / 2);
    return a;
}

Reals network_sum(const std::vector<cld>& w)
{
    const int64_t d = int64_t(w.size());
    Reals r(2 * d);
    for (int64_t s = -d; s < d; ++s) {
        cld sum = 0;
        for (int64_t i = 0; i < d; ++i) sum += w[i] * exp_i_pi((2 * i + 1) * s, 2 * d);
        r[s + d] = sum.real();
    }
    return r;
}

Reals random_values(int64_t n, uint32_t seed)
{
    Reals v(n);
    uint32_t state = seed * 2654435761u + 97u;
    for (long double& x : v) {
        state = state * 1664525u + 1013904223u;
        x = (long double)(int32_t(state >> 9) - (1 << 22)) / (1 << 22);
    }
    return v;
}

}  // namespace zptg::test
