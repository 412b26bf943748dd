// The compute functions of the environments on records filled by hand: a
// rule outside each environment's range, on either side, returns
// zptgStatusNotPlanned and touches no array.
#include <gtest/gtest.h>

#include <vector>

#include "dct4/env.h"

namespace zptg::test {
namespace {

TEST(EnvCompute, RulesOutOfRangeAreNotPlanned)
{
    std::vector<float> in(256, 1.0f), out(256, 5.0f), table(256, 0.5f);
    float* const dst = out.data();
    const float* const src = in.data();
    // Parameters that would make each loop run, were the rule valid.
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
    // Each environment's first rule above its range, then rules out of every range.
    struct Rules {
        int32_t env2, env3, env4, env6, env7;
    };
    const Rules cases[] = {{7, 8, 2, 6, 8}, {0, 0, 0, 0, 0}, {-1, -1, -1, -1, -1},
                           {1000, 1000, 1000, 1000, 1000}};
    for (const Rules& r : cases) {
        SCOPED_TRACE(testing::Message() << "env2 rule " << r.env2);
        e2.rule = r.env2;
        e3.rule = r.env3;
        e4.rule = r.env4;
        e6.rule = r.env6;
        e7.rule = r.env7;
        EXPECT_EQ(owngDCT4_32f_env2_compute(&e2, dst, src), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env3_compute(&e3, dst, src), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env4_compute(&e4, dst, src, 0, 63, 0), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env6_compute(&e6, dst, src, 0), zptgStatusNotPlanned);
        EXPECT_EQ(owngDCT4_32f_env7_compute(&e7, dst, src, 0, 15), zptgStatusNotPlanned);
        for (float v : out) ASSERT_EQ(v, 5.0f);
    }
}

}  // namespace
}  // namespace zptg::test
