// The generated bodies as they ship, instantiated with a symbolic element
// type that records every operation (the 32fc and 64fc kernels of a
// direction run the same body, so one tape stands for both):
// - shape and order: each input slot read once, all reads before the first
//   store; each output slot stored once, as the product of the scale and a
//   computed value, that product the last operation on the value; only sums,
//   differences and products of a constant with a value; each constant a
//   positive magnitude held once; nothing computed for nothing;
// - counts: additions, subtractions, products with constants and distinct
//   constants, against the rule table (above it in any column fails; rows
//   that differ are printed), forward against inverse, and against the
//   generator's manifest.csv;
// - constants: a length with no Rader stage holds only cosines and sines of
//   multiples of 2 pi / N, each the double nearest to its exact value;
// - the stage order of the table, seen in the first stage's sums, and x[0]
//   added last into X[0] of a prime length.
#include <gtest/gtest.h>

#include <bitset>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <initializer_list>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>

#include "dft_complex/exact_dft.h"
#include "dft_complex/rule_counts.h"
#include "dft_complex/stated_scale.h"
#include "dft_complex/tape_analysis.h"

namespace zptg::test {
namespace {

bool is_prime(int n)
{
    for (int d = 2; d * d <= n; ++d)
        if (n % d == 0) return false;
    return n >= 2;
}

struct Counted {
    int additions, subtractions, products, constants;
    bool operator==(const Counted&) const = default;
};

std::string text(const Counted& c)
{
    std::ostringstream s;
    s << c.additions << "/" << c.subtractions << "/" << c.products << "/" << c.constants;
    return s.str();
}

// manifest.csv: n,direction,"rule",additions,subtractions,products,constants
std::map<std::pair<int, std::string>, Counted> read_manifest(std::string* error)
{
    std::map<std::pair<int, std::string>, Counted> rows;
    std::ifstream file(ZPTG_COMPLEX_MANIFEST);
    if (!file) {
        *error = "cannot read " ZPTG_COMPLEX_MANIFEST;
        return rows;
    }
    std::string line;
    std::getline(file, line);  // the heading
    while (std::getline(file, line)) {
        const size_t first = line.find(','), second = line.find(',', first + 1);
        const size_t counts = line.rfind('"');
        Counted c{};
        char comma = 0;
        std::istringstream tail(line.substr(counts + 2));
        tail >> c.additions >> comma >> c.subtractions >> comma >> c.products >> comma >> c.constants;
        if (first == std::string::npos || second == std::string::npos || counts == std::string::npos ||
            !tail) {
            *error = "malformed line: " + line;
            return rows;
        }
        rows[{std::stoi(line.substr(0, first)), line.substr(first + 1, second - first - 1)}] = c;
    }
    return rows;
}

TEST(ComplexBody, ShapeAndOrderOfEveryBody)
{
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            SCOPED_TRACE("length " + std::to_string(n) + " " + dir_name(d));
            const TapeSummary s = summarize(record(n, d), n);
            for (const std::string& f : s.faults) ADD_FAILURE() << f;
            EXPECT_EQ(s.constants_held, int(s.constants.size())) << "a constant held more than once";
            for (int slot = 0; slot < 2 * n; ++slot) {
                EXPECT_EQ(s.reads[slot], 1) << "input slot " << slot << " read " << s.reads[slot] << " times";
                EXPECT_EQ(s.stores[slot], 1) << "output slot " << slot << " stored " << s.stores[slot] << " times";
            }
            ASSERT_GE(s.first_store, 0) << "no store";
            EXPECT_LT(s.last_read, s.first_store) << "a read after the first store";
            EXPECT_EQ(s.scale_products, 2 * n) << "products with the scale";
            EXPECT_EQ(s.negations + s.zeros, 0) << "a sign flip or a literal zero in a complex body";
        }
    }
}

TEST(ComplexBody, CountsAgainstTheTableTheOtherDirectionAndTheManifest)
{
    std::string error;
    const auto manifest = read_manifest(&error);
    ASSERT_TRUE(error.empty()) << error;
    EXPECT_EQ(manifest.size(), size_t(2 * (kMaxLength - kMinLength + 1)));
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        const RuleCounts& t = rule_counts(n);
        ASSERT_EQ(t.n, n);
        const Counted table{t.additions, t.subtractions, t.products, t.constants};
        Counted forward{};
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const std::string which = "length " + std::to_string(n) + " " + dir_name(d);
            const TapeSummary s = summarize(record(n, d), n);
            const Counted c{s.additions, s.subtractions, s.products, int(s.constants.size())};
            if (c != table) std::printf("%s: %s, the table %s\n", which.c_str(), text(c).c_str(), text(table).c_str());
            EXPECT_LE(c.additions, t.additions) << which;
            EXPECT_LE(c.subtractions, t.subtractions) << which;
            EXPECT_LE(c.products, t.products) << which;
            EXPECT_LE(c.constants, t.constants) << which;
            if (d == Dir::Forward) {
                forward = c;
            } else {
                EXPECT_EQ(text(c), text(forward)) << which << " against the forward body";
            }
            const auto row = manifest.find({n, dir_name(d)});
            ASSERT_NE(row, manifest.end()) << "no manifest line for " << which;
            EXPECT_EQ(text(c), text(row->second)) << which << ": the body against the manifest";
        }
    }
}

TEST(ComplexBody, LengthsWithoutRaderStagesHoldNearestCosines)
{
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        bool rader = false;
        for (int p = 11; p <= n; ++p) rader = rader || (is_prime(p) && n % p == 0);
        if (rader) continue;
        std::set<double> allowed;
        for (int k = 0; k < n; ++k) {
            const Exact w = unit_root(k, n);
            bool decided = true;
            allowed.insert(round_nearest<double>(std::fabs(w.re), &decided));
            allowed.insert(round_nearest<double>(std::fabs(w.im), &decided));
            ASSERT_TRUE(decided) << "cos and sin of 2 pi " << k << "/" << n;
        }
        for (Dir d : {Dir::Forward, Dir::Inverse})
            for (double c : summarize(record(n, d), n).constants)
                EXPECT_TRUE(allowed.count(c)) << "length " << n << " " << dir_name(d) << ": " << c
                                              << " is not the nearest |cos| or |sin| of 2 pi k/" << n;
    }
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
    for (int n = 3; n <= kMaxLength; ++n) {
        if (!is_prime(n)) continue;
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const Tape tape = record(n, d);
            for (int slot : {0, 1}) {
                int stored = -1;
                for (const Step& s : tape)
                    if (s.op == Op::Store && s.slot == slot) stored = s.a;
                ASSERT_GE(stored, 0);
                const Step& product = tape[stored];
                const Step& last = tape[tape[product.a].op == Op::Scale ? product.b : product.a];
                const auto reads = [&](int p, int want) { return tape[p].op == Op::Input && tape[p].slot == want; };
                EXPECT_TRUE(last.op == Op::Add && (reads(last.a, slot) != reads(last.b, slot)) &&
                            tape[reads(last.a, slot) ? last.b : last.a].op != Op::Input)
                    << "length " << n << " " << dir_name(d) << ", slot " << slot
                    << " of X[0] is not (sum of the rest) + x[0]";
            }
        }
    }
}

}  // namespace
}  // namespace zptg::test
