// The rules of the real transforms, as data: per length the forward rule and
// the inverse one (both() where they are the same). Forward a x b: the size-a
// transforms run first, on the input cosets; inverse a x b: the rows of size
// b run first and the size-a transforms last, on the output cosets. A stage
// takes the table rule of its own length unless the entry names another.
//
// Rader p: the first half is the forward transform of length p - 1 in the
// order of the subgroup chain of p (its first transforms run on the cosets
// of the smallest subgroup of the multiplicative group modulo p, which then
// merge into the cosets of the larger ones), the second half the inverse
// transform of length p - 1 (the kernel rule of that length unless the
// entry names another). Besides the chains, only the inverse of 23 differs
// in its stages from the kernels of its lengths: both of its halves take 11
// in the direct form.
#include <array>
#include <stdexcept>
#include <string>

#include "rules/real.h"

namespace zptg::gen {
namespace {

constexpr RealRule direct(int n) { return RealRule{n, RealForm::Direct}; }
constexpr RealRule gt(int n, int a, int b, const RealRule* a_rule = nullptr,
                      const RealRule* b_rule = nullptr)
{
    return RealRule{n, RealForm::GoodThomas, a, b, a_rule, b_rule};
}
constexpr RealRule ct(int n, int a, int b) { return RealRule{n, RealForm::CooleyTukey, a, b}; }
constexpr RealRule rader(int p, int g, const RealRule* first, const RealRule* second,
                         Orientation o = {})
{
    RealRule r{p, RealForm::Rader};
    r.root = g;
    r.first = first;
    r.second = second;
    r.orientation = o;
    return r;
}

// Forward stages in the order of a subgroup chain, and inverse stages that
// are not the kernel rule of their length.
constexpr RealRule kChain12 = gt(12, 3, 4);     // 13: 3, 6, 12
constexpr RealRule kChain28 = gt(28, 7, 4);     // 29: 7, 14, 28
constexpr RealRule kDirect11 = direct(11);
constexpr RealRule kInv22Direct = gt(22, 2, 11, nullptr, &kDirect11);
constexpr RealRule kInv12Rows = gt(12, 3, 4);
constexpr RealRule kInv60 = gt(60, 5, 12, nullptr, &kInv12Rows);

// The first halves of the other primes, by their chains: 17 takes the rule
// of 16 (4 x 4 with 4 = 2 x 2: 2, 4, 8, 16), 23 that of 22 (2, 22). The
// chains of 37 and 53 do not nest; theirs start from x[n] +- x[p - n] and
// its pairs: 2, 4, then 3 x 3 (37) or 13 by Rader (53), as their counts
// bind. 43 runs its second half in the mirrored order of its first. The
// inverse of 41 takes the chain of the forward one too: its first half
// starts from the pairs q, q + L/2 that its input comes as, which lie
// across the cosets of 5 (rules/real_good_thomas.cpp).
constexpr RealRule kChain18 = gt(18, 9, 2);              // 19: 3, 9, 18
constexpr RealRule kChain30 = gt(30, 6, 5);              // 31: 3, 6, 30
constexpr RealRule kChain36 = gt(36, 4, 9);              // 37: 2, 4, 36
constexpr RealRule kChain40 = gt(40, 5, 8);              // 41: 5, 10, 20, 40
constexpr RealRule kChain42 = gt(42, 2, 21);             // 43: 2, 14, 42
constexpr RealRule kChain46 = gt(46, 23, 2);             // 47: 23, 46
constexpr RealRule kChain52 = gt(52, 4, 13);             // 53: 2, 4, 52
constexpr RealRule kChain58 = gt(58, 29, 2);             // 59: 29, 58
constexpr RealRule kChain15 = gt(15, 3, 5);
constexpr RealRule kChain60 = gt(60, 15, 4, &kChain15);  // 61: 3, 15, 30, 60

// Rader rules that the two directions share.
constexpr RealRule kRader17 = rader(17, 3, nullptr, nullptr);
constexpr RealRule kRader19 = rader(19, 2, &kChain18, nullptr);
constexpr RealRule kRader31 = rader(31, 3, &kChain30, nullptr);
constexpr RealRule kRader37 = rader(37, 2, &kChain36, nullptr);
constexpr RealRule kRader41 = rader(41, 6, &kChain40, nullptr);
constexpr RealRule kRader43 = rader(43, 3, &kChain42, &kChain42);
constexpr RealRule kRader47 = rader(47, 5, &kChain46, nullptr);
constexpr RealRule kRader53 = rader(53, 2, &kChain52, nullptr);
constexpr RealRule kRader59 = rader(59, 2, &kChain58, nullptr);
constexpr RealRule kRader61 = rader(61, 2, &kChain60, nullptr);

// The Rader entries, forward and inverse (roots as in the complex table).
// (The forms of 23 and 29 inside the complex 47 and 59 are rows of the
// complex table, in another orientation.)
constexpr RealRule kForward13 = rader(13, 2, &kChain12, nullptr);
constexpr RealRule kForward23 = rader(23, 5, nullptr, nullptr);
constexpr RealRule kForward29 = rader(29, 2, &kChain28, nullptr);
constexpr RealRule kInverse11 = rader(11, 2, nullptr, nullptr);
constexpr RealRule kInverse13 = rader(13, 2, &kChain12, nullptr);
constexpr RealRule kInverse23 = rader(23, 5, nullptr, &kInv22Direct);
constexpr RealRule kInverse29 = rader(29, 2, &kChain28, nullptr);

// A length's forward and inverse rule.
struct Row {
    RealRule forward;
    RealRule inverse;
};
constexpr Row both(const RealRule& r) { return {r, r}; }

constexpr std::array<Row, 65> kRules = [] {
    std::array<Row, 65> t{};
    t[2] = both(direct(2));
    t[3] = both(direct(3));
    t[4] = both(ct(4, 2, 2));
    t[5] = both(direct(5));
    t[6] = both(gt(6, 3, 2));
    t[7] = both(direct(7));
    t[8] = both(ct(8, 2, 4));
    t[9] = both(ct(9, 3, 3));
    t[10] = both(gt(10, 5, 2));
    t[11] = {direct(11), kInverse11};
    t[12] = both(gt(12, 4, 3));
    t[13] = {kForward13, kInverse13};
    t[14] = {gt(14, 2, 7), gt(14, 7, 2)};
    t[15] = {gt(15, 3, 5), gt(15, 5, 3)};
    t[16] = both(ct(16, 4, 4));
    t[17] = both(kRader17);
    t[18] = {gt(18, 2, 9), gt(18, 9, 2)};
    t[19] = both(kRader19);
    t[20] = {gt(20, 5, 4), gt(20, 4, 5)};
    t[21] = both(gt(21, 7, 3));
    t[22] = both(gt(22, 2, 11));
    t[23] = {kForward23, kInverse23};
    t[24] = both(gt(24, 3, 8));
    t[25] = both(ct(25, 5, 5));
    t[26] = both(gt(26, 13, 2));
    t[27] = both(ct(27, 9, 3));
    t[28] = {gt(28, 4, 7), gt(28, 7, 4)};
    t[29] = {kForward29, kInverse29};
    t[30] = {gt(30, 5, 6), gt(30, 2, 15)};
    t[31] = both(kRader31);
    t[32] = {ct(32, 8, 4), ct(32, 4, 8)};
    t[33] = both(gt(33, 11, 3));
    t[34] = both(gt(34, 2, 17));
    t[35] = both(gt(35, 7, 5));
    t[36] = both(gt(36, 9, 4));
    t[37] = both(kRader37);
    t[38] = both(gt(38, 19, 2));
    t[39] = {gt(39, 13, 3), gt(39, 3, 13)};
    t[40] = both(gt(40, 8, 5));
    t[41] = both(kRader41);
    t[42] = both(gt(42, 7, 6));
    t[43] = both(kRader43);
    t[44] = both(gt(44, 11, 4));
    t[45] = {gt(45, 5, 9), gt(45, 9, 5)};
    t[46] = both(gt(46, 2, 23));
    t[47] = both(kRader47);
    t[48] = {gt(48, 16, 3), gt(48, 3, 16)};
    t[49] = both(ct(49, 7, 7));
    t[50] = {gt(50, 25, 2), gt(50, 2, 25)};
    t[51] = both(gt(51, 17, 3));
    t[52] = {gt(52, 13, 4), gt(52, 4, 13)};
    t[53] = both(kRader53);
    t[54] = both(gt(54, 2, 27));
    t[55] = both(gt(55, 11, 5));
    t[56] = both(gt(56, 7, 8));
    t[57] = both(gt(57, 19, 3));
    t[58] = both(gt(58, 2, 29));
    t[59] = both(kRader59);
    t[60] = {gt(60, 3, 20), kInv60};
    t[61] = both(kRader61);
    t[62] = {gt(62, 31, 2), gt(62, 2, 31)};
    t[63] = both(gt(63, 7, 9));
    t[64] = {ct(64, 16, 4), ct(64, 4, 16)};
    return t;
}();

const RealRule& checked(int n, bool inverse)
{
    if (n < 2 || n > 64) throw std::out_of_range("no real rule for this length");
    const RealRule& r = inverse ? kRules[n].inverse : kRules[n].forward;
    if (r.form == RealForm::Rader && r.root == 0)
        throw std::logic_error("the real Rader rule of length " + std::to_string(n) +
                               " is not in the table");
    return r;
}

}  // namespace

const RealRule& real_forward_rule(int n) { return checked(n, false); }
const RealRule& real_inverse_rule(int n) { return checked(n, true); }

}  // namespace zptg::gen
