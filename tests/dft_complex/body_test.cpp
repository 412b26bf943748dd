// The generated bodies as they ship, run once on Symbol (the 32fc and 64fc kernels of a direction
// run the same body, so one tape stands for both):
// - shape and order: each input slot read once, all reads before the first store; each output slot
//   stored once, as the product of the scale and a computed value, that product the last operation
//   on the value; no sign flip, no literal zero; each constant held once (the rest of the contract
//   in support/tape.h);
// - counts against the rule table (above it in any column fails), forward
//   against inverse, and against the generator's manifest.csv;
// - constants: a length with no Rader stage holds only the doubles nearest
//   to cosines and sines of multiples of 2 pi / N;
// - the stage order of the table, and x[0] added last into X[0] of a prime.
#include <gtest/gtest.h>

#include <bitset>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <utility>

#include "dft_complex/bodies.h"
#include "support/reference.h"
#include "support/scale.h"
#include "support/tape.h"

namespace zptg::test {
namespace {

Tape record(int n, bool forward)
{
    static const Bodies bodies = collect_parts<Bodies, ZPTG_BODY_PARTS>([]<int P>(Bodies& b) { add_bodies<P>(b); });
    return record((forward ? bodies.forward : bodies.inverse)[n]);
}

// The rule table's cost of every length from 2 up (besides the 2N products with the scale and the
// scale itself).
constexpr Counts kTable[] = {
    {2, 2, 0, 0}, {6, 6, 4, 2}, {8, 8, 0, 0}, {18, 14, 16, 4}, {18, 18, 8, 2}, {30, 30, 36, 6},
    {26, 26, 4, 1}, {40, 40, 40, 8}, {46, 38, 32, 4}, {86, 70, 100, 14}, {48, 48, 16, 2}, {88, 88, 72, 18},
    {74, 74, 72, 6}, {84, 72, 68, 6}, {74, 74, 28, 3}, {132, 132, 108, 19}, {98, 98, 80, 8}, {182, 182, 220, 28},
    {112, 96, 64, 4}, {132, 132, 136, 8}, {190, 166, 200, 14}, {333, 311, 484, 46}, {126, 126, 44, 3}, {195, 157, 224, 20},
    {202, 202, 144, 18}, {190, 190, 220, 26}, {176, 176, 144, 6}, {316, 340, 396, 34}, {198, 174, 136, 6}, {366, 326, 384, 40},
    {188, 188, 88, 7}, {318, 282, 344, 16}, {298, 298, 216, 19}, {276, 248, 292, 10}, {232, 232, 160, 8}, {432, 432, 444, 46},
    {402, 402, 440, 28}, {342, 342, 268, 18}, {274, 242, 148, 5}, {494, 466, 452, 45}, {306, 306, 272, 8}, {571, 577, 708, 50},
    {424, 376, 400, 14}, {362, 326, 344, 12}, {718, 662, 968, 46}, {1243, 1369, 2116, 92}, {318, 318, 148, 5}, {451, 461, 648, 40},
    {438, 366, 448, 20}, {498, 498, 392, 21}, {456, 456, 288, 18}, {880, 880, 852, 72}, {434, 434, 440, 26}, {618, 514, 676, 14},
    {422, 422, 316, 7}, {660, 660, 736, 28}, {694, 734, 792, 34}, {1325, 1471, 1908, 92}, {456, 408, 272, 6}, {840, 776, 780, 66},
    {800, 708, 768, 40}, {550, 550, 604, 14}, {464, 464, 248, 15},
};

bool is_prime(int n)
{
    for (int d = 2; d * d <= n; ++d)
        if (n % d == 0) return false;
    return true;
}

// manifest.csv: n,direction,"rule",additions,subtractions,products,constants
std::map<std::pair<int, std::string>, Counts> read_manifest()
{
    std::map<std::pair<int, std::string>, Counts> rows;
    std::ifstream file(ZPTG_COMPLEX_MANIFEST);
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        Counts c{};
        int n = 0;
        char dir[8] = {};
        std::sscanf(line.c_str(), "%d,%7[a-z]", &n, dir);
        std::sscanf(line.c_str() + line.rfind('"') + 2, "%d,%d,%d,%d", &c[0], &c[1], &c[2], &c[3]);
        rows[{n, dir}] = c;
    }
    return rows;
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

// Is X[0] (slot 0 or 1) the sum of the other elements with x[0] added last?
bool x0_added_last(const Tape& tape, int slot)
{
    int stored = -1;
    for (const Step& s : tape)
        if (s.op == Op::Store && s.slot == slot) stored = s.a;
    const Step& product = tape.at(stored);
    const Step& last = tape[tape[product.a].op == Op::Scale ? product.b : product.a];
    const auto reads = [&](int p) { return tape[p].op == Op::Input && tape[p].slot == slot; };
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
    const auto manifest = read_manifest();
    ASSERT_EQ(manifest.size(), 126u) << ZPTG_COMPLEX_MANIFEST;
    for (int n = 2; n <= 64; ++n) {
        bool rader = false;
        for (int p = 11; p <= n; ++p) rader = rader || (is_prime(p) && n % p == 0);
        std::set<double> nearest;
        for (int k = 0; k < n; ++k) {
            nearest.insert(rounded<double>(std::fabs(cos_pi(2 * k, n))));
            nearest.insert(rounded<double>(std::fabs(sin_pi(2 * k, n))));
        }
        Counts forward{};
        for (const char* dir : {"forward", "inverse"}) {
            SCOPED_TRACE(std::to_string(n) + " " + dir);
            const Tape tape = record(n, dir[0] == 'f');
            const TapeSummary s = summarize(tape, 2 * n);
            EXPECT_EQ(s.fault, "");
            EXPECT_EQ(s.reads, std::vector<int>(2 * n, 1));
            EXPECT_EQ(s.stores, std::vector<int>(2 * n, 1));
            EXPECT_LT(s.last_read, s.first_store) << "a read after the first store";
            EXPECT_EQ(s.scale_products, 2 * n);
            EXPECT_EQ(s.negations + s.zeros, 0) << "a sign flip or a literal zero in a complex body";
            EXPECT_EQ(s.held, s.counts[3]) << "a constant held more than once";
            for (int c = 0; c < 4; ++c) EXPECT_LE(s.counts[c], kTable[n - 2][c]) << "column " << c;
            if (dir[0] == 'f') forward = s.counts;
            EXPECT_EQ(s.counts, forward) << "against the forward body";
            EXPECT_EQ(s.counts, manifest.at({n, dir})) << "against the manifest";
            for (double c : s.constants)
                EXPECT_TRUE(rader || nearest.count(c)) << c << " is not a nearest |cos| or |sin| of 2 pi k/" << n;
            EXPECT_TRUE(!kStageSums.count(n) || has_plain_sum(tape, kStageSums.at(n))) << "not the stage order";
            EXPECT_TRUE(n < 3 || !is_prime(n) || (x0_added_last(tape, 0) && x0_added_last(tape, 1)))
                << "X[0] is not (sum of the rest) + x[0]";
        }
    }
}

}  // namespace
}  // namespace zptg::test
