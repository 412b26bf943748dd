// What the family computes: every order, kind and flag against the exact
// transform; the scale constants, bit for bit; on a build whose sums are
// rounded to the element width, bit-for-bit agreement with the plain
// network in ascending stage order; dst == src.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <vector>

#include "wht/constants.h"
#include "wht/family.h"
#include "wht/reference.h"
#include "wht/run.h"

namespace zptg::test::wht {
namespace {

// The reference itself: the exact long double network equals the
// defining sum with signs (-1)^popcount(i & j), natural order.
TEST(WhtReference, ExactNetworkEqualsDefiningSum)
{
    for (int order = 1; order <= 9; ++order) {
        const Exact x = widen(dyadic_input<double>(order, 100u + order));
        EXPECT_EQ(exact_transform(x), defining_sum(x)) << "order " << order;
    }
}

template <class T>
class WhtTransform : public ::testing::Test {};
TYPED_TEST_SUITE(WhtTransform, Kinds, KindName);

// The transform has no direction: flags 1 and 2 give the same bits.
TYPED_TEST(WhtTransform, EveryOrderAndFlagIsTheExactTransformUpToRounding)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        const std::vector<T> x = dyadic_input<T>(order, 7u * order);
        const Exact exact = exact_transform(widen(x));
        const long double sum_abs = sum_of_magnitudes(widen(x));
        std::vector<T> by_n;
        for (const int flag : kValidFlags) {
            SCOPED_TRACE(::testing::Message() << "order " << order << ", flag " << flag);
            const Outcome<T> r = run(order, x, flag);
            ASSERT_EQ(r.status, zptgStatusOk);
            EXPECT_TRUE(same_bits(r.src_after, x)) << "src was changed";
            const long double s = exact_factor(order, flag);
            const long double bound = error_bound<T>(order, sum_abs, s);
            int failures = 0;
            for (std::size_t i = 0; i < x.size() && failures < 5; ++i) {
                const long double error = std::fabs(r.dst[i] - exact[i] * s);
                if (!(error <= bound)) {
                    ++failures;
                    ADD_FAILURE() << "dst[" << i << "] = " << r.dst[i] << ", exact "
                                  << exact[i] * s << ", error " << error << " > " << bound;
                }
            }
            if (flag == zptgScaleFwdByN) by_n = r.dst;
            if (flag == zptgScaleInvByN) {
                EXPECT_TRUE(same_bits(r.dst, by_n)) << "flag 2 is not flag 1";
            }
        }
    }
}

// A unit impulse at index 0 comes out as the factor itself in every output,
// which shows each constant exactly.
TYPED_TEST(WhtTransform, ImpulseShowsTheScaleConstantsBitForBit)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        std::vector<T> x(length_of(order), T(0));
        x[0] = T(1);
        for (const int flag : kValidFlags) {
            SCOPED_TRACE(::testing::Message() << "order " << order << ", flag " << flag);
            const Outcome<T> r = run(order, x, flag);
            ASSERT_EQ(r.status, zptgStatusOk);
            const std::vector<T> expected(x.size(), expected_factor<T>(order, flag));
            EXPECT_TRUE(same_bits(r.dst, expected))
                << "dst[0] = " << r.dst[0] << ", expected " << expected[0];
        }
    }
}

// All reads come before the first store: the transform in place equals the
// one into another array, with a caller's buffer and with none.
TYPED_TEST(WhtTransform, InPlaceEqualsSeparateArrays)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        const std::vector<T> x = dyadic_input<T>(order, 17u * order);
        for (const Scratch scratch : {Scratch::Given, Scratch::Null}) {
            const Outcome<T> apart = run(order, x, zptgScaleBySqrtN, scratch, Target::Separate);
            const Outcome<T> in_place = run(order, x, zptgScaleBySqrtN, scratch, Target::InPlace);
            ASSERT_EQ(in_place.status, zptgStatusOk);
            EXPECT_TRUE(same_bits(apart.dst, in_place.dst))
                << "order " << order << (scratch == Scratch::Null ? ", null buffer" : "");
        }
    }
}

#if FLT_EVAL_METHOD == 0
// Where every sum is rounded to the element width, the result is fixed to
// the last bit by the network: stages in ascending distance, the lower
// index as minuend, one product by the factor at the end.
TYPED_TEST(WhtTransform, EqualsThePlainNetworkBitForBit)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        const std::vector<T> x = dyadic_input<T>(order, 19u * order);
        for (const int flag : kValidFlags) {
            const std::vector<T> expected = plain_network(x, expected_factor<T>(order, flag));
            EXPECT_TRUE(same_bits(run(order, x, flag).dst, expected))
                << "order " << order << ", flag " << flag;
        }
    }
}
#endif

}  // namespace
}  // namespace zptg::test::wht
