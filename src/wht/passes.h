// How the blocked orders 8 to 13 split their bits over passes, and the
// passes themselves. Each pass is a rolled loop around one straight-line
// network; the passes take the low bits of the index first, so the stages
// across passes run in the same ascending order as in a single network.
//
//   order  pass 1               pass 2                 pass 3
//     8    16 x WHT-16, stride 1  16 x WHT-16, stride 16
//     9    32 x WHT-16, stride 1  16 x WHT-32, stride 16
//    10    64 x WHT-16, stride 1  16 x WHT-64, stride 16
//    11    32 x WHT-64, stride 1  64 x WHT-32, stride 64
//    12    per group of 256: 16 x WHT-16, stride 1, then 16 x WHT-16, stride 16;
//          then 256 x WHT-16, stride 256
//    13    per group of 1024: 64 x WHT-16, stride 1, then 16 x WHT-64, stride 16;
//          then 1024 x WHT-8, stride 1024
//
// Two-pass orders go src -> main -> dst. Three-pass orders run their first
// two passes a group at a time, src -> tail -> main, and the last pass
// main -> dst. Only the last pass scales; src is read only by the first pass
// and dst written only by the last, so dst may be src.
#ifndef ZPTG_WHT_PASSES_H
#define ZPTG_WHT_PASSES_H

#include "wht/network.h"
#include "wht/scale.h"

namespace zptg::wht {

// Points of the network of each pass; last == 0 for the two-pass orders.
struct Split {
    int first;
    int second;
    int last;
};

constexpr Split split(int order)
{
    switch (order) {
    case 8: return {16, 16, 0};
    case 9: return {16, 32, 0};
    case 10: return {16, 64, 0};
    case 11: return {64, 32, 0};
    case 12: return {16, 16, 16};
    case 13: return {16, 64, 8};
    default: return {0, 0, 0};
    }
}

constexpr int kFirstBlockedOrder = 8;

// Scratch elements of an order: main (N elements) and, for the three-pass
// orders, tail (one group of the first two passes).
constexpr int scratch_elements(int order)
{
    if (order < kFirstBlockedOrder || order > kMaxOrder) return 0;
    const Split s = split(order);
    const int tail = s.last != 0 ? s.first * s.second : 0;
    return (1 << order) + tail;
}

template <int Order>
constexpr bool split_covers_order()
{
    constexpr Split s = split(Order);
    constexpr int points = s.first * s.second * (s.last != 0 ? s.last : 1);
    return points == (1 << Order);
}

// src -> main -> dst, with P1 * P2 = N.
template <int P1, int P2, class T>
[[gnu::always_inline]] inline void two_passes(const T* src, T* dst, T* main, T factor)
{
    constexpr int n = P1 * P2;
    for (int b = 0; b < n / P1; ++b) network<P1, 1>(src + b * P1, main + b * P1, Plain{});
    for (int c = 0; c < P1; ++c) network<P2, P1>(main + c, dst + c, Scaled<T>{factor});
}

// Groups of G = P1 * P2 points through tail into main, then WHT-P3 across
// the groups from main to dst.
template <int P1, int P2, int P3, class T>
[[gnu::always_inline]] inline void three_passes(const T* src, T* dst, T* main, T* tail,
                                                T factor)
{
    constexpr int group = P1 * P2;
    constexpr int n = group * P3;
    for (int g = 0; g < n / group; ++g) {
        const T* in = src + g * group;
        T* out = main + g * group;
        for (int b = 0; b < P2; ++b) network<P1, 1>(in + b * P1, tail + b * P1, Plain{});
        for (int c = 0; c < P1; ++c) network<P2, P1>(tail + c, out + c, Plain{});
    }
    for (int c = 0; c < group; ++c) network<P3, group>(main + c, dst + c, Scaled<T>{factor});
}

// The whole transform of a blocked order; scratch holds scratch_elements(Order).
template <int Order, class T>
[[gnu::always_inline]] inline void blocked_passes(const T* src, T* dst, T* scratch, T factor)
{
    static_assert(Order >= kFirstBlockedOrder && Order <= kMaxOrder);
    static_assert(split_covers_order<Order>());
    constexpr Split s = split(Order);
    if constexpr (s.last == 0) {
        two_passes<s.first, s.second>(src, dst, scratch, factor);
    } else {
        three_passes<s.first, s.second, s.last>(src, dst, scratch, scratch + (1 << Order),
                                                factor);
    }
}

}  // namespace zptg::wht

#endif
