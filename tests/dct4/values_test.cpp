// The value functions of planning: envlambda's row positions and the
// twiddles envfCompose gives for env2's table, against long double values.
#include <gtest/gtest.h>

#include <cmath>

#include "dct4/env.h"

namespace zptg {
namespace {

constexpr long double kPiL = 3.141592653589793238462643383279502884L;

TEST(EnvLambda, RowPositionsOfAnInnerSplit)
{
    envlambda<float> e{};
    owngDCT4_32f_envlambda___init__(&e, nullptr, 128, 8);
    EXPECT_EQ(e.base.ownSize, static_cast<int32_t>(sizeof e));
    EXPECT_EQ(e.at(&e, 0, 0), 1.0 / 32);
    EXPECT_EQ(e.at(&e, 1, 0), 3.0 / 32);
    EXPECT_EQ(e.at(&e, 7, 99), 15.0 / 32);
    envlambda<double> g{};
    owngDCT4_64f_envlambda___init__(&g, nullptr, 256, 16);
    EXPECT_EQ(g.at(&g, 5, 0), 11.0 / 32);
}

TEST(EnvLambda, InnerQuotientTruncates)
{
    envlambda<double> e{};
    owngDCT4_64f_envlambda___init__(&e, nullptr, 100, 8);  // 100/8 is 12
    // 0.5 / 12 is inexact: the x87 unit may hand it back in wider precision.
    EXPECT_DOUBLE_EQ(e.at(&e, 0, 0), 0.5 / 12);
}

// at(row, col) for a root of length n split by d, against the closed form.
template <class T, class Init>
void expect_compose(Init init, int32_t n, int32_t d, double tol)
{
    envfCompose<T> e{};
    init(&e, nullptr, 2 * d, 8 * n, n / (2 * d), d, 2 * d);
    for (int32_t row = 0; row < n / (2 * d); ++row) {
        for (int32_t col = 0; col < 2 * d; ++col) {
            const long double frac = col % 2 == 0 ? (2.0L * row + 1) * (col + 1) / (4.0L * n)
                                                  : (2.0L * row + 1) * col / (4.0L * n);
            const long double want = col % 2 == 0 ? std::cos(kPiL * frac) : std::sin(kPiL * frac);
            EXPECT_NEAR(static_cast<double>(e.at(&e, row, col)), static_cast<double>(want), tol)
                << "n " << n << " row " << row << " col " << col;
        }
    }
}

TEST(EnvFCompose, TwiddlesOfTheRowStage)
{
    for (int32_t n : {9, 17, 64, 65, 256, 1024}) {
        const int32_t d = n <= 17 ? 2 : n <= 33 ? 4 : n <= 129 ? 8 : n <= 513 ? 16 : 32;
        expect_compose<float>(owngDCT4_32f_envfCompose___init__, n, d, 3e-7);
        expect_compose<double>(owngDCT4_64f_envfCompose___init__, n, d, 4e-16);
    }
}

TEST(EnvFCompose, FirstEntriesOfLength64And9)
{
    envfCompose<double> e{};
    owngDCT4_64f_envfCompose___init__(&e, nullptr, 16, 512, 4, 8, 16);
    EXPECT_EQ(e.at(&e, 0, 0), std::cos(3.141592653589793 * (1.0 / 256)));
    EXPECT_EQ(e.at(&e, 0, 1), std::sin(3.141592653589793 * (1.0 / 256)));
    EXPECT_EQ(e.at(&e, 0, 14), std::cos(3.141592653589793 * (15.0 / 256)));
    EXPECT_EQ(e.at(&e, 0, 15), std::sin(3.141592653589793 * (15.0 / 256)));
    envfCompose<float> f{};
    owngDCT4_32f_envfCompose___init__(&f, nullptr, 4, 72, 2, 2, 4);
    EXPECT_EQ(f.base.ownSize, static_cast<int32_t>(sizeof f));
    EXPECT_EQ(f.at(&f, 0, 0), std::cos(static_cast<float>(3.141592653589793 * static_cast<float>(1.0 / 36))));
}

}  // namespace
}  // namespace zptg
