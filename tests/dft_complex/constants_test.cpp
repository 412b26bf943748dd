// The constants the bodies hold, on their Symbol tapes. A Good-Thomas
// length has no twiddle, so it holds exactly the constants of its two
// stage sizes (60: those of 3 and 5; 63: those of 7 and 9; 24: 0.5,
// sin 60 and sin 45 degrees). A length with no Rader stage holds nothing
// but cosines and sines of multiples of 2 pi / N, each the double nearest
// to its exact value. A Rader length holds 1/L and sqrt(p)/L, L = p - 1.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <sstream>
#include <string>

#include "dft_complex/exact_dft.h"
#include "dft_complex/rule_counts.h"
#include "dft_complex/stated_scale.h"
#include "dft_complex/tape_analysis.h"

namespace zptg::test {
namespace {

std::set<double> constants_of(int n, Dir d) { return summarize(record(n, d), n).constants; }

std::string listed(const std::set<double>& values)
{
    std::ostringstream s;
    s.precision(17);
    for (double v : values) s << " " << v;
    return s.str();
}

bool is_prime(int n)
{
    for (int d = 2; d * d <= n; ++d)
        if (n % d == 0) return false;
    return n >= 2;
}

TEST(ComplexConstants, GoodThomasLengthsHoldOnlyTheConstantsOfTheirStages)
{
    for (const RuleCounts& t : kRuleCounts) {
        if (t.form != Form::GoodThomas) continue;
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            std::set<double> stages = constants_of(t.first, d);
            stages.merge(constants_of(t.second, d));
            const std::set<double> own = constants_of(t.n, d);
            EXPECT_EQ(own, stages) << "length " << t.n << " " << dir_name(d) << " holds" << listed(own)
                                   << "\nits stages " << t.first << " and " << t.second << " hold"
                                   << listed(stages);
        }
    }
}

TEST(ComplexConstants, LengthsWithoutRaderStagesHoldNearestCosines)
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
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            std::set<double> strays;
            for (double c : constants_of(n, d))
                if (!allowed.count(c)) strays.insert(c);
            EXPECT_TRUE(strays.empty()) << "length " << n << " " << dir_name(d)
                                        << ": not the nearest |cos| or |sin| of 2 pi k/" << n
                                        << ":" << listed(strays);
        }
    }
}

TEST(ComplexConstants, RaderLengthsHoldOneOverLAndRootPOverL)
{
    for (int p = 11; p <= kMaxLength; ++p) {
        if (!is_prime(p)) continue;
        const int l = p - 1;
        bool decided = true;
        const double inv_l = round_nearest<double>(1.0L / l, &decided);
        const double root_p = round_nearest<double>(std::sqrt((long double)p) / l, &decided);
        ASSERT_TRUE(decided) << p;
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const std::set<double> own = constants_of(p, d);
            EXPECT_TRUE(own.count(inv_l)) << "length " << p << " " << dir_name(d) << " lacks 1/" << l;
            EXPECT_TRUE(own.count(root_p)) << "length " << p << " " << dir_name(d) << " lacks sqrt(" << p
                                           << ")/" << l << " = " << root_p;
        }
    }
}

}  // namespace
}  // namespace zptg::test
