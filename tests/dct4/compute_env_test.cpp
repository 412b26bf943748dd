// The compute functions of the environments on records filled by hand:
// each rule outside its range returns zptgStatusNotPlanned and touches no
// array, a loop count of zero does nothing, and the two element kinds read
// the two sections of the 32-column inner table in their own order.
#include <gtest/gtest.h>

#include <vector>

#include "dct4/compute_reference.h"
#include "dct4/env.h"

namespace zptg::test {
namespace {

template <class T>
bool all_equal(const std::vector<T>& v, T value)
{
    for (T x : v) {
        if (x != value) return false;
    }
    return true;
}

TEST(EnvCompute, RulesOutOfRangeAreNotPlanned)
{
    std::vector<float> in(256, 1.0f), out(256, 5.0f), table(256, 0.5f);
    env2<float> e2{};
    e2.table = table.data();
    e2.rows = 4;
    e2.inner = 8;
    e2.factor = 8;
    e2.reflectBase = 127;
    env3<float> e3{};
    e3.inner = 8;
    e3.count = 8;
    e3.stride = 16;
    e3.outerCount = 8;
    e3.reflectBase = 127;
    env4<float> e4{};
    env6<float> e6{};
    e6.table = table.data();
    e6.rows = 2;
    e6.inner = 4;
    e6.outerCount = 2;
    env7<float> e7{};
    e7.inner = 8;
    e7.count = 2;
    e7.stride = 1;
    e7.innerStride = 2;
    e7.outerCount = 2;
    for (int32_t rule : {0, -1, 8, 1000}) {
        e2.rule = e3.rule = e4.rule = e6.rule = e7.rule = rule;
        EXPECT_EQ(owngDCT4_32f_env3_compute(&e3, out.data(), in.data()), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env2_compute(&e2, out.data(), in.data()), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env4_compute(&e4, out.data(), in.data(), 0, 63, 0),
                  zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env6_compute(&e6, out.data(), in.data(), 0), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env7_compute(&e7, out.data(), in.data(), 0, 15),
                  zptgStatusNotPlanned);
        EXPECT_TRUE(all_equal(out, 5.0f)) << "rule " << rule;
    }
    // Just above each range.
    e2.rule = 7;
    e6.rule = 6;
    e4.rule = 2;
    EXPECT_EQ(owngDCT4_32f_env2_compute(&e2, out.data(), in.data()), zptgStatusNotPlanned);
    EXPECT_EQ(owngDCT4_32f_env6_compute(&e6, out.data(), in.data(), 0), zptgStatusNotPlanned);
    EXPECT_EQ(owngDCT4_32f_env4_compute(&e4, out.data(), in.data(), 0, 63, 0),
              zptgStatusNotPlanned);
    EXPECT_TRUE(all_equal(out, 5.0f));
}

TEST(EnvCompute, ZeroCountsDoNothing)
{
    std::vector<double> in(128, 1.0), out(128, 5.0), table(128, 0.5);
    for (int32_t rule = 1; rule <= 6; ++rule) {
        env3<double> e3{};
        e3.rule = rule;
        e3.stride = 4;
        e3.outerCount = 2;
        e3.reflectBase = 63;
        e3.count = 0;
        EXPECT_EQ(owngDCT4_64f_env3_compute(&e3, out.data(), in.data()), zptgStatusOk);
        env2<double> e2{};
        e2.rule = rule;
        e2.table = table.data();
        e2.rows = -3;
        e2.factor = 1 << (rule - 1);
        e2.inner = 2;
        e2.reflectBase = 127;
        EXPECT_EQ(owngDCT4_64f_env2_compute(&e2, out.data(), in.data()), zptgStatusOk);
    }
    for (int32_t rule = 1; rule <= 5; ++rule) {
        env6<double> e6{};
        e6.rule = rule;
        e6.table = table.data();
        e6.rows = 0;
        e6.inner = 2;
        e6.outerCount = 2;
        EXPECT_EQ(owngDCT4_64f_env6_compute(&e6, out.data(), in.data(), 0), zptgStatusOk);
    }
    EXPECT_TRUE(all_equal(out, 5.0));
}

// One row (k = 0) of a 32-column inner split of length n = 64 (n2 = 2),
// with its table laid out as the kind's planning lays it out.
template <class T>
void rule5_row(bool triples_first)
{
    constexpr int64_t n = 64, n2 = 2, odd = 1;
    std::vector<T> triples, pairs;
    auto push = [](std::vector<T>& t, int64_t num) {
        t.push_back(T(cos_pi(num, n)));
        t.push_back(T(sin_pi(num, n)));
    };
    for (int s = 0; s < 8; ++s) {
        for (int c = 1; c <= 3; ++c) push(triples, (odd + 2 * n2 * s) * c);
    }
    for (int t = 1; t <= 7; ++t) push(pairs, 4 * odd * t);
    std::vector<T> table = triples_first ? triples : pairs;
    const std::vector<T>& second = triples_first ? pairs : triples;
    table.insert(table.end(), second.begin(), second.end());

    const std::vector<long double> data = random_values(64, 21);
    std::vector<T> in(data.begin(), data.end()), out(64, T(0));
    env6<T> e6{};
    e6.rule = 5;
    e6.table = table.data();
    e6.rows = 1;
    e6.inner = n2;
    e6.outerCount = 1;
    e6.lastIndex = n - 1;
    if constexpr (sizeof(T) == 4) {
        EXPECT_EQ(owngDCT4_32f_env6_compute(&e6, out.data(), in.data(), 0), zptgStatusOk);
    } else {
        EXPECT_EQ(owngDCT4_64f_env6_compute(&e6, out.data(), in.data(), 0), zptgStatusOk);
    }

    // Row k = 0: V(s) = sum_t F_t exp(i pi t / n) exp(2 pi i s t / 32); V(s)
    // is stored at row n2 s, conj V(32 - s) at row n2 s - 1.
    std::vector<cld> twisted(32);
    for (int t = 0; t < 32; ++t) twisted[t] = cld(data[t], data[32 + t]) * exp_i_pi(t * odd, n);
    const std::vector<cld> v = dft_plus(twisted);
    for (int s = 0; s < 16; ++s) {
        EXPECT_NEAR(out[2 * n2 * s], double(v[s].real()), 1e-5) << s;
        EXPECT_NEAR(out[2 * n2 * s + 1], double(v[s].imag()), 1e-5) << s;
    }
    for (int s = 1; s <= 16; ++s) {
        EXPECT_NEAR(out[2 * (n2 * s - 1)], double(v[32 - s].real()), 1e-5) << s;
        EXPECT_NEAR(out[2 * (n2 * s - 1) + 1], -double(v[32 - s].imag()), 1e-5) << s;
    }
}

TEST(EnvCompute, ThirtyTwoColumnTableSectionsByKind)
{
    rule5_row<float>(true);    // 32f: the eight triples of a row come first
    rule5_row<double>(false);  // 64f: the seven pairs come first
}

}  // namespace
}  // namespace zptg::test
