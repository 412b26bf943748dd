// The root's row stage takes long column lengths in blocks of rows, through
// a buffer. Whatever the path, each element must get the bits that the rows
// give one at a time, in ascending order: checked here against the same
// record run row by row (a one-row record never takes the blocked path), for
// N = K and for N = K + 1, whose rows overlap in a few elements.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "dct4/env.h"

namespace zptg::test {
namespace {

template <class T>
zptgStatus run_env2(env2<T>* e, T* dst, const T* in)
{
    if constexpr (sizeof(T) == 4) {
        return owngDCT4_32f_env2_compute(e, dst, in);
    } else {
        return owngDCT4_64f_env2_compute(e, dst, in);
    }
}

template <class T>
void check_rows(int32_t m, int32_t extra)
{
    constexpr int32_t d = 32;
    const int32_t rows = m / 2;
    const int32_t n = d * m + extra;
    std::mt19937 gen(static_cast<uint32_t>(m + extra));
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<T> in(size_t(rows) * 2 * d), table(size_t(rows) * 2 * d);
    for (T& x : in) x = T(u(gen));
    for (T& x : table) x = T(u(gen));

    env2<T> e{};
    e.rule = 6;
    e.factor = d;
    e.rowLength = 2 * d;
    e.rows = rows;
    e.inner = m;
    e.reflectBase = 2 * n - 1;
    e.table = table.data();
    // Elements 0 .. N, and one guard value on either side.
    std::vector<T> whole(size_t(n) + 3, T(7)), by_row(size_t(n) + 3, T(7));
    ASSERT_EQ(run_env2(&e, whole.data() + 1, in.data()), zptgStatusOk);

    for (int32_t k = 0; k < rows; ++k) {
        env2<T> one = e;
        one.rows = 1;
        one.table = table.data() + 2 * d * k;
        one.reflectBase = e.reflectBase - 2 * k;
        ASSERT_EQ(run_env2(&one, by_row.data() + 1 + k, in.data() + 2 * d * k), zptgStatusOk);
    }
    EXPECT_EQ(std::memcmp(whole.data(), by_row.data(), sizeof(T) * whole.size()), 0)
        << "m = " << m << ", N = " << n;
}

TEST(RootRows, BlockedRowsGiveTheBitsOfRowsOneAtATime)
{
    for (int32_t m : {256, 512, 4096, 16384, 32768}) {
        for (int32_t extra : {0, 1}) {
            check_rows<float>(m, extra);
            check_rows<double>(m, extra);
        }
    }
}

}  // namespace
}  // namespace zptg::test
