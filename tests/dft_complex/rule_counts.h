// The cost of every length of the complex family as the library's rule
// tables give it: form, the two stage sizes of a composite length, and the
// real additions, subtractions and products of one call (not counting the
// 2N products with the scale factor) and the distinct constants (not
// counting the scale factor). A kernel must not come out above any column.
#ifndef ZPTG_TESTS_DFT_COMPLEX_RULE_COUNTS_H
#define ZPTG_TESTS_DFT_COMPLEX_RULE_COUNTS_H

namespace zptg::test {

enum class Form { Direct, GoodThomas, CooleyTukey, Rader };

struct RuleCounts {
    int n;
    Form form;
    int first;   // composite lengths: size of the first stage's transforms
    int second;  // and of the second stage's
    int additions;
    int subtractions;
    int products;
    int constants;
};

inline constexpr RuleCounts kRuleCounts[] = {
    // n   form               F   S   add   sub  prod const
    {2, Form::Direct, 0, 0, 2, 2, 0, 0},
    {3, Form::Direct, 0, 0, 6, 6, 4, 2},
    {4, Form::CooleyTukey, 2, 2, 8, 8, 0, 0},
    {5, Form::Direct, 0, 0, 18, 14, 16, 4},
    {6, Form::GoodThomas, 3, 2, 18, 18, 8, 2},
    {7, Form::Direct, 0, 0, 30, 30, 36, 6},
    {8, Form::CooleyTukey, 2, 4, 26, 26, 4, 1},
    {9, Form::CooleyTukey, 3, 3, 40, 40, 40, 8},
    {10, Form::GoodThomas, 2, 5, 46, 38, 32, 4},
    {11, Form::Rader, 0, 0, 86, 70, 100, 14},
    {12, Form::GoodThomas, 4, 3, 48, 48, 16, 2},
    {13, Form::Rader, 0, 0, 88, 88, 72, 18},
    {14, Form::GoodThomas, 2, 7, 74, 74, 72, 6},
    {15, Form::GoodThomas, 3, 5, 84, 72, 68, 6},
    {16, Form::CooleyTukey, 2, 8, 74, 74, 28, 3},
    {17, Form::Rader, 0, 0, 132, 132, 108, 19},
    {18, Form::GoodThomas, 2, 9, 98, 98, 80, 8},
    {19, Form::Rader, 0, 0, 182, 182, 220, 28},
    {20, Form::GoodThomas, 4, 5, 112, 96, 64, 4},
    {21, Form::GoodThomas, 3, 7, 132, 132, 136, 8},
    {22, Form::GoodThomas, 2, 11, 190, 166, 200, 14},
    {23, Form::Rader, 0, 0, 333, 311, 484, 46},
    {24, Form::GoodThomas, 8, 3, 126, 126, 44, 3},
    {25, Form::CooleyTukey, 5, 5, 195, 157, 224, 20},
    {26, Form::GoodThomas, 13, 2, 202, 202, 144, 18},
    {27, Form::CooleyTukey, 9, 3, 190, 190, 220, 26},
    {28, Form::GoodThomas, 7, 4, 176, 176, 144, 6},
    {29, Form::Rader, 0, 0, 316, 340, 396, 34},
    {30, Form::GoodThomas, 15, 2, 198, 174, 136, 6},
    {31, Form::Rader, 0, 0, 366, 326, 384, 40},
    {32, Form::CooleyTukey, 8, 4, 188, 188, 88, 7},
    {33, Form::GoodThomas, 3, 11, 318, 282, 344, 16},
    {34, Form::GoodThomas, 2, 17, 298, 298, 216, 19},
    {35, Form::GoodThomas, 5, 7, 276, 248, 292, 10},
    {36, Form::GoodThomas, 9, 4, 232, 232, 160, 8},
    {37, Form::Rader, 0, 0, 432, 432, 444, 46},
    {38, Form::GoodThomas, 19, 2, 402, 402, 440, 28},
    {39, Form::GoodThomas, 3, 13, 342, 342, 268, 18},
    {40, Form::GoodThomas, 5, 8, 274, 242, 148, 5},
    {41, Form::Rader, 0, 0, 494, 466, 452, 45},
    {42, Form::GoodThomas, 21, 2, 306, 306, 272, 8},
    {43, Form::Rader, 0, 0, 571, 577, 708, 50},
    {44, Form::GoodThomas, 11, 4, 424, 376, 400, 14},
    {45, Form::GoodThomas, 9, 5, 362, 326, 344, 12},
    {46, Form::GoodThomas, 23, 2, 718, 662, 968, 46},
    {47, Form::Rader, 0, 0, 1243, 1369, 2116, 92},
    {48, Form::GoodThomas, 3, 16, 318, 318, 148, 5},
    {49, Form::CooleyTukey, 7, 7, 451, 461, 648, 40},
    {50, Form::GoodThomas, 25, 2, 438, 366, 448, 20},
    {51, Form::GoodThomas, 3, 17, 498, 498, 392, 21},
    {52, Form::GoodThomas, 4, 13, 456, 456, 288, 18},
    {53, Form::Rader, 0, 0, 880, 880, 852, 72},
    {54, Form::GoodThomas, 27, 2, 434, 434, 440, 26},
    {55, Form::GoodThomas, 11, 5, 618, 514, 676, 14},
    {56, Form::GoodThomas, 7, 8, 422, 422, 316, 7},
    {57, Form::GoodThomas, 19, 3, 660, 660, 736, 28},
    {58, Form::GoodThomas, 29, 2, 694, 734, 792, 34},
    {59, Form::Rader, 0, 0, 1325, 1471, 1908, 92},
    {60, Form::GoodThomas, 15, 4, 456, 408, 272, 6},
    {61, Form::Rader, 0, 0, 840, 776, 780, 66},
    {62, Form::GoodThomas, 31, 2, 800, 708, 768, 40},
    {63, Form::GoodThomas, 7, 9, 550, 550, 604, 14},
    {64, Form::CooleyTukey, 8, 8, 464, 464, 248, 15},
};

constexpr const RuleCounts& rule_counts(int n) { return kRuleCounts[n - 2]; }

}  // namespace zptg::test

#endif
