// The table of complex DFT rules. Good-Thomas a x b: stage of size a first,
// twiddle-free; Cooley-Tukey a x b: stage of size a first, then twiddles,
// then stages of size b. Rader p: primitive root g, the cyclic transform of
// length p - 1 as the descriptions name it, and the orientations.
#include "rules/table.h"

#include <array>
#include <stdexcept>

#include "rules/real.h"

namespace zptg::gen {
namespace {

// A length's row as a kernel and as a stage of a larger kernel.
struct Row {
    Rule kernel;
    Rule stage;
};

constexpr Rule direct_rule(int n, Orientation o = {})
{
    Rule r{n, Form::Direct};
    r.orientation = o;
    return r;
}
constexpr Rule gt_rule(int n, int a, int b, const Rule* a_rule = nullptr)
{
    return Rule{n, Form::GoodThomas, a, b, a_rule};
}

constexpr Row direct(int n) { return {direct_rule(n), direct_rule(n)}; }
constexpr Row gt(int n, int a, int b, const Rule* a_rule = nullptr)
{
    return {gt_rule(n, a, b, a_rule), gt_rule(n, a, b, a_rule)};
}
constexpr Row ct(int n, int a, int b, const Rule* b_rule, Orientation as_kernel, Orientation as_stage)
{
    Row r{{n, Form::CooleyTukey, a, b, nullptr, b_rule}, {n, Form::CooleyTukey, a, b, nullptr, b_rule}};
    r.kernel.orientation = as_kernel;
    r.stage.orientation = as_stage;
    return r;
}
constexpr Row rader(int p, int g, const char* cycle, Orientation as_kernel = {},
                    Orientation as_stage = {}, const RealRule* first_half = nullptr,
                    const RealRule* second_half = nullptr)
{
    Rule r{p, Form::Rader};
    r.root = g;
    r.cycle = cycle;
    r.first_half = first_half;
    r.second_half = second_half;
    Row row{r, r};
    row.kernel.orientation = as_kernel;
    row.stage.orientation = as_stage;
    return row;
}

// The orientations. They change no value and no count of operations, only
// which sums are additions and which subtractions (and the signs with which
// values are carried); these are the choices that give every length its
// split of additions and subtractions, as a kernel and as a stage.
//
// Cooley-Tukey: up to a half turn (as a stage: up to a quarter turn) a
// twiddle is the product with cos and sin of its angle, past it the negated
// turn (rules/cooley_tukey.cpp); the second stages of 3, 5 and 7 points take
// their pair differences the other way round.
constexpr Orientation kTurnsPastHalf{.negated_turns = NegatedTurns::PastHalfTurn};
constexpr Orientation kTurnsPastQuarter{.negated_turns = NegatedTurns::PastQuarterTurn};
constexpr Rule k3Reversed = direct_rule(3, {.pair_differences = true});
constexpr Rule k5Reversed = direct_rule(5, {.pair_differences = true});
constexpr Rule k7Reversed = direct_rule(7, {.pair_differences = true});

// Rader, as a kernel (Kernel) and as a stage (Stage); a form not named here
// takes every difference as written. The fields of the real stages hold for
// the real transforms of the two halves.
constexpr Orientation k11Stage{.inverse_complex_rows = true};
constexpr Orientation k23Kernel{.pair_differences = true, .cosine_sums = true,
                                .inverse_complex_rows = true, .rotation_differences = true};
constexpr Orientation k23Stage{.pair_differences = true, .sine_sums = true,
                               .inverse_complex_rows = true};
constexpr Orientation k29Kernel{.inverse_real_rows = true, .start = true};
constexpr Orientation k29Stage{.sine_sums = true, .inverse_real_rows = true,
                               .rotation_differences = true};
constexpr Orientation k31Kernel{.sine_sums = true, .forward_complex_rows = true,
                                .forward_real_rows = true, .rotation_sums = true,
                                .rotation_differences = true};
constexpr Orientation k31Stage{.forward_real_rows = true};
constexpr Orientation k43Kernel{.pair_differences = true, .sine_sums = true,
                                .forward_complex_rows = true, .start = true,
                                .rotation_sums = true};
constexpr Orientation k47Kernel{.cosine_sums = true, .sine_sums = true};
constexpr Orientation k59Kernel{.cosine_sums = true, .forward_real_rows = true,
                                .rotation_sums = true, .rotation_differences = true};
constexpr Orientation k61Kernel{.pair_differences = true, .cosine_sums = true,
                                .inverse_complex_rows = true};

// The halves of 47 and 59. Their real transforms of length 46 and 58 hold
// the real Rader forms of 23 and 29, which here take their own differences
// the other way round: 23 its start, its rotations and (forward) the outputs
// of its halves, which with the orientation of 47 is the split of 47; 29
// its start and (forward) its rotations, which brings 59 (which makes fewer
// sums than its table row) under its row in additions and in subtractions.
// The inverse 23 takes 11 in the direct form in both of its halves.
constexpr RealRule kDirect11{.n = 11, .form = RealForm::Direct};
constexpr RealRule kInverse22Direct{.n = 22, .form = RealForm::GoodThomas, .a = 2, .b = 11,
                                    .b_rule = &kDirect11};
constexpr RealRule kChain28{.n = 28, .form = RealForm::GoodThomas, .a = 7, .b = 4};
constexpr RealRule kForward23In47{
    .n = 23, .form = RealForm::Rader, .root = 5,
    .orientation = {.start = true, .rotation_sums = true, .rotation_differences = true,
                    .half_outputs = true}};
constexpr RealRule kInverse23In47{
    .n = 23, .form = RealForm::Rader, .root = 5, .second = &kInverse22Direct,
    .orientation = {.start = true, .rotation_sums = true, .rotation_differences = true}};
constexpr RealRule kForward29In59{
    .n = 29, .form = RealForm::Rader, .root = 2, .first = &kChain28,
    .orientation = {.start = true, .rotation_sums = true, .rotation_differences = true}};
constexpr RealRule kInverse29In59{.n = 29, .form = RealForm::Rader, .root = 2, .first = &kChain28,
                                  .orientation = {.start = true}};
constexpr RealRule kForward46In47{.n = 46, .form = RealForm::GoodThomas, .a = 2, .b = 23,
                                  .b_rule = &kForward23In47};
constexpr RealRule kInverse46In47{.n = 46, .form = RealForm::GoodThomas, .a = 2, .b = 23,
                                  .b_rule = &kInverse23In47};
constexpr RealRule kForward58In59{.n = 58, .form = RealForm::GoodThomas, .a = 2, .b = 29,
                                  .b_rule = &kForward29In59};
constexpr RealRule kInverse58In59{.n = 58, .form = RealForm::GoodThomas, .a = 2, .b = 29,
                                  .b_rule = &kInverse29In59};

// Stages whose factors run in another order than the kernel of their length.
constexpr Rule k15_5x3 = gt_rule(15, 5, 3);
constexpr Rule k15_3x5 = gt_rule(15, 3, 5);
constexpr Rule k21_7x3 = gt_rule(21, 7, 3);

constexpr std::array<Row, 65> kRules = [] {
    std::array<Row, 65> t{};
    t[2] = direct(2);
    t[3] = direct(3);
    t[4] = ct(4, 2, 2, nullptr, kTurnsPastHalf, kTurnsPastQuarter);
    t[5] = direct(5);
    t[6] = gt(6, 3, 2);
    t[7] = direct(7);
    t[8] = ct(8, 2, 4, nullptr, kTurnsPastHalf, kTurnsPastQuarter);
    t[9] = ct(9, 3, 3, &k3Reversed, kTurnsPastHalf, kTurnsPastQuarter);
    t[10] = gt(10, 2, 5);
    t[11] = rader(11, 2, "Good-Thomas 5 x 2", {}, k11Stage);
    t[12] = gt(12, 4, 3);
    t[13] = rader(13, 2, "Good-Thomas 4 x 3");
    t[14] = gt(14, 2, 7);
    t[15] = gt(15, 3, 5);
    t[16] = ct(16, 2, 8, nullptr, kTurnsPastHalf, kTurnsPastQuarter);
    t[17] = rader(17, 3, "Cooley-Tukey 2 x 8");
    t[18] = gt(18, 2, 9);
    t[19] = rader(19, 2, "Good-Thomas 2 x 9");
    t[20] = gt(20, 4, 5);
    t[21] = gt(21, 3, 7);
    t[22] = gt(22, 2, 11);
    t[23] = rader(23, 5, "Good-Thomas 2 x 11", k23Kernel, k23Stage);
    t[24] = gt(24, 8, 3);
    t[25] = ct(25, 5, 5, &k5Reversed, kTurnsPastHalf, kTurnsPastQuarter);
    t[26] = gt(26, 13, 2);
    t[27] = ct(27, 9, 3, &k3Reversed, kTurnsPastHalf, kTurnsPastQuarter);
    t[28] = gt(28, 7, 4);
    t[29] = rader(29, 2, "Good-Thomas 4 x 7", k29Kernel, k29Stage);
    t[30] = gt(30, 15, 2, &k15_5x3);
    t[31] = rader(31, 3, "Good-Thomas 15 x 2 (first stage Good-Thomas 5 x 3)", k31Kernel, k31Stage);
    t[32] = ct(32, 8, 4, nullptr, kTurnsPastHalf, kTurnsPastQuarter);
    t[33] = gt(33, 3, 11);
    t[34] = gt(34, 2, 17);
    t[35] = gt(35, 5, 7);
    t[36] = gt(36, 9, 4);
    t[37] = rader(37, 2, "Good-Thomas 9 x 4");
    t[38] = gt(38, 19, 2);
    t[39] = gt(39, 3, 13);
    t[40] = gt(40, 5, 8);
    t[41] = rader(41, 6, "Good-Thomas 8 x 5");
    t[42] = gt(42, 21, 2, &k21_7x3);
    t[43] = rader(43, 3, "Good-Thomas 21 x 2 (first stage Good-Thomas 7 x 3)", k43Kernel);
    t[44] = gt(44, 11, 4);
    t[45] = gt(45, 9, 5);
    t[46] = gt(46, 23, 2);
    t[47] = rader(47, 5, "Good-Thomas 2 x 23", k47Kernel, {}, &kForward46In47, &kInverse46In47);
    t[48] = gt(48, 3, 16);
    t[49] = ct(49, 7, 7, &k7Reversed, kTurnsPastHalf, kTurnsPastQuarter);
    t[50] = gt(50, 25, 2);
    t[51] = gt(51, 3, 17);
    t[52] = gt(52, 4, 13);
    t[53] = rader(53, 2, "Good-Thomas 13 x 4");
    t[54] = gt(54, 27, 2);
    t[55] = gt(55, 11, 5);
    t[56] = gt(56, 7, 8);
    t[57] = gt(57, 19, 3);
    t[58] = gt(58, 29, 2);
    t[59] = rader(59, 2, "Good-Thomas 2 x 29", k59Kernel, {}, &kForward58In59, &kInverse58In59);
    t[60] = gt(60, 15, 4, &k15_3x5);
    t[61] = rader(61, 2, "Good-Thomas 15 x 4 (first stage Good-Thomas 3 x 5)", k61Kernel);
    t[62] = gt(62, 31, 2);
    t[63] = gt(63, 7, 9);
    t[64] = ct(64, 8, 8, nullptr, kTurnsPastHalf, kTurnsPastQuarter);
    return t;
}();

const Row& row(int n)
{
    if (n < 2 || n > 64) throw std::out_of_range("no complex rule for this length");
    return kRules[n];
}

}  // namespace

const Rule& complex_rule(int n) { return row(n).kernel; }
const Rule& complex_stage_rule(int n) { return row(n).stage; }

}  // namespace zptg::gen
