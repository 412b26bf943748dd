// The four members of the complex DFT family (forward and inverse, 32fc and
// 64fc) as tables of function pointers: the kernel of every length and the
// dispatcher, each with its exported name, taken from the public header's
// family list so that no name is written out by hand.
#ifndef ZPTG_TESTS_DFT_COMPLEX_COMPLEX_MEMBERS_H
#define ZPTG_TESTS_DFT_COMPLEX_COMPLEX_MEMBERS_H

#include <initializer_list>

#include "zptgenpx.h"

namespace zptg::test {

enum class Dir { Forward, Inverse };

inline const char* dir_name(Dir d) { return d == Dir::Forward ? "forward" : "inverse"; }

constexpr int kMinLength = 2;
constexpr int kMaxLength = 64;

template <class E>
using Kernel = zptgStatus (*)(const E* src, E* dst, int flag);
template <class E>
using Dispatcher = zptgStatus (*)(const E* src, E* dst, int len, int flag);

template <class E>
struct Member {
    Dir dir = Dir::Forward;
    Kernel<E> kernel[kMaxLength + 1] = {};  // indexed by the length
    const char* kernel_name[kMaxLength + 1] = {};
    Dispatcher<E> dispatcher = nullptr;
    const char* dispatcher_name = nullptr;
};

template <class E>
const Member<E>& member(Dir d);

// Calls f(member) for the four members: 32fc forward and inverse, then 64fc.
template <class F>
void for_each_member(F&& f)
{
    for (Dir d : {Dir::Forward, Dir::Inverse}) f(member<zptg32fc>(d));
    for (Dir d : {Dir::Forward, Dir::Inverse}) f(member<zptg64fc>(d));
}

}  // namespace zptg::test

#endif
