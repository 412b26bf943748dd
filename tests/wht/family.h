// The Walsh-Hadamard family as the tests see it: per element type the named
// kernels by order, the dispatcher and the buffer-size query, taken from
// the public header's family list so that no entry can be forgotten.
#ifndef ZPTG_TESTS_WHT_FAMILY_H
#define ZPTG_TESTS_WHT_FAMILY_H

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "zptgenpx.h"

namespace zptg::test::wht {

constexpr int kMinOrder = 1;
constexpr int kMaxOrder = 13;
constexpr int kLastDirectOrder = 7;

template <class T>
using DirectKernel = zptgStatus (*)(const T*, T*, int);
template <class T>
using BlockedKernel = zptgStatus (*)(const T*, T*, int, T*);
template <class T>
using Dispatcher = zptgStatus (*)(const T*, T*, int, int, T*);
using BufferSizeQuery = zptgStatus (*)(int, int*);

#define ZPTG_TEST_WHT_ENTRY_(kind, type, order) &zptgWHT_##order##_##kind,
#define ZPTG_TEST_WHT_FAMILY_(kind, type)                                               \
    static constexpr const char* name = #kind;                                          \
    static constexpr DirectKernel<type> direct[] = {                                    \
        ZPTG_WHT_DIRECT_ORDERS(ZPTG_TEST_WHT_ENTRY_, kind, type)};                      \
    static constexpr BlockedKernel<type> blocked[] = {                                  \
        ZPTG_WHT_BLOCKED_ORDERS(ZPTG_TEST_WHT_ENTRY_, kind, type)};                     \
    static constexpr Dispatcher<type> dispatch = &zptgWHT_##kind;                       \
    static constexpr BufferSizeQuery buffer_size = &zptgWHTGetBufferSize_##kind;

template <class T>
struct Family;
template <>
struct Family<float> {
    ZPTG_TEST_WHT_FAMILY_(32f, zptg32f)
};
template <>
struct Family<double> {
    ZPTG_TEST_WHT_FAMILY_(64f, zptg64f)
};

static_assert(std::size(Family<float>::direct) == kLastDirectOrder);
static_assert(std::size(Family<double>::blocked) == kMaxOrder - kLastDirectOrder);

// The named kernel of an order; the direct orders have no buffer argument.
template <class T>
zptgStatus run_kernel(int order, const T* src, T* dst, int flag, T* buffer)
{
    if (order <= kLastDirectOrder) return Family<T>::direct[order - 1](src, dst, flag);
    return Family<T>::blocked[order - kLastDirectOrder - 1](src, dst, flag, buffer);
}

constexpr int length_of(int order) { return 1 << order; }

// Scratch bytes as the family's query reports them (asserted to succeed).
template <class T>
int buffer_bytes(int order)
{
    int size = -1;
    EXPECT_EQ(Family<T>::buffer_size(order, &size), zptgStatusOk) << "order " << order;
    return size;
}

struct KindName {
    template <class T>
    static std::string GetName(int) { return Family<T>::name; }
};
using Kinds = ::testing::Types<float, double>;

}  // namespace zptg::test::wht

#endif
