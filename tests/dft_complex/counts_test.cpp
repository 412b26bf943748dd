// Operation counts of the bodies that ship, measured on their Symbol tapes:
// additions, subtractions, products with constants and distinct constants
// of every length and direction, against the rule table (above it in any
// column is a failure; below it is listed, with the whole table printed),
// forward against inverse, and against the counts the generator itself
// writes to manifest.csv. The
// 32fc and 64fc kernels of a direction run the same body, so one tape
// stands for both.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "dft_complex/rule_counts.h"
#include "dft_complex/tape_analysis.h"

namespace zptg::test {
namespace {

struct Counted {
    int additions, subtractions, products, constants;
    bool operator==(const Counted&) const = default;
};

Counted measure(int n, Dir d)
{
    const TapeSummary s = summarize(record(n, d), n);
    return {s.additions, s.subtractions, s.products, int(s.constants.size())};
}

std::string text(const Counted& c)
{
    std::ostringstream s;
    s << c.additions << "/" << c.subtractions << "/" << c.products << "/" << c.constants;
    return s.str();
}

// Each column against the table: "name ours > table" for the ones above
// (or below, with below == true).
std::string compare(const Counted& c, const RuleCounts& t, bool below)
{
    const std::pair<const char*, std::pair<int, int>> columns[] = {
        {"additions", {c.additions, t.additions}},
        {"subtractions", {c.subtractions, t.subtractions}},
        {"products", {c.products, t.products}},
        {"constants", {c.constants, t.constants}},
    };
    std::string out;
    for (const auto& [name, v] : columns) {
        if (below ? v.first < v.second : v.first > v.second) {
            out += std::string(out.empty() ? "" : ", ") + name + " " + std::to_string(v.first) +
                   (below ? " < " : " > ") + std::to_string(v.second);
        }
    }
    return out;
}

TEST(ComplexCounts, NoLengthAboveTheRuleTable)
{
    std::printf("length  direction  measured add/sub/prod/const  table\n");
    std::vector<std::string> above, below;
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        const RuleCounts& t = rule_counts(n);
        ASSERT_EQ(t.n, n);
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const Counted c = measure(n, d);
            const Counted table{t.additions, t.subtractions, t.products, t.constants};
            std::printf("%6d  %-9s  %-26s  %s%s\n", n, dir_name(d), text(c).c_str(),
                        text(table).c_str(), c == table ? "" : "  (differs)");
            const std::string which = "length " + std::to_string(n) + " " + dir_name(d) + ": ";
            if (const std::string a = compare(c, t, false); !a.empty()) above.push_back(which + a);
            if (const std::string b = compare(c, t, true); !b.empty()) below.push_back(which + b);
        }
    }
    std::printf("below the table:%s\n", below.empty() ? " none" : "");
    for (const std::string& b : below) std::printf("  %s\n", b.c_str());
    for (const std::string& a : above) ADD_FAILURE() << "above the table: " << a;
}

TEST(ComplexCounts, ForwardAndInverseCostTheSame)
{
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        const Counted f = measure(n, Dir::Forward);
        const Counted i = measure(n, Dir::Inverse);
        EXPECT_TRUE(f == i) << "length " << n << ": forward " << text(f) << ", inverse " << text(i);
    }
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

TEST(ComplexCounts, AgreeWithTheGeneratorManifest)
{
    std::string error;
    const auto manifest = read_manifest(&error);
    ASSERT_TRUE(error.empty()) << error;
    EXPECT_EQ(manifest.size(), size_t(2 * (kMaxLength - kMinLength + 1)));
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const auto row = manifest.find({n, dir_name(d)});
            ASSERT_NE(row, manifest.end()) << "no manifest line for length " << n << " " << dir_name(d);
            const Counted c = measure(n, d);
            EXPECT_TRUE(c == row->second) << "length " << n << " " << dir_name(d) << ": the body counts "
                                      << text(c) << ", the manifest says " << text(row->second);
        }
    }
}

}  // namespace
}  // namespace zptg::test
