// The order and shape of every body, on its Symbol tape: each input slot is
// read exactly once and all reads come before any arithmetic and before the
// first store; each output slot is stored exactly once, with the product of
// the scale and a computed value, and that product is the last operation on
// the value; only sums, differences and products of a constant with a value
// occur, each constant is a positive magnitude held once, and no value is
// computed for nothing. The body has no way to read its output: the store
// is all it can do with it.
#include <gtest/gtest.h>

#include <bitset>
#include <initializer_list>
#include <string>

#include "dft_complex/tape_analysis.h"

namespace zptg::test {
namespace {

template <class F>
void for_each_body(F&& check)
{
    for (int n = kMinLength; n <= kMaxLength; ++n)
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            SCOPED_TRACE("length " + std::to_string(n) + " " + dir_name(d));
            const Tape tape = record(n, d);
            check(n, d, tape, summarize(tape, n));
        }
}

// Only sums, differences and products of a constant with a data value; every
// store takes a scale product, and that product has no other use; every
// constant positive and held once; nothing computed for nothing.
TEST(ComplexBody, EveryStepKeepsTheBodyContract)
{
    for_each_body([](int, Dir, const Tape&, const TapeSummary& s) {
        for (const std::string& f : s.faults) ADD_FAILURE() << f;
        EXPECT_EQ(s.constants_held, int(s.constants.size())) << "a constant held more than once";
    });
}

TEST(ComplexBody, ReadsEveryInputOnceBeforeTheFirstStore)
{
    for_each_body([](int n, Dir, const Tape&, const TapeSummary& s) {
        for (int slot = 0; slot < 2 * n; ++slot)
            EXPECT_EQ(s.reads[slot], 1) << "input slot " << slot << " read " << s.reads[slot] << " times";
        ASSERT_GE(s.first_store, 0) << "no store";
        EXPECT_LT(s.last_read, s.first_store) << "a read after the first store";
    });
}

TEST(ComplexBody, StoresEveryOutputOnceAsItsScaleProduct)
{
    for_each_body([](int n, Dir, const Tape&, const TapeSummary& s) {
        for (int slot = 0; slot < 2 * n; ++slot)
            EXPECT_EQ(s.stores[slot], 1) << "output slot " << slot << " stored " << s.stores[slot] << " times";
        EXPECT_EQ(s.scale_products, 2 * n) << "products with the scale";
    });
}

// Does some value of the body equal the plain sum of the real parts of
// these elements?
bool has_real_sum(const Tape& tape, std::initializer_list<int> elements)
{
    std::bitset<128> wanted;
    for (int e : elements) wanted.set(size_t(2 * e));
    for (const std::bitset<128>& s : plain_sums(tape))
        if (s == wanted) return true;
    return false;
}

// The input maps, seen in the first stage's sums: for 12 (4 by 3) the four
// elements 0, 3, 6, 9 form one 4-point transform; for 26 (13 by 2) the even
// elements are one 13-point stage; for 10 (2 by 5) the butterflies come
// first; 30 runs its 5-point transforms first, 15 its 3-point ones.
TEST(ComplexBody, InputMapsFormTheStageSumsOfTheTable)
{
    struct Case {
        int n;
        std::initializer_list<int> elements;
    };
    const Case cases[] = {
        {12, {0, 3, 6, 9}},
        {26, {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24}},
        {10, {0, 5}},
        {30, {0, 6, 12, 18, 24}},
        {15, {0, 5, 10}},
    };
    for (const Case& c : cases)
        for (Dir d : {Dir::Forward, Dir::Inverse})
            EXPECT_TRUE(has_real_sum(record(c.n, d), c.elements))
                << "length " << c.n << " " << dir_name(d) << ": no stage value is the sum of its elements";
}

// X[0] of a prime length is the sum of the other elements with x[0] added
// last, in both parts.
TEST(ComplexBody, PrimeLengthsAddX0Last)
{
    for_each_body([](int n, Dir, const Tape& tape, const TapeSummary&) {
        for (int d = 2; d * d <= n; ++d)
            if (n % d == 0) return;
        if (n == 2) return;
        for (int slot : {0, 1}) {
            int stored = -1;
            for (const Step& s : tape)
                if (s.op == Op::Store && s.slot == slot) stored = s.a;
            ASSERT_GE(stored, 0);
            const Step& product = tape[stored];
            const int value = tape[product.a].op == Op::Scale ? product.b : product.a;
            const Step& last = tape[value];
            const auto reads = [&](int p, int want) { return tape[p].op == Op::Input && tape[p].slot == want; };
            EXPECT_TRUE(last.op == Op::Add && (reads(last.a, slot) != reads(last.b, slot)) &&
                        tape[reads(last.a, slot) ? last.b : last.a].op != Op::Input)
                << "slot " << slot << " of X[0] is not (sum of the rest) + x[0]";
        }
    });
}

}  // namespace
}  // namespace zptg::test
