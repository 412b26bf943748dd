// The exact reference transform, the defining sum, the element-width
// network in the stated order, and the error bound.
#include "wht/reference.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace zptg::test::wht {
namespace {

static_assert(std::numeric_limits<long double>::digits >= 64,
              "the exact reference needs a 64-bit long double significand");

template <class V>
void network_in_place(V& v)
{
    const std::size_t n = v.size();
    for (std::size_t d = 1; d < n; d *= 2) {
        for (std::size_t block = 0; block < n; block += 2 * d) {
            for (std::size_t i = block; i < block + d; ++i) {
                const auto a = v[i];
                const auto b = v[i + d];
                v[i] = a + b;
                v[i + d] = a - b;
            }
        }
    }
}

}  // namespace

template <class T>
std::vector<T> dyadic_input(int order, std::uint32_t seed)
{
    constexpr int digits = std::numeric_limits<T>::digits;
    // Units of 2^-(bits + spread): values below 2^budget units, sums of
    // 2^order of them below 2^63.
    const int budget = std::numeric_limits<long double>::digits - 1 - order;
    const int spread = std::clamp(budget - digits, 0, digits / 3);
    const int bits = std::min(digits, budget - spread);
    const std::int64_t limit = (std::int64_t{1} << bits) - 1;
    std::mt19937_64 random(seed);
    std::uniform_int_distribution<std::int64_t> significand(-limit, limit);
    std::uniform_int_distribution<int> exponent(0, spread);
    std::vector<T> x(std::size_t{1} << order);
    for (T& v : x) {
        const long double k = static_cast<long double>(significand(random));
        v = static_cast<T>(std::ldexp(k, exponent(random) - bits - spread));
    }
    return x;
}

Exact exact_transform(const Exact& x)
{
    Exact y = x;
    network_in_place(y);
    return y;
}

Exact defining_sum(const Exact& x)
{
    const std::size_t n = x.size();
    Exact y(n, 0.0L);
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            const bool odd = std::popcount(i & j) % 2 != 0;
            y[i] += odd ? -x[j] : x[j];
        }
    }
    return y;
}

template <class T>
std::vector<T> plain_network(const std::vector<T>& x, T factor)
{
    std::vector<T> v = x;
    network_in_place(v);
    for (T& e : v) e = e * factor;
    return v;
}

template <class T>
long double error_bound(int order, long double sum_abs, long double s)
{
    const long double u = std::numeric_limits<T>::epsilon() / 2;
    // order roundings in the network, 3u for the scale constant, u for the
    // product; the factor 1.01 covers the second-order terms.
    return 1.01L * (order + 4) * u * s * sum_abs;
}

long double sum_of_magnitudes(const Exact& x)
{
    long double s = 0;
    for (long double v : x) s += std::fabs(v);
    return s;
}

template std::vector<float> dyadic_input<float>(int, std::uint32_t);
template std::vector<double> dyadic_input<double>(int, std::uint32_t);
template std::vector<float> plain_network<float>(const std::vector<float>&, float);
template std::vector<double> plain_network<double>(const std::vector<double>&, double);
template long double error_bound<float>(int, long double, long double);
template long double error_bound<double>(int, long double, long double);

}  // namespace zptg::test::wht
