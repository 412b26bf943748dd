// What a transform keeps from one call to the next, and what it does to
// its arrays: dst equal to src gives the same bits as separate arrays, a
// repeated call gives the same bits (also after another input went through
// the same context), and a context whose rule has been damaged reports
// zptgStatusNotPlanned and leaves dst alone.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "dct4/compute_api.h"
#include "dct4/compute_reference.h"
#include "dct4/env.h"

namespace zptg::test {
namespace {

template <class T>
bool same_bits(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

template <class T>
void check_length(int n)
{
    SCOPED_TRACE(testing::Message() << kKindName<T> << " N = " << n);
    Dct4Plan<T> plan(n);
    ASSERT_EQ(plan.status(), zptgStatusOk);
    const std::vector<long double> x = random_values(n, 11 * n), other = random_values(n, 13 * n);
    const std::vector<T> src(x.begin(), x.end()), src2(other.begin(), other.end());
    std::vector<T> first(n), again(n), between(n), inplace(src);
    ASSERT_EQ(plan.run(src.data(), first.data()), zptgStatusOk);
    ASSERT_EQ(plan.run(inplace.data(), inplace.data()), zptgStatusOk);
    EXPECT_TRUE(same_bits(first, inplace)) << "in place differs";
    ASSERT_EQ(plan.run(src2.data(), between.data()), zptgStatusOk);
    ASSERT_EQ(plan.run(src.data(), again.data()), zptgStatusOk);
    EXPECT_TRUE(same_bits(first, again)) << "a repeated call differs";
    EXPECT_FALSE(same_bits(first, between));
}

TEST(Dct4Repeat, InPlaceAndRepeatedCallsGiveTheSameBits)
{
    for (int n = 2; n <= 65536; n *= 2) {
        check_length<float>(n);
        check_length<double>(n);
    }
}

template <class T>
void check_damaged(int n)
{
    // The context is the root record.
    typename Dct4Api<T>::Context* context = nullptr;
    ASSERT_EQ(Dct4Api<T>::init_alloc(&context, n), zptgStatusOk);
    auto* root = reinterpret_cast<env1<T>*>(context);
    const int32_t rule = root->rule;
    std::vector<T> src(n, T(1)), dst(n, T(3));
    for (int32_t bad : {0, 7, -1}) {
        root->rule = bad;
        EXPECT_EQ(Dct4Api<T>::run(src.data(), dst.data(), context), zptgStatusNotPlanned);
        for (T v : dst) ASSERT_EQ(v, T(3));
    }
    root->rule = rule;
    EXPECT_EQ(Dct4Api<T>::run(src.data(), dst.data(), context), zptgStatusOk);
    EXPECT_EQ(Dct4Api<T>::release(context), zptgStatusOk);
}

TEST(Dct4Repeat, DamagedRuleIsNotPlannedAndWritesNothing)
{
    for (int n : {2, 32, 64, 4096}) {
        check_damaged<float>(n);
        check_damaged<double>(n);
    }
}

}  // namespace
}  // namespace zptg::test
