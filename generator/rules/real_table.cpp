// The rules of the real transforms, as data. Forward a x b: the size-a
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
                         bool reversed_start = false, bool reversed_rotations = false,
                         bool reversed_halves = false)
{
    RealRule r{p, RealForm::Rader};
    r.root = g;
    r.first = first;
    r.second = second;
    r.reversed_start = reversed_start;
    r.reversed_rotations = reversed_rotations;
    r.reversed_halves = reversed_halves;
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
// inverse of 41 starts its first half with the 8, whose first butterflies
// are the pairs q, q + L/2 that the inverse's input comes as.
constexpr RealRule kChain18 = gt(18, 9, 2);              // 19: 3, 9, 18
constexpr RealRule kChain30 = gt(30, 6, 5);              // 31: 3, 6, 30
constexpr RealRule kChain36 = gt(36, 4, 9);              // 37: 2, 4, 36
constexpr RealRule kChain40 = gt(40, 5, 8);              // 41: 5, 10, 20, 40
constexpr RealRule kHalves40 = gt(40, 8, 5);             // 41, inverse: 2, 4, 8, 40
constexpr RealRule kChain42 = gt(42, 2, 21);             // 43: 2, 14, 42
constexpr RealRule kChain46 = gt(46, 23, 2);             // 47: 23, 46
constexpr RealRule kChain52 = gt(52, 4, 13);             // 53: 2, 4, 52
constexpr RealRule kChain58 = gt(58, 29, 2);             // 59: 29, 58
constexpr RealRule kChain15 = gt(15, 3, 5);
constexpr RealRule kChain60 = gt(60, 15, 4, &kChain15);  // 61: 3, 15, 30, 60

// Rader rules that the two directions share.
constexpr RealRule kRader[] = {
    rader(17, 3, nullptr, nullptr),     rader(19, 2, &kChain18, nullptr),
    rader(31, 3, &kChain30, nullptr),   rader(37, 2, &kChain36, nullptr),
    rader(43, 3, &kChain42, &kChain42), rader(47, 5, &kChain46, nullptr),
    rader(53, 2, &kChain52, nullptr),   rader(59, 2, &kChain58, nullptr),
    rader(61, 2, &kChain60, nullptr),
};

// The Rader entries, forward and inverse (roots as in the complex table).
// 23, whose rows run inside the halves of 47 (its kernel and that of 46 take
// rows of their own, see real_forward_kernel_rule), takes its start and
// its rotations the other way round, and forward the outputs of its halves
// too: with the orientation of 47 (rules/table.cpp) that is the split of 47.
// 29, whose rows run inside 59 (likewise), takes its start the other way
// round, and forward its rotations too: with the orientation of 59 that
// brings 59 (which makes fewer sums than its table row) under its row in
// additions and in subtractions.
constexpr RealRule kForward13 = rader(13, 2, &kChain12, nullptr);
constexpr RealRule kForward23 = rader(23, 5, nullptr, nullptr, true, true, true);
constexpr RealRule kForward29 = rader(29, 2, &kChain28, nullptr, true, true);
constexpr RealRule kInverse11 = rader(11, 2, nullptr, nullptr);
constexpr RealRule kInverse13 = rader(13, 2, &kChain12, nullptr);
constexpr RealRule kInverse23 = rader(23, 5, nullptr, &kInv22Direct, true, true);
constexpr RealRule kInverse29 = rader(29, 2, &kChain28, nullptr, true);

struct Entry {
    int n;
    char form;  // 'd' direct, 'g' Good-Thomas, 'c' Cooley-Tukey, 'r' Rader
    int a, b;
};

// Parts of the tables that are plain data: form and a x b of every length.
constexpr Entry kForward[] = {
    {2, 'd', 0, 0},  {3, 'd', 0, 0},  {4, 'c', 2, 2},   {5, 'd', 0, 0},   {6, 'g', 3, 2},
    {7, 'd', 0, 0},  {8, 'c', 2, 4},  {9, 'c', 3, 3},   {10, 'g', 5, 2},  {11, 'd', 0, 0},
    {12, 'g', 4, 3}, {13, 'r', 0, 0}, {14, 'g', 2, 7},  {15, 'g', 3, 5},  {16, 'c', 4, 4},
    {17, 'r', 0, 0}, {18, 'g', 2, 9}, {19, 'r', 0, 0},  {20, 'g', 5, 4},  {21, 'g', 7, 3},
    {22, 'g', 2, 11}, {23, 'r', 0, 0}, {24, 'g', 3, 8}, {25, 'c', 5, 5},  {26, 'g', 13, 2},
    {27, 'c', 9, 3}, {28, 'g', 4, 7}, {29, 'r', 0, 0},  {30, 'g', 5, 6},  {31, 'r', 0, 0},
    {32, 'c', 8, 4}, {33, 'g', 11, 3}, {34, 'g', 2, 17}, {35, 'g', 7, 5}, {36, 'g', 9, 4},
    {37, 'r', 0, 0}, {38, 'g', 19, 2}, {39, 'g', 13, 3}, {40, 'g', 8, 5}, {41, 'r', 0, 0},
    {42, 'g', 7, 6}, {43, 'r', 0, 0}, {44, 'g', 11, 4}, {45, 'g', 5, 9}, {46, 'g', 2, 23},
    {47, 'r', 0, 0}, {48, 'g', 16, 3}, {49, 'c', 7, 7}, {50, 'g', 25, 2}, {51, 'g', 17, 3},
    {52, 'g', 13, 4}, {53, 'r', 0, 0}, {54, 'g', 2, 27}, {55, 'g', 11, 5}, {56, 'g', 7, 8},
    {57, 'g', 19, 3}, {58, 'g', 2, 29}, {59, 'r', 0, 0}, {60, 'g', 3, 20}, {61, 'r', 0, 0},
    {62, 'g', 31, 2}, {63, 'g', 7, 9}, {64, 'c', 16, 4},
};
constexpr Entry kInverse[] = {
    {2, 'd', 0, 0},  {3, 'd', 0, 0},  {4, 'c', 2, 2},   {5, 'd', 0, 0},   {6, 'g', 3, 2},
    {7, 'd', 0, 0},  {8, 'c', 2, 4},  {9, 'c', 3, 3},   {10, 'g', 5, 2},  {11, 'r', 0, 0},
    {12, 'g', 4, 3}, {13, 'r', 0, 0}, {14, 'g', 7, 2},  {15, 'g', 5, 3},  {16, 'c', 4, 4},
    {17, 'r', 0, 0}, {18, 'g', 9, 2}, {19, 'r', 0, 0},  {20, 'g', 4, 5},  {21, 'g', 7, 3},
    {22, 'g', 2, 11}, {23, 'r', 0, 0}, {24, 'g', 3, 8}, {25, 'c', 5, 5},  {26, 'g', 13, 2},
    {27, 'c', 3, 9}, {28, 'g', 7, 4}, {29, 'r', 0, 0},  {30, 'g', 2, 15}, {31, 'r', 0, 0},
    {32, 'c', 4, 8}, {33, 'g', 11, 3}, {34, 'g', 2, 17}, {35, 'g', 7, 5}, {36, 'g', 9, 4},
    {37, 'r', 0, 0}, {38, 'g', 19, 2}, {39, 'g', 3, 13}, {40, 'g', 8, 5}, {41, 'r', 0, 0},
    {42, 'g', 7, 6}, {43, 'r', 0, 0}, {44, 'g', 11, 4}, {45, 'g', 9, 5}, {46, 'g', 2, 23},
    {47, 'r', 0, 0}, {48, 'g', 3, 16}, {49, 'c', 7, 7}, {50, 'g', 2, 25}, {51, 'g', 17, 3},
    {52, 'g', 4, 13}, {53, 'r', 0, 0}, {54, 'g', 2, 27}, {55, 'g', 11, 5}, {56, 'g', 7, 8},
    {57, 'g', 19, 3}, {58, 'g', 2, 29}, {59, 'r', 0, 0}, {60, 'g', 5, 12}, {61, 'r', 0, 0},
    {62, 'g', 2, 31}, {63, 'g', 7, 9}, {64, 'c', 4, 16},
};

using Table = std::array<RealRule, 65>;

constexpr Table build(const Entry (&entries)[63], bool inverse)
{
    Table t{};
    for (const RealRule& r : kRader) t[r.n] = r;
    for (const Entry& e : entries) {
        switch (e.form) {
        case 'd': t[e.n] = direct(e.n); break;
        case 'g': t[e.n] = gt(e.n, e.a, e.b); break;
        case 'c': t[e.n] = ct(e.n, e.a, e.b); break;
        default: break;
        }
    }
    if (inverse) {
        t[60] = kInv60;
        t[11] = kInverse11;
        t[13] = kInverse13;
        t[23] = kInverse23;
        t[29] = kInverse29;
        t[41] = rader(41, 6, &kHalves40, nullptr);
    } else {
        t[13] = kForward13;
        t[41] = rader(41, 6, &kChain40, nullptr);
        t[23] = kForward23;
        t[29] = kForward29;
    }
    return t;
}

constexpr Table kForwardRules = build(kForward, false);
constexpr Table kInverseRules = build(kInverse, true);

const RealRule& checked(const Table& t, int n)
{
    if (n < 2 || n > 64) throw std::out_of_range("no real rule for this length");
    const RealRule& r = t[n];
    if (r.form == RealForm::Rader && r.root == 0)
        throw std::logic_error("the real Rader rule of length " + std::to_string(n) +
                               " is not in the table");
    return r;
}

}  // namespace

const RealRule& real_forward_rule(int n) { return checked(kForwardRules, n); }

// The forward kernels of 23 and 29 take every difference as written, and
// so do the kernels of 46 and 58 in their rows of 23 and 29: the rows of
// the table are oriented for the split of the complex 47 and 59, inside
// which they run, and as kernels of their own they would end in negated
// real parts.
constexpr RealRule kKernel23 = rader(23, 5, nullptr, nullptr);
constexpr RealRule kKernel29 = rader(29, 2, &kChain28, nullptr);
constexpr RealRule kKernel46 = gt(46, 2, 23, nullptr, &kKernel23);
constexpr RealRule kKernel58 = gt(58, 2, 29, nullptr, &kKernel29);

const RealRule& real_forward_kernel_rule(int n)
{
    switch (n) {
    case 23: return kKernel23;
    case 29: return kKernel29;
    case 46: return kKernel46;
    case 58: return kKernel58;
    }
    return real_forward_rule(n);
}
const RealRule& real_inverse_rule(int n) { return checked(kInverseRules, n); }

}  // namespace zptg::gen
