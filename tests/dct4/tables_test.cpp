// The twiddle tables that planning fills: env2's rows (columns from both ends
// inwards, and the special group order of d = 32) and env6's tables by rule,
// with the two parts of d2 = 32 in opposite order for the two kinds. Every
// entry is compared with the cosine or sine of its angle in long double.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "dct4/env.h"
#include "dct4/kind_api.h"
#include "zptgenpx.h"

namespace zptg {
namespace {

constexpr long double kPiL = 3.141592653589793238462643383279502884L;

// The bound for one entry: the argument is rounded to the element width and
// pi times it rounded again before the library function, so the error grows
// with the angle.
template <class T>
double tolerance(long double angle)
{
    const double eps = sizeof(T) == 4 ? 0x1p-24 : 0x1p-53;
    return (std::fabs(static_cast<double>(angle)) + 2.0) * eps;
}

// An angle pi * num / den as the pair the table should hold.
struct Angle {
    long double num;
    long double den;
};

template <class T>
void expect_pairs(const T* table, const std::vector<Angle>& angles, const char* what)
{
    for (size_t p = 0; p < angles.size(); ++p) {
        const long double x = kPiL * angles[p].num / angles[p].den;
        EXPECT_NEAR(table[2 * p], static_cast<double>(std::cos(x)), tolerance<T>(x))
            << what << " pair " << p << " cos of pi*" << static_cast<double>(angles[p].num) << "/"
            << static_cast<double>(angles[p].den);
        EXPECT_NEAR(table[2 * p + 1], static_cast<double>(std::sin(x)), tolerance<T>(x))
            << what << " pair " << p << " sin";
    }
}

using zptg_test::Api;

template <class T>
struct Plan {
    explicit Plan(int n)
    {
        int size = 0;
        EXPECT_EQ(Api<T>::size(n, &size), zptgStatusOk);
        block.resize(static_cast<size_t>(size));
        typename Api<T>::Context* c = nullptr;
        EXPECT_EQ(Api<T>::init(&c, n, block.data()), zptgStatusOk);
        root = reinterpret_cast<env1<T>*>(c);
    }
    env2<T>* rows() { return static_cast<env2<T>*>(EnvList_get(root->postList, 0)); }
    env4<T>* inner()
    {
        auto* e3 = static_cast<env3<T>*>(EnvList_get(root->preList, 0));
        return static_cast<env4<T>*>(EnvList_get(e3->childList, 0));
    }
    env6<T>* inner_rows() { return static_cast<env6<T>*>(EnvList_get(inner()->postList, 0)); }
    std::vector<unsigned char> block;
    env1<T>* root = nullptr;
};

// ---- env2 -------------------------------------------------------------------

// Row k of env2's table for length n and factor d: pairs of class i of
// pi (2k+1)(2i+1) / 4n, classes ordered 0, d-1, 1, d-2, ...; under d = 32 the
// groups (i, d-1-i) come with i = j/2 for j = 2a + 8b + 32c, c fastest.
std::vector<Angle> env2_angles(int n, int d)
{
    std::vector<int> first_classes;
    if (d == 32) {
        for (int a = 0; a < 2; ++a)
            for (int b = 0; b < 4; ++b)
                for (int c = 0; c < 2; ++c) first_classes.push_back((2 * a + 8 * b + 32 * c) / 2);
    } else {
        for (int i = 0; i < (d + 1) / 2; ++i) first_classes.push_back(i);
    }
    std::vector<Angle> out;
    for (int k = 0; k < n / (2 * d); ++k) {
        for (int i : first_classes) {
            out.push_back({static_cast<long double>((2 * k + 1) * (2 * i + 1)), 4.0L * n});
            if (d > 1) {
                const int j = d - 1 - i;
                out.push_back({static_cast<long double>((2 * k + 1) * (2 * j + 1)), 4.0L * n});
            }
        }
    }
    return out;
}

template <class T>
void expect_env2_table(int n, int d)
{
    Plan<T> plan(n);
    env2<T>* e = plan.rows();
    ASSERT_EQ(e->factor, d);
    expect_pairs(e->table, env2_angles(n, d), "env2");
}

TEST(DCT4Tables, Env2RowsByFactor)
{
    const int cases[][2] = {{9, 2}, {17, 2}, {33, 4}, {64, 8}, {128, 8}, {256, 16},
                            {513, 16}, {1024, 32}, {2049, 32}};
    for (const auto& [n, d] : cases) {
        SCOPED_TRACE(testing::Message() << "N " << n);
        expect_env2_table<float>(n, d);
        expect_env2_table<double>(n, d);
    }
}

// ---- env6 -------------------------------------------------------------------

// env6's pairs as angles pi a / n. b(k, s) = 2k+1 + 2 n2 s.
std::vector<Angle> env6_angles(int n, int d2, bool fine_first)
{
    const int n2 = n / d2, rows = n / (2 * d2);
    std::vector<Angle> out;
    auto add = [&](long double a) { out.push_back({a, static_cast<long double>(n)}); };
    auto coarse = [&](int count, int step) {
        for (int k = 0; k < rows; ++k)
            for (int t = 1; t <= count; ++t) add(static_cast<long double>(step * (2 * k + 1) * t));
    };
    auto fine = [&](int blocks) {
        for (int k = 0; k < rows; ++k)
            for (int s = 0; s < blocks; ++s) {
                const long double b = 2 * k + 1 + 2.0L * n2 * s;
                add(b);
                add(2 * b);
                add(3 * b);
            }
    };
    switch (d2) {
    case 8: coarse(7, 1); break;
    case 16:
        coarse(3, 4);
        fine(4);
        break;
    default:
        if (fine_first) {
            fine(8);
            coarse(7, 4);
        } else {
            coarse(7, 4);
            fine(8);
        }
    }
    return out;
}

template <class T>
void expect_env6_table(int n, int n4, int d2)
{
    Plan<T> plan(n);
    env6<T>* e = plan.inner_rows();
    ASSERT_EQ(e->length, n4);
    ASSERT_EQ(e->factor, d2);
    expect_pairs(e->table, env6_angles(n4, d2, sizeof(T) == 4), "env6");
}

// Rules 3, 4 and 5: d2 = 8, 16, 32.
TEST(DCT4Tables, Env6ByRule)
{
    const int cases[][3] = {{4096, 128, 8}, {8192, 256, 16}, {32768, 1024, 32}};
    for (const auto& [n, n4, d2] : cases) {
        SCOPED_TRACE(testing::Message() << "N " << n);
        expect_env6_table<float>(n, n4, d2);
        expect_env6_table<double>(n, n4, d2);
    }
}

}  // namespace
}  // namespace zptg
