// The table of complex DFT rules. Good-Thomas a x b: stage of size a first,
// twiddle-free; Cooley-Tukey a x b: stage of size a first, then twiddles,
// then stages of size b. Rader p: primitive root g, and the rule of the
// cyclic transform of length p - 1 that its first half runs (its second half
// runs the same stages in mirrored order).
#include "rules/table.h"

#include <array>
#include <stdexcept>

namespace zptg::gen {
namespace {

constexpr Rule direct(int n) { return Rule{n, Form::Direct}; }
constexpr Rule gt(int n, int a, int b, const Rule* a_rule = nullptr)
{
    return Rule{n, Form::GoodThomas, a, b, a_rule};
}
constexpr Rule ct(int n, int a, int b) { return Rule{n, Form::CooleyTukey, a, b}; }
constexpr Rule rader(int p, int g, const Rule* cycle, Orientation as_kernel = {},
                     Orientation as_stage = {})
{
    Rule r{p, Form::Rader};
    r.root = g;
    r.cycle_rule = cycle;
    r.as_kernel = as_kernel;
    r.as_stage = as_stage;
    return r;
}

// The orientations of the Rader forms (core/graph.h): which differences each
// takes the other way round, as a kernel and as a stage. They change no
// value and no count of operations, only which sums are additions and which
// subtractions; a form not named here takes every difference as written.
constexpr Orientation orientation(bool start, bool rotation_sums, bool rotation_differences,
                                  bool pair_differences, bool cosine_sums, bool sine_sums,
                                  bool forward_complex_rows, bool forward_real_rows,
                                  bool inverse_complex_rows, bool inverse_real_rows)
{
    return Orientation{start, rotation_sums, rotation_differences, pair_differences,
                       cosine_sums, sine_sums, forward_complex_rows, forward_real_rows,
                       inverse_complex_rows, inverse_real_rows};
}
//                                          start  U      V      d      m      t      fwd rows     inv rows
//                                                                                    cplx   real  cplx   real
constexpr Orientation k11Stage  = orientation(false, false, false, false, false, false, false, false, true,  false);
constexpr Orientation k23Kernel = orientation(false, false, true,  true,  true,  false, false, false, true,  false);
constexpr Orientation k23Stage  = orientation(false, false, false, true,  false, true,  false, false, true,  false);
constexpr Orientation k29Kernel = orientation(true,  false, false, false, false, false, false, false, false, true);
constexpr Orientation k29Stage  = orientation(false, false, true,  false, false, true,  false, false, false, true);
constexpr Orientation k31Kernel = orientation(false, true,  true,  false, false, true,  true,  true,  false, false);
constexpr Orientation k31Stage  = orientation(false, false, false, false, false, false, false, true,  false, false);
constexpr Orientation k43Kernel = orientation(true,  true,  false, true,  false, true,  true,  false, false, false);
constexpr Orientation k47Kernel = orientation(false, false, false, false, true,  true,  false, false, false, false);
constexpr Orientation k59Kernel = orientation(false, true,  true,  false, true,  false, false, true,  false, false);
constexpr Orientation k61Kernel = orientation(false, false, false, true,  true,  false, false, false, true,  false);

// Stages whose factors run in another order than the kernel of their length.
constexpr Rule k15_5x3 = gt(15, 5, 3);
constexpr Rule k15_3x5 = gt(15, 3, 5);
constexpr Rule k21_7x3 = gt(21, 7, 3);
constexpr Rule k10_5x2 = gt(10, 5, 2);
constexpr Rule k28_4x7 = gt(28, 4, 7);
constexpr Rule k30_15x2 = gt(30, 15, 2, &k15_5x3);
constexpr Rule k40_8x5 = gt(40, 8, 5);
constexpr Rule k42_21x2 = gt(42, 21, 2, &k21_7x3);
constexpr Rule k46_2x23 = gt(46, 2, 23);
constexpr Rule k52_13x4 = gt(52, 13, 4);
constexpr Rule k58_2x29 = gt(58, 2, 29);
constexpr Rule k60_15x4 = gt(60, 15, 4, &k15_3x5);
constexpr Rule k12_4x3 = gt(12, 4, 3);
constexpr Rule k16_2x8 = ct(16, 2, 8);
constexpr Rule k18_2x9 = gt(18, 2, 9);
constexpr Rule k22_2x11 = gt(22, 2, 11);
constexpr Rule k36_9x4 = gt(36, 9, 4);

constexpr std::array<Rule, 65> kRules = [] {
    std::array<Rule, 65> t{};
    t[2] = direct(2);
    t[3] = direct(3);
    t[4] = ct(4, 2, 2);
    t[5] = direct(5);
    t[6] = gt(6, 3, 2);
    t[7] = direct(7);
    t[8] = ct(8, 2, 4);
    t[9] = ct(9, 3, 3);
    t[10] = gt(10, 2, 5);
    t[11] = rader(11, 2, &k10_5x2, {}, k11Stage);
    t[12] = k12_4x3;
    t[13] = rader(13, 2, &k12_4x3);
    t[14] = gt(14, 2, 7);
    t[15] = k15_3x5;
    t[16] = k16_2x8;
    t[17] = rader(17, 3, &k16_2x8);
    t[18] = k18_2x9;
    t[19] = rader(19, 2, &k18_2x9);
    t[20] = gt(20, 4, 5);
    t[21] = gt(21, 3, 7);
    t[22] = k22_2x11;
    t[23] = rader(23, 5, &k22_2x11, k23Kernel, k23Stage);
    t[24] = gt(24, 8, 3);
    t[25] = ct(25, 5, 5);
    t[26] = gt(26, 13, 2);
    t[27] = ct(27, 9, 3);
    t[28] = gt(28, 7, 4);
    t[29] = rader(29, 2, &k28_4x7, k29Kernel, k29Stage);
    t[30] = k30_15x2;
    t[31] = rader(31, 3, &k30_15x2, k31Kernel, k31Stage);
    t[32] = ct(32, 8, 4);
    t[33] = gt(33, 3, 11);
    t[34] = gt(34, 2, 17);
    t[35] = gt(35, 5, 7);
    t[36] = k36_9x4;
    t[37] = rader(37, 2, &k36_9x4);
    t[38] = gt(38, 19, 2);
    t[39] = gt(39, 3, 13);
    t[40] = gt(40, 5, 8);
    t[41] = rader(41, 6, &k40_8x5);
    t[42] = k42_21x2;
    t[43] = rader(43, 3, &k42_21x2, k43Kernel);
    t[44] = gt(44, 11, 4);
    t[45] = gt(45, 9, 5);
    t[46] = gt(46, 23, 2);
    t[47] = rader(47, 5, &k46_2x23, k47Kernel);
    t[48] = gt(48, 3, 16);
    t[49] = ct(49, 7, 7);
    t[50] = gt(50, 25, 2);
    t[51] = gt(51, 3, 17);
    t[52] = gt(52, 4, 13);
    t[53] = rader(53, 2, &k52_13x4);
    t[54] = gt(54, 27, 2);
    t[55] = gt(55, 11, 5);
    t[56] = gt(56, 7, 8);
    t[57] = gt(57, 19, 3);
    t[58] = gt(58, 29, 2);
    t[59] = rader(59, 2, &k58_2x29, k59Kernel);
    t[60] = k60_15x4;
    t[61] = rader(61, 2, &k60_15x4, k61Kernel);
    t[62] = gt(62, 31, 2);
    t[63] = gt(63, 7, 9);
    t[64] = ct(64, 8, 8);
    return t;
}();

}  // namespace

const Rule& complex_rule(int n)
{
    if (n < 2 || n > 64) throw std::out_of_range("no complex rule for this length");
    return kRules[n];
}

}  // namespace zptg::gen
