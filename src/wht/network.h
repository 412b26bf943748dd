// The radix-2 Walsh-Hadamard network of P points as one straight-line body.
// It reads the P inputs in[0], in[Stride], ..., in[(P-1) Stride] into local
// values, runs the stages in ascending distance (1, 2, 4, ..., P/2), each
// butterfly taking (a, b) to (a + b, a - b) with the lower index as minuend,
// and then hands every value to a Finish policy on its way to
// out[k * Stride]. All reads come before the first store, so out may be in.
// Everything is unrolled at compile time: the body contains no loop.
#ifndef ZPTG_WHT_NETWORK_H
#define ZPTG_WHT_NETWORK_H

#include <cstddef>
#include <utility>

namespace zptg::wht {

// Finish policies: how a value leaves the network.
struct Plain {
    template <class T>
    [[gnu::always_inline]] T operator()(T v) const { return v; }
};

// Exactly one product by the scale factor, right before the store.
template <class T>
struct Scaled {
    T factor;
    [[gnu::always_inline]] T operator()(T v) const { return v * factor; }
};

namespace detail {

// Lower index of butterfly k in the stage of distance D.
template <int D>
constexpr int lower(std::size_t k)
{
    return static_cast<int>(k / D) * 2 * D + static_cast<int>(k % D);
}

template <class T>
[[gnu::always_inline]] inline void butterfly(T& a, T& b)
{
    const T sum = a + b;
    const T difference = a - b;
    a = sum;
    b = difference;
}

template <int D, class T, std::size_t... K>
[[gnu::always_inline]] inline void stage(T* v, std::index_sequence<K...>)
{
    (butterfly(v[lower<D>(K)], v[lower<D>(K) + D]), ...);
}

template <int D, int P, class T>
[[gnu::always_inline]] inline void stages(T* v)
{
    if constexpr (D < P) {
        stage<D>(v, std::make_index_sequence<P / 2>{});
        stages<2 * D, P>(v);
    }
}

template <int Stride, class T, std::size_t... I>
[[gnu::always_inline]] inline void load(const T* in, T* v, std::index_sequence<I...>)
{
    ((v[I] = in[static_cast<std::ptrdiff_t>(I) * Stride]), ...);
}

template <int Stride, class T, class Finish, std::size_t... I>
[[gnu::always_inline]] inline void store(const T* v, T* out, Finish finish,
                                         std::index_sequence<I...>)
{
    ((out[static_cast<std::ptrdiff_t>(I) * Stride] = finish(v[I])), ...);
}

}  // namespace detail

template <int P>
constexpr bool is_power_of_two = P >= 2 && (P & (P - 1)) == 0;

// WHT-P over in[k * Stride] into out[k * Stride], k = 0 .. P-1.
template <int P, int Stride, class T, class Finish>
[[gnu::always_inline]] inline void network(const T* in, T* out, Finish finish)
{
    static_assert(is_power_of_two<P>, "the network has a power-of-two size");
    T v[P];
    detail::load<Stride>(in, v, std::make_index_sequence<P>{});
    detail::stages<1, P>(v);
    detail::store<Stride>(v, out, finish, std::make_index_sequence<P>{});
}

}  // namespace zptg::wht

#endif
