// The generated bodies as they ship, run once on Symbol (one tape stands for the 32-bit and 64-bit
// kernels of a body), every length, direction and layout of the complex DFT, real DFT and Hartley
// families:
// - shape and order: each input position that holds a value read once (no CCS position 1 or N + 1
//   in an inverse body), all reads before the first store; each output position stored once, as
//   the product of the scale and a computed value, that product the last operation on the value;
//   CCS's imaginary parts of X[0] and X[N/2] as literal zeros; sign flips in forward real bodies
//   only; each constant held once (the rest of the contract in support/tape.h);
// - counts: never above the rule tables below in any column, equal to the generator's manifest,
//   complex forward equal to inverse, the real inverse's doublings (products of an input by 2) as
//   the table gives them;
// - constants: a length with no Rader stage holds only the doubles nearest to cosines and sines of
//   multiples of 2 pi / N, or to such values taken twice or into a 3-point stage;
// - the stage order of the complex table, x[0] added last into X[0] of a complex prime, and the
//   first and last levels of the Hartley table.
#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <string>

#include "bodies/bodies.h"
#include "support/export_list.h"
#include "support/reference.h"

namespace zptg::test {
namespace {

const Bodies& bodies()
{
    static const Bodies b = collect_parts<Bodies, ZPTG_BODY_PARTS>([]<int P>(Bodies& t) { add_bodies<P>(t); });
    return b;
}

// The complex rule table: additions, subtractions, products and constants of every length from 2
// (besides the 2N products with the scale and the scale itself).
constexpr Counts kComplexTable[] = {
    {2, 2, 0, 0}, {6, 6, 4, 2}, {8, 8, 0, 0}, {18, 14, 16, 4}, {18, 18, 8, 2}, {30, 30, 36, 6},
    {26, 26, 4, 1}, {40, 40, 40, 8}, {46, 38, 32, 4}, {86, 70, 100, 14}, {48, 48, 16, 2}, {88, 88, 72, 18},
    {74, 74, 72, 6}, {84, 72, 68, 6}, {74, 74, 28, 3}, {132, 132, 108, 19}, {98, 98, 80, 8},
    {182, 182, 220, 28}, {112, 96, 64, 4}, {132, 132, 136, 8}, {190, 166, 200, 14}, {333, 311, 484, 46},
    {126, 126, 44, 3}, {195, 157, 224, 20}, {202, 202, 144, 18}, {190, 190, 220, 26}, {176, 176, 144, 6},
    {316, 340, 396, 34}, {198, 174, 136, 6}, {366, 326, 384, 40}, {188, 188, 88, 7}, {318, 282, 344, 16},
    {298, 298, 216, 19}, {276, 248, 292, 10}, {232, 232, 160, 8}, {432, 432, 444, 46}, {402, 402, 440, 28},
    {342, 342, 268, 18}, {274, 242, 148, 5}, {494, 466, 452, 45}, {306, 306, 272, 8}, {571, 577, 708, 50},
    {424, 376, 400, 14}, {362, 326, 344, 12}, {718, 662, 968, 46}, {1243, 1369, 2116, 92}, {318, 318, 148, 5},
    {451, 461, 648, 40}, {438, 366, 448, 20}, {498, 498, 392, 21}, {456, 456, 288, 18}, {880, 880, 852, 72},
    {434, 434, 440, 26}, {618, 514, 676, 14}, {422, 422, 316, 7}, {660, 660, 736, 28}, {694, 734, 792, 34},
    {1325, 1471, 1908, 92}, {456, 408, 272, 6}, {840, 776, 780, 66}, {800, 708, 768, 40}, {550, 550, 604, 14},
    {464, 464, 248, 15},
};

// The real DFT: forward and inverse additions (subtractions included) and products (doublings
// included), and the inverse's doublings.
struct RealRow {
    int n;
    int forward_additions, forward_products;
    int inverse_additions, inverse_products, doublings;
};

constexpr RealRow kRealTable[] = {
    {2, 2, 0, 2, 0, 0}, {3, 4, 2, 4, 3, 1}, {4, 6, 0, 6, 2, 2}, {5, 12, 8, 12, 12, 4}, {6, 14, 4, 14, 8, 4},
    {7, 24, 18, 24, 24, 6}, {8, 20, 2, 20, 8, 6}, {9, 32, 20, 32, 25, 7}, {10, 34, 16, 34, 24, 8},
    {11, 60, 50, 68, 60, 10}, {12, 38, 8, 38, 16, 8}, {13, 78, 41, 80, 56, 12}, {14, 62, 36, 62, 48, 12},
    {15, 64, 34, 64, 47, 13}, {16, 58, 12, 58, 26, 14}, {17, 116, 54, 116, 68, 14}, {18, 82, 40, 82, 52, 16},
    {19, 164, 108, 164, 128, 18}, {20, 86, 32, 86, 50, 18}, {21, 112, 68, 112, 87, 19},
    {22, 142, 100, 158, 120, 20}, {23, 300, 242, 284, 264, 22}, {24, 104, 22, 104, 44, 22},
    {25, 152, 112, 152, 136, 24}, {26, 182, 82, 186, 112, 24}, {27, 164, 110, 164, 125, 25},
    {28, 150, 72, 150, 98, 26}, {29, 306, 210, 306, 238, 28}, {30, 158, 68, 158, 94, 26},
    {31, 316, 192, 316, 224, 30}, {32, 158, 44, 156, 72, 30}, {33, 244, 172, 268, 203, 31},
    {34, 266, 108, 266, 136, 28}, {35, 228, 146, 228, 180, 34}, {36, 198, 80, 198, 106, 34},
    {37, 400, 228, 402, 272, 36}, {38, 366, 216, 366, 256, 36}, {39, 310, 149, 308, 180, 38},
    {40, 220, 74, 220, 112, 38}, {41, 444, 242, 444, 282, 40}, {42, 266, 136, 266, 176, 40},
    {43, 532, 352, 532, 394, 42}, {44, 326, 200, 358, 242, 42}, {45, 300, 172, 300, 206, 44},
    {46, 646, 484, 614, 528, 44}, {47, 1260, 1058, 1260, 1104, 46}, {48, 266, 68, 270, 118, 46},
    {49, 408, 324, 408, 372, 48}, {50, 354, 224, 354, 272, 48}, {51, 448, 196, 448, 245, 49},
    {52, 414, 164, 414, 210, 50}, {53, 844, 456, 840, 502, 52}, {54, 382, 220, 382, 250, 50},
    {55, 472, 338, 512, 392, 54}, {56, 368, 158, 368, 212, 54}, {57, 604, 362, 604, 423, 55},
    {58, 670, 420, 670, 476, 56}, {59, 1340, 954, 1340, 1012, 58}, {60, 374, 136, 374, 194, 58},
    {61, 762, 415, 762, 478, 60}, {62, 694, 384, 694, 448, 60}, {63, 488, 302, 488, 361, 61},
    {64, 398, 132, 400, 196, 62},
};

// The Hartley transform: whether the first level is the pairs x[j] +- x[N-j] of every input but
// x[0] and x[N/2] (P) or as forward (F); which outputs end in one butterfly, sum and difference of
// one pair of values: the mirror pairs k, N - k but k = 0 and N/2 (Y), the halves k, k + N/2 (H),
// the cross pairs of a Good-Thomas a x b (X: k' = k mod b, k' = -k mod a, for k not a multiple of
// a), or neither of the first two (O); then additions (subtractions included) and products.
enum class Ends { Mirror, Halves, Cross, Other };
struct HartleyRow {
    int n;
    bool pairs;
    Ends ends;
    int cross_a;
    int additions, products;
};

constexpr bool P = true, F = false;
constexpr Ends Y = Ends::Mirror, H = Ends::Halves, X = Ends::Cross, O = Ends::Other;
constexpr HartleyRow kHartleyTable[] = {
    {2, P, Y, 0, 2, 0}, {3, P, Y, 0, 6, 2}, {4, P, Y, 0, 8, 0}, {5, P, Y, 0, 16, 8}, {6, P, Y, 0, 18, 4},
    {7, P, Y, 0, 30, 18}, {8, F, Y, 0, 26, 2}, {9, F, Y, 0, 40, 20}, {10, P, Y, 0, 42, 16},
    {11, P, Y, 0, 70, 50}, {12, P, H, 0, 48, 8}, {13, P, Y, 0, 92, 44}, {14, P, Y, 0, 74, 36},
    {15, P, X, 5, 78, 34}, {16, F, Y, 0, 72, 12}, {17, P, Y, 0, 132, 54}, {18, P, O, 0, 98, 36},
    {19, F, Y, 0, 182, 108}, {20, P, H, 0, 104, 32}, {21, F, Y, 0, 132, 68}, {22, F, Y, 0, 162, 100},
    {23, P, Y, 0, 306, 242}, {24, F, Y, 0, 126, 22}, {25, P, O, 0, 176, 112}, {26, F, Y, 0, 206, 82},
    {27, P, O, 0, 190, 100}, {28, P, X, 7, 176, 72}, {29, F, Y, 0, 334, 210}, {30, P, H, 0, 186, 68},
    {31, P, O, 0, 346, 194}, {32, P, H, 0, 186, 42}, {33, P, O, 0, 300, 172}, {34, P, H, 0, 298, 108},
    {35, P, X, 7, 262, 146}, {36, P, O, 0, 232, 72}, {37, P, Y, 0, 438, 236}, {38, F, Y, 0, 402, 216},
    {39, F, Y, 0, 348, 149}, {40, P, H, 0, 258, 74}, {41, F, Y, 0, 484, 242}, {42, P, X, 7, 306, 136},
    {43, P, O, 0, 574, 352}, {44, P, O, 0, 400, 200}, {45, P, O, 0, 344, 162}, {46, P, H, 0, 658, 484},
    {47, F, Y, 0, 1306, 1058}, {48, P, X, 3, 316, 72}, {49, F, Y, 0, 456, 324}, {50, F, Y, 0, 402, 224},
    {51, P, X, 17, 498, 196}, {52, F, Y, 0, 464, 164}, {53, P, Y, 0, 892, 450}, {54, P, H, 0, 434, 200},
    {55, P, O, 0, 566, 338}, {56, P, X, 7, 422, 158}, {57, F, Y, 0, 660, 362}, {58, F, Y, 0, 726, 420},
    {59, F, Y, 0, 1398, 954}, {60, P, X, 5, 432, 136}, {61, F, Y, 0, 822, 415}, {62, P, H, 0, 754, 388},
    {63, F, Y, 0, 550, 302}, {64, P, H, 0, 462, 134},
};

// manifest.csv: n,body,"rule",additions,subtractions,products,constants
std::map<std::pair<int, std::string>, Counts> read_manifest(const std::string& family)
{
    std::map<std::pair<int, std::string>, Counts> rows;
    std::ifstream file(ZPTG_GENERATED "/" + family + "/manifest.csv");
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        Counts c{};
        int n = 0;
        char body[16] = {};
        std::sscanf(line.c_str(), "%d,%15[a-z_]", &n, body);
        std::sscanf(line.c_str() + line.rfind('"') + 2, "%d,%d,%d,%d", &c[0], &c[1], &c[2], &c[3]);
        rows[{n, body}] = c;
    }
    EXPECT_FALSE(rows.empty()) << family;
    return rows;
}

bool is_prime(int n)
{
    for (int d = 2; d * d <= n; ++d)
        if (n % d == 0) return false;
    return true;
}

// The values a constant of length n may take, none given for a length with a Rader stage: the
// doubles nearest to |cos| and |sin| of 2 pi k / n, to twice those (a doubling taken in), and where
// 3 divides n to sin(pi / 3) times those (a 3-point stage's factor taken in).
std::set<double> nearest(int n)
{
    std::set<double> v;
    for (int p = 11; p <= n; ++p)
        if (is_prime(p) && n % p == 0) return {};
    for (int k = 0; k < n; ++k)
        for (long double f : {1.0L, 2.0L, n % 3 ? 1.0L : sin_pi(1, 3)})
            v.insert({rounded<double>(f * std::fabs(cos_pi(2 * k, n))), rounded<double>(f * std::fabs(sin_pi(2 * k, n)))});
    return v;
}

// The checks of every body, on `slots` positions of which the layout reads `read` and writes
// `written`.
TapeSummary check_body(const Tape& tape, const std::vector<bool>& read, const std::vector<bool>& written,
                       const Counts& manifest, int n)
{
    const int slots = 2 * n + 2;
    const TapeSummary s = summarize(tape, slots);
    EXPECT_EQ(s.fault, "");
    for (int p = 0; p < slots; ++p) {
        EXPECT_EQ(s.reads[p], p < int(read.size()) && read[p] ? 1 : 0) << "reads of position " << p;
        EXPECT_EQ(s.stores[p], p < int(written.size()) && written[p] ? 1 : 0) << "stores of position " << p;
    }
    EXPECT_LT(s.last_read, s.first_store) << "a read after the first store";
    EXPECT_GE(s.first_store, 0);
    EXPECT_EQ(s.scale_products, int(std::count(written.begin(), written.end(), true)) - s.zeros);
    EXPECT_EQ(s.held, s.counts[3]) << "a constant held more than once";
    EXPECT_EQ(s.counts, manifest) << "against the manifest";
    const std::set<double> allowed = nearest(n);
    for (double c : s.constants)
        EXPECT_TRUE(allowed.empty() || allowed.count(c)) << c << " is not a nearest |cos| or |sin| of 2 pi k/" << n;
    return s;
}

// Is some value of the tape the plain sum of the real parts of these elements (one stage's
// transform of the input map)?
bool has_plain_sum(const Tape& tape, const std::vector<int>& elements)
{
    std::bitset<128> wanted;
    for (int e : elements) wanted.set(size_t(2 * e));
    std::vector<std::bitset<128>> sums(tape.size());  // the input slots each value sums
    for (size_t i = 0; i < tape.size(); ++i) {
        const Step& t = tape[i];
        if (t.op == Op::Input) sums[i].set(size_t(t.slot));
        if (t.op == Op::Add && sums[t.a].any() && sums[t.b].any() && (sums[t.a] & sums[t.b]).none())
            sums[i] = sums[t.a] | sums[t.b];
        if (sums[i] == wanted) return true;
    }
    return false;
}

// Is value v, stored at `slot` (0 or 1: X[0]), the sum of the other elements with x[0] added last?
bool x0_added_last(const Tape& tape, int v, int slot)
{
    const auto reads = [&](int p) { return tape[p].op == Op::Input && tape[p].slot == slot; };
    const Step& last = tape.at(v);
    return last.op == Op::Add && reads(last.a) != reads(last.b) && tape[reads(last.a) ? last.b : last.a].op != Op::Input;
}

// The input maps of the table, seen in the first stage's sums: for 12 (4 by 3) the elements 0, 3,
// 6, 9 form one 4-point transform; for 26 (13 by 2) the even elements one 13-point stage; 10 (2 by
// 5) runs its butterflies first, 30 its 5-point transforms, 15 its 3-point ones.
const std::map<int, std::vector<int>> kStageSums = {
    {12, {0, 3, 6, 9}}, {26, {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24}},
    {10, {0, 5}}, {30, {0, 6, 12, 18, 24}}, {15, {0, 5, 10}}};

TEST(ComplexBody, EveryBody)
{
    const auto manifest = read_manifest("dft_complex");
    for (int n = 2; n <= 64; ++n) {
        Counts forward{};
        for (int inverse : {0, 1}) {
            SCOPED_TRACE(std::to_string(n) + (inverse ? " inverse" : " forward"));
            const Tape tape = record(bodies().complex[inverse][n]);
            const std::vector<bool> all(2 * n, true);
            const TapeSummary s = check_body(tape, all, all, manifest.at({n, inverse ? "inverse" : "forward"}), n);
            EXPECT_EQ(s.negations + s.zeros, 0) << "a sign flip or a literal zero in a complex body";
            for (int c = 0; c < 4; ++c) EXPECT_LE(s.counts[c], kComplexTable[n - 2][c]) << "column " << c;
            if (!inverse) forward = s.counts;
            EXPECT_EQ(s.counts, forward) << "against the forward body";
            EXPECT_TRUE(!kStageSums.count(n) || has_plain_sum(tape, kStageSums.at(n))) << "not the stage order";
            EXPECT_TRUE(n < 3 || !is_prime(n) || (x0_added_last(tape, s.stored[0], 0) && x0_added_last(tape, s.stored[1], 1)))
                << "X[0] is not (sum of the rest) + x[0]";
        }
    }
}

TEST(RealBody, EveryBody)
{
    const auto manifest = read_manifest("dft_real");
    const char* const names[] = {"ccs", "pack", "perm"};
    for (const RealRow& row : kRealTable) {
        const int n = row.n;
        for (int inverse : {0, 1})
            for (int p = 0; p < 3; ++p) {
                const std::string name = std::string(inverse ? "inverse_" : "forward_") + names[p];
                SCOPED_TRACE(name + " " + std::to_string(n));
                const Layout layout = Layout(int(inverse ? Layout::FromCcs : Layout::ToCcs) + p);
                std::vector<bool> plain(n, true), holding(n + 2 - n % 2, false);
                for (int k = 0; 2 * k <= n; ++k)
                    for (bool im : {false, true})
                        if (packed_position(layout, n, k, im) >= 0) holding[packed_position(layout, n, k, im)] = true;
                const std::vector<bool> spectrum = inverse ? holding : std::vector<bool>(p == 0 ? holding.size() : n, true);
                const TapeSummary s = check_body(record(bodies().real[inverse][p][n]), inverse ? spectrum : plain,
                                                 inverse ? plain : spectrum, manifest.at({n, name}), n);
                EXPECT_EQ(s.zeros, !inverse && p == 0 ? 2 - n % 2 : 0);
                EXPECT_TRUE(!inverse || s.negations == 0);
                EXPECT_LE(s.counts[0] + s.counts[1], inverse ? row.inverse_additions : row.forward_additions);
                EXPECT_LE(s.counts[2], inverse ? row.inverse_products : row.forward_products);
                EXPECT_EQ(s.doublings, inverse ? row.doublings : 0);
            }
    }
}

// Whether each input x[j] but x[0] and x[n/2] is first met in x[j] +- x[n-j] (and in nothing else).
bool starts_from_pairs(const Tape& tape, int n)
{
    const auto slot = [&](int i) { return i >= 0 && tape[i].op == Op::Input ? tape[i].slot : -1; };
    for (const Step& t : tape)
        for (int operand : {t.a, t.b})
            if (const int j = slot(operand); j > 0 && 2 * j != n &&
                ((t.op != Op::Add && t.op != Op::Sub) || slot(operand == t.a ? t.b : t.a) != n - j))
                return false;
    return true;
}

// Whether every output ends in a butterfly, its pairs those of the row.
bool ends_as(const Tape& tape, const std::vector<int>& value, const HartleyRow& row)
{
    const int n = row.n;
    for (int v : value)
        if (v < 0 || (tape[v].op != Op::Add && tape[v].op != Op::Sub)) return false;
    std::vector<int> partner(n, -1);  // the output whose last step is the other of the butterfly
    for (int k = 0; k < n; ++k)
        for (int j = 0; j < n; ++j) {
            const Step &a = tape[value[k]], &b = tape[value[j]];
            if (j != k && a.op != b.op && std::minmax(a.a, a.b) == std::minmax(b.a, b.b)) partner[k] = j;
        }
    const auto pairs_all = [&](auto pair_of) {
        for (int k = 0; k < n; ++k)
            if (const int j = pair_of(k); j >= 0 && partner[k] != j) return false;
        return true;
    };
    const bool mirror = pairs_all([&](int k) { return 2 * k % n ? n - k : -1; });
    const bool halves = n % 2 == 0 && pairs_all([&](int k) { return (k + n / 2) % n; });
    switch (row.ends) {
    case Ends::Mirror: return mirror;
    case Ends::Halves: return halves;
    case Ends::Cross:
        return pairs_all([&](int k) {
            const int a = row.cross_a, b = n / a;
            for (int j = 0; j < n; ++j)
                if (k % a && j % b == k % b && (j + k) % a == 0) return j;
            return -1;
        });
    case Ends::Other: return !mirror && !halves;
    }
    return false;
}

TEST(HartleyBody, EveryBody)
{
    const auto manifest = read_manifest("hartley");
    for (const HartleyRow& row : kHartleyTable) {
        const int n = row.n;
        SCOPED_TRACE("length " + std::to_string(n));
        const Tape tape = record(bodies().hartley[n]);
        const std::vector<bool> plain(n, true);
        const TapeSummary s = check_body(tape, plain, plain, manifest.at({n, "hartley"}), n);
        EXPECT_EQ(s.negations + s.zeros, 0);
        EXPECT_LE(s.counts[0] + s.counts[1], row.additions);
        EXPECT_LE(s.counts[2], row.products);
        EXPECT_TRUE(!row.pairs || starts_from_pairs(tape, n)) << "not from the pairs";
        EXPECT_TRUE(ends_as(tape, std::vector<int>(s.stored.begin(), s.stored.begin() + n), row)) << "not the table's ends";
    }
}

}  // namespace
}  // namespace zptg::test
