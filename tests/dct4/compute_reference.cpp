// Long double references: exact angle reduction, definitions, and a
// radix-2 FFT used by the fast DCT-IV and odd-frequency references.
#include "dct4/compute_reference.h"

#include <cmath>
#include <cstddef>

namespace zptg::test {
namespace {

constexpr long double kPi = 3.141592653589793238462643383279502884L;

// In-place FFT with a plus sign: X_s = sum_t x_t exp(2 pi i s t / L).
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
    for (size_t len = 2; len <= n; len <<= 1) {
        const size_t step = n / len;
        for (size_t i = 0; i < n; i += len) {
            for (size_t k = 0; k < len / 2; ++k) {
                const cld u = a[i + k], v = a[i + k + len / 2] * w[k * step];
                a[i + k] = u + v;
                a[i + k + len / 2] = u - v;
            }
        }
    }
}

}  // namespace

long double cos_pi(int64_t num, int64_t den)
{
    int64_t r = num % (2 * den);
    if (r < 0) r += 2 * den;
    return std::cos(kPi * static_cast<long double>(r) / static_cast<long double>(den));
}

long double sin_pi(int64_t num, int64_t den)
{
    int64_t r = num % (2 * den);
    if (r < 0) r += 2 * den;
    return std::sin(kPi * static_cast<long double>(r) / static_cast<long double>(den));
}

cld exp_i_pi(int64_t num, int64_t den) { return {cos_pi(num, den), sin_pi(num, den)}; }

long double dct4_direct(const std::vector<long double>& x, int64_t k)
{
    const int64_t n = static_cast<int64_t>(x.size());
    long double sum = 0;
    for (int64_t j = 0; j < n; ++j) sum += x[j] * cos_pi((2 * j + 1) * (2 * k + 1), 4 * n);
    return sum;
}

std::vector<long double> dct4_fast(const std::vector<long double>& x)
{
    // Pairs x[2n] - i x[N-1-2n], turned by exp(i pi n / N), through a DFT of
    // N/2; output pair p gives X[2p] and X[N-1-2p] after a turn by
    // exp(i pi (4p+1) / (4N)).
    const int64_t n = static_cast<int64_t>(x.size());
    const int64_t half = n / 2;
    std::vector<cld> z(half);
    for (int64_t j = 0; j < half; ++j) z[j] = cld(x[2 * j], -x[n - 1 - 2 * j]) * exp_i_pi(j, n);
    fft_plus(z);
    std::vector<long double> out(n);
    for (int64_t p = 0; p < half; ++p) {
        const cld v = z[p] * exp_i_pi(4 * p + 1, 4 * n);
        out[2 * p] = v.real();
        out[n - 1 - 2 * p] = v.imag();
    }
    return out;
}

std::vector<cld> oddfreq_direct(const std::vector<long double>& y)
{
    const int64_t m = static_cast<int64_t>(y.size());
    std::vector<cld> f(m / 2);
    for (int64_t k = 0; k < m / 2; ++k) {
        cld sum = 0;
        for (int64_t j = 0; j < m; ++j) sum += y[j] * exp_i_pi(j * (2 * k + 1), m);
        f[k] = sum;
    }
    return f;
}

std::vector<cld> oddfreq_fast(const std::vector<long double>& y)
{
    const int64_t m = static_cast<int64_t>(y.size());
    std::vector<cld> a(m);
    for (int64_t j = 0; j < m; ++j) a[j] = y[j] * exp_i_pi(j, m);
    fft_plus(a);
    a.resize(m / 2);
    return a;
}

std::vector<long double> network_direct(const std::vector<cld>& w)
{
    const int64_t d = static_cast<int64_t>(w.size());
    // exp(i pi q / (2d)) for q modulo 4d.
    std::vector<cld> turn(4 * d);
    for (int64_t q = 0; q < 4 * d; ++q) turn[q] = exp_i_pi(q, 2 * d);
    std::vector<long double> r(2 * d);
    for (int64_t s = -d; s < d; ++s) {
        cld sum = 0;
        for (int64_t i = 0; i < d; ++i) {
            const int64_t q = ((2 * i + 1) * s) % (4 * d);
            sum += w[i] * turn[q < 0 ? q + 4 * d : q];
        }
        r[s + d] = sum.real();
    }
    return r;
}

std::vector<cld> dft_plus(const std::vector<cld>& x)
{
    const int64_t l = static_cast<int64_t>(x.size());
    std::vector<cld> out(l);
    for (int64_t s = 0; s < l; ++s) {
        cld sum = 0;
        for (int64_t t = 0; t < l; ++t) sum += x[t] * exp_i_pi(2 * s * t, l);
        out[s] = sum;
    }
    return out;
}

std::vector<long double> random_values(int64_t n, uint32_t seed)
{
    std::vector<long double> v(n);
    uint32_t state = seed * 2654435761u + 12345u;
    for (auto& x : v) {
        state = state * 1664525u + 1013904223u;
        x = static_cast<long double>(state >> 8) / 8388608.0L - 1.0L;
    }
    return v;
}

}  // namespace zptg::test
