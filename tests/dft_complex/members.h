// The four members of the complex DFT family (forward and inverse, 32fc and
// 64fc) as tables of the kernel of every length and the dispatcher, taken
// from the public header's family list, and the inputs the tests feed them.
#ifndef ZPTG_TESTS_DFT_COMPLEX_MEMBERS_H
#define ZPTG_TESTS_DFT_COMPLEX_MEMBERS_H

#include <array>
#include <cstring>
#include <type_traits>
#include <vector>

#include "support/reference.h"
#include "support/scale.h"
#include "zptgenpx.h"

namespace zptg::test {

constexpr int kMinLength = 2;
constexpr int kMaxLength = 64;

template <class E>
struct Member {
    Direction dir = Direction::Forward;
    zptgStatus (*kernel[kMaxLength + 1])(const E*, E*, int) = {};  // by length
    const char* name[kMaxLength + 1] = {};
    zptgStatus (*dispatcher)(const E*, E*, int, int) = nullptr;
};

template <class E>
const Member<E>& member(Direction d)
{
    static const std::array<Member<E>, 2> members = [] {
        std::array<Member<E>, 2> m{};
        m[1].dir = Direction::Inverse;
        auto of = [&m](const char* stem) -> Member<E>& { return m[stem[7] == 'I']; };  // zptgDFTInv
#define ZPTG_TEST_K_(stem, kind, type, N)                                   \
    if constexpr (std::is_same_v<type, E>) {                               \
        of(#stem).kernel[N] = &stem##_##N##_##kind;                        \
        of(#stem).name[N] = #stem "_" #N "_" #kind;                        \
    }
#define ZPTG_TEST_D_(stem, kind, type) \
    if constexpr (std::is_same_v<type, E>) of(#stem).dispatcher = &stem##_##kind;
        ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_TEST_K_, ZPTG_TEST_D_)
#undef ZPTG_TEST_K_
#undef ZPTG_TEST_D_
        return m;
    }();
    return members[d == Direction::Inverse];
}

template <class F>  // f(member) for 32fc forward and inverse, then 64fc
void for_each_member(F&& f)
{
    for (Direction d : {Direction::Forward, Direction::Inverse}) f(member<zptg32fc>(d));
    for (Direction d : {Direction::Forward, Direction::Inverse}) f(member<zptg64fc>(d));
}

template <class E>
std::vector<E> complex_input(int n, uint32_t seed)
{
    const Reals v = random_values(2 * n, seed);
    std::vector<E> x(n);
    for (int k = 0; k < n; ++k) x[k] = {decltype(E::re)(v[2 * k]), decltype(E::re)(v[2 * k + 1])};
    return x;
}

template <class E>
std::vector<E> filled(int n, unsigned char byte)
{
    std::vector<E> v(n);
    std::memset(static_cast<void*>(v.data()), byte, v.size() * sizeof(E));
    return v;
}

}  // namespace zptg::test

#endif
