// The arithmetic that every DCT-IV body is written in: a complex pair of the
// body's scalar type, the rotation by four products and two sums, and the
// literal multipliers cos(pi a / 128) picked at compile time in the width of
// the scalar. The bodies are templates over that scalar so that a test can
// run them on a type that counts its operations; the library instantiates
// them with float and double.
#ifndef ZPTG_DCT4_COMPUTE_ARITH_H
#define ZPTG_DCT4_COMPUTE_ARITH_H

#include <type_traits>
#include <utility>

#include "dct4/compute_constants.h"

#define ZPTG_BODY [[gnu::always_inline]] inline

namespace zptg::dct4 {

template <class T>
struct Cplx {
    T re;
    T im;
};

// The same values as one aligned table per width, defined in another
// translation unit. With SSE arithmetic the bodies read their multipliers
// from there: the compiler then fetches them once per call into the frame,
// ahead of the loop, instead of reading each from a literal of its own
// wherever the linker has merged it into the library's constant pool, where
// the speed of a loop came to depend on what the rest of the library put
// around them (N = 2^10 and 2^11 32f, 1.3 times slower after an unrelated
// change) and on where the stack lies. With x87 arithmetic the bodies keep
// the literals: there the compiler's choice of what to keep in the wider
// registers decides the last bits of a result, so the code stays as it is.
template <class T, int N>
struct MultiplierTable {
    alignas(64) T value[N];
};
extern const MultiplierTable<float, 129> kCos128Table_32f;
extern const MultiplierTable<double, 129> kCos128Table_64f;
#if defined(__SSE2_MATH__)
constexpr bool kMultipliersFromTable = true;
#else
constexpr bool kMultipliersFromTable = false;
#endif

// cos(pi A / 128) in the scalar's width: float bodies take the nearest
// float, every other scalar the nearest double.
template <class T, int A>
ZPTG_BODY T cos128()
{
    static_assert(A >= 0 && A <= 128, "angle outside the literal table");
    if constexpr (std::is_same_v<T, float>) {
        return kMultipliersFromTable ? kCos128Table_32f.value[A] : kCos128_32f[A];
    } else {
        return T(kMultipliersFromTable ? kCos128Table_64f.value[A] : kCos128_64f[A]);
    }
}

// Index of sin(pi A / 128) in the same table.
constexpr int sin128_index(int a) { return a < 64 ? 64 - a : a - 64; }

// z * (c + i s): four products and two sums.
template <class T>
ZPTG_BODY Cplx<T> rotate(Cplx<T> z, T c, T s)
{
    return {z.re * c - z.im * s, z.re * s + z.im * c};
}

// z * exp(i pi A / 128) with literal constants; 0 < A < 128, A != 64 (those
// angles would waste products, and no body has them).
template <int A, class T>
ZPTG_BODY Cplx<T> rotate128(Cplx<T> z)
{
    static_assert(A > 0 && A < 128 && A != 64, "trivial or out-of-range rotation");
    return rotate(z, cos128<T, A>(), cos128<T, sin128_index(A)>());
}

// z * (c + i s) with the pair read from a twiddle table (cosine first).
template <class T>
ZPTG_BODY Cplx<T> rotate_by(Cplx<T> z, const T* pair)
{
    return rotate(z, pair[0], pair[1]);
}

template <class T>
ZPTG_BODY Cplx<T> operator+(Cplx<T> a, Cplx<T> b)
{
    return {a.re + b.re, a.im + b.im};
}

template <class T>
ZPTG_BODY Cplx<T> operator-(Cplx<T> a, Cplx<T> b)
{
    return {a.re - b.re, a.im - b.im};
}

// a + i b and a - i b, two sums each.
template <class T>
ZPTG_BODY Cplx<T> add_i(Cplx<T> a, Cplx<T> b)
{
    return {a.re - b.im, a.im + b.re};
}

template <class T>
ZPTG_BODY Cplx<T> sub_i(Cplx<T> a, Cplx<T> b)
{
    return {a.re + b.im, a.im - b.re};
}

// conj(a - b), two sums and no negation.
template <class T>
ZPTG_BODY Cplx<T> conj_sub(Cplx<T> a, Cplx<T> b)
{
    return {a.re - b.re, b.im - a.im};
}

// conj(a - i b), two sums and no negation.
template <class T>
ZPTG_BODY Cplx<T> conj_sub_i(Cplx<T> a, Cplx<T> b)
{
    return {a.re + b.im, b.re - a.im};
}

// Compile-time loop: f(std::integral_constant<int, I>) for I = 0 .. N-1,
// unrolled in the caller's body.
template <int N, class F, int... I>
ZPTG_BODY void unroll_(F&& f, std::integer_sequence<int, I...>)
{
    (f(std::integral_constant<int, I>{}), ...);
}

template <int N, class F>
ZPTG_BODY void unroll(F&& f)
{
    unroll_<N>(f, std::make_integer_sequence<int, N>{});
}

}  // namespace zptg::dct4

#endif
