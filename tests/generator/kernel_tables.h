// The operation counts of the real and Hartley kernels that the rules are
// held to, one row per length (additions count subtractions too; inverse
// products include the doublings). The generator's graph tests and the
// tests of the shipped bodies both read them from here.
#ifndef ZPTG_TESTS_GENERATOR_KERNEL_TABLES_H
#define ZPTG_TESTS_GENERATOR_KERNEL_TABLES_H

namespace zptg::tables {

// The real DFT: forward and inverse counts and the inverse's doublings.
struct RealRow {
    int n;
    int forward_additions, forward_products;
    int inverse_additions, inverse_products, doublings;
};

constexpr RealRow kRealTable[] = {
    {2, 2, 0, 2, 0, 0},           {3, 4, 2, 4, 3, 1},           {4, 6, 0, 6, 2, 2},
    {5, 12, 8, 12, 12, 4},        {6, 14, 4, 14, 8, 4},         {7, 24, 18, 24, 24, 6},
    {8, 20, 2, 20, 8, 6},         {9, 32, 20, 32, 25, 7},       {10, 34, 16, 34, 24, 8},
    {11, 60, 50, 68, 60, 10},     {12, 38, 8, 38, 16, 8},       {13, 78, 41, 80, 56, 12},
    {14, 62, 36, 62, 48, 12},     {15, 64, 34, 64, 47, 13},     {16, 58, 12, 58, 26, 14},
    {17, 116, 54, 116, 68, 14},   {18, 82, 40, 82, 52, 16},     {19, 164, 108, 164, 128, 18},
    {20, 86, 32, 86, 50, 18},     {21, 112, 68, 112, 87, 19},   {22, 142, 100, 158, 120, 20},
    {23, 300, 242, 284, 264, 22}, {24, 104, 22, 104, 44, 22},   {25, 152, 112, 152, 136, 24},
    {26, 182, 82, 186, 112, 24},  {27, 164, 110, 164, 125, 25}, {28, 150, 72, 150, 98, 26},
    {29, 306, 210, 306, 238, 28}, {30, 158, 68, 158, 94, 26},   {31, 316, 192, 316, 224, 30},
    {32, 158, 44, 156, 72, 30},   {33, 244, 172, 268, 203, 31}, {34, 266, 108, 266, 136, 28},
    {35, 228, 146, 228, 180, 34}, {36, 198, 80, 198, 106, 34},  {37, 400, 228, 402, 272, 36},
    {38, 366, 216, 366, 256, 36}, {39, 310, 149, 308, 180, 38}, {40, 220, 74, 220, 112, 38},
    {41, 444, 242, 444, 282, 40}, {42, 266, 136, 266, 176, 40}, {43, 532, 352, 532, 394, 42},
    {44, 326, 200, 358, 242, 42}, {45, 300, 172, 300, 206, 44}, {46, 646, 484, 614, 528, 44},
    {47, 1260, 1058, 1260, 1104, 46}, {48, 266, 68, 270, 118, 46}, {49, 408, 324, 408, 372, 48},
    {50, 354, 224, 354, 272, 48}, {51, 448, 196, 448, 245, 49}, {52, 414, 164, 414, 210, 50},
    {53, 844, 456, 840, 502, 52}, {54, 382, 220, 382, 250, 50}, {55, 472, 338, 512, 392, 54},
    {56, 368, 158, 368, 212, 54}, {57, 604, 362, 604, 423, 55}, {58, 670, 420, 670, 476, 56},
    {59, 1340, 954, 1340, 1012, 58}, {60, 374, 136, 374, 194, 58}, {61, 762, 415, 762, 478, 60},
    {62, 694, 384, 694, 448, 60}, {63, 488, 302, 488, 361, 61},  {64, 398, 132, 400, 196, 62},
};


// The Hartley transform: the first level, how the outputs end, and counts.
// How the outputs end, each in the sum or difference of a pair of values
// that serves two outputs: the mirror pairs k, n - k of the spectrum's
// butterflies (all, but k = 0 and n/2), the halves k, k + n/2, the cross
// pairs of a Good-Thomas a x b (k' = k mod b, k' = -k mod a, for k not a
// multiple of a), or neither of the first two.
enum class Ends { Mirror, Halves, Cross, Other };

struct HartleyRow {
    int n;
    bool pairs;  // the first level: all pairs, or as forward
    Ends ends;
    int cross_a;  // the a of the cross pairs
    int additions, products;
};

constexpr bool P = true, F = false;
constexpr Ends Y = Ends::Mirror, H = Ends::Halves, X = Ends::Cross, O = Ends::Other;
constexpr HartleyRow kHartleyTable[] = {
    {2, P, Y, 0, 2, 0},        {3, P, Y, 0, 6, 2},        {4, P, Y, 0, 8, 0},
    {5, P, Y, 0, 16, 8},       {6, P, Y, 0, 18, 4},       {7, P, Y, 0, 30, 18},
    {8, F, Y, 0, 26, 2},       {9, F, Y, 0, 40, 20},      {10, P, Y, 0, 42, 16},
    {11, P, Y, 0, 70, 50},     {12, P, H, 0, 48, 8},      {13, P, Y, 0, 92, 44},
    {14, P, Y, 0, 74, 36},     {15, P, X, 5, 78, 34},     {16, F, Y, 0, 72, 12},
    {17, P, Y, 0, 132, 54},    {18, P, O, 0, 98, 36},     {19, F, Y, 0, 182, 108},
    {20, P, H, 0, 104, 32},    {21, F, Y, 0, 132, 68},    {22, F, Y, 0, 162, 100},
    {23, P, Y, 0, 306, 242},   {24, F, Y, 0, 126, 22},    {25, P, O, 0, 176, 112},
    {26, F, Y, 0, 206, 82},    {27, P, O, 0, 190, 100},   {28, P, X, 7, 176, 72},
    {29, F, Y, 0, 334, 210},   {30, P, H, 0, 186, 68},    {31, P, O, 0, 346, 194},
    {32, P, H, 0, 186, 42},    {33, P, O, 0, 300, 172},   {34, P, H, 0, 298, 108},
    {35, P, X, 7, 262, 146},   {36, P, O, 0, 232, 72},    {37, P, Y, 0, 438, 236},
    {38, F, Y, 0, 402, 216},   {39, F, Y, 0, 348, 149},   {40, P, H, 0, 258, 74},
    {41, F, Y, 0, 484, 242},   {42, P, X, 7, 306, 136},   {43, P, O, 0, 574, 352},
    {44, P, O, 0, 400, 200},   {45, P, O, 0, 344, 162},   {46, P, H, 0, 658, 484},
    {47, F, Y, 0, 1306, 1058}, {48, P, X, 3, 316, 72},    {49, F, Y, 0, 456, 324},
    {50, F, Y, 0, 402, 224},   {51, P, X, 17, 498, 196},  {52, F, Y, 0, 464, 164},
    {53, P, Y, 0, 892, 450},   {54, P, H, 0, 434, 200},   {55, P, O, 0, 566, 338},
    {56, P, X, 7, 422, 158},   {57, F, Y, 0, 660, 362},   {58, F, Y, 0, 726, 420},
    {59, F, Y, 0, 1398, 954},  {60, P, X, 5, 432, 136},   {61, F, Y, 0, 822, 415},
    {62, P, H, 0, 754, 388},   {63, F, Y, 0, 550, 302},   {64, P, H, 0, 462, 134},
};

}  // namespace zptg::tables

#endif
