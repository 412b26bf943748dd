// Interleaved timing: calibration of the batch length, the rounds, and the
// medians; plus the clocks (monotonic ns, TSC) and an estimate of the core
// clock from a dependent chain of integer additions.
#include "timing.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <x86intrin.h>

namespace zptg::bench {

double now_ns()
{
    timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return double(t.tv_sec) * 1e9 + double(t.tv_nsec);
}

std::uint64_t ticks() { return __rdtsc(); }

double quantile(std::vector<double> v, double q)
{
    if (v.empty()) return 0;
    std::sort(v.begin(), v.end());
    const double pos = q * double(v.size() - 1);
    const size_t lo = size_t(pos);
    const size_t hi = std::min(lo + 1, v.size() - 1);
    return v[lo] + (v[hi] - v[lo]) * (pos - double(lo));
}

double median(std::vector<double> v) { return quantile(std::move(v), 0.5); }

namespace {

double relative_iqr(const std::vector<double>& v)
{
    const double m = median(v);
    return m > 0 ? (quantile(v, 0.75) - quantile(v, 0.25)) / m : 0;
}

// Calls per batch so that one batch of this subject lasts about target_ns.
long calibrate(Subject& s, double target_ns)
{
    long calls = 1;
    for (;;) {
        const double t0 = now_ns();
        s.run(calls);
        const double dt = now_ns() - t0;
        if (dt > target_ns / 8 || calls > (1L << 28)) {
            const double per_call = std::max(dt / double(calls), 0.05);
            return std::max(1L, long(target_ns / per_call));
        }
        calls *= 4;
    }
}

}  // namespace

Race::Race(std::vector<Subject*> subjects, const TimingPlan& plan)
    : subjects_(std::move(subjects)), ns_(subjects_.size()), ticks_(subjects_.size()),
      ratio_(subjects_.size())
{
    for (Subject* s : subjects_) {
        s->run(plan.warm_calls);
        calls_.push_back(calibrate(*s, plan.batch_ns));
    }
}

void Race::run_rounds(int rounds)
{
    const size_t k = subjects_.size();
    std::vector<double> round_ns(k);
    for (int r = 0; r < rounds; ++r) {
        for (size_t i = 0; i < k; ++i) {
            const std::uint64_t c0 = ticks();
            const double t0 = now_ns();
            subjects_[i]->run(calls_[i]);
            const double t1 = now_ns();
            const std::uint64_t c1 = ticks();
            round_ns[i] = (t1 - t0) / double(calls_[i]);
            ns_[i].push_back(round_ns[i]);
            ticks_[i].push_back(double(c1 - c0) / double(calls_[i]));
        }
        for (size_t i = 0; i < k; ++i) ratio_[i].push_back(round_ns[0] / round_ns[i]);
    }
}

Comparison Race::result() const
{
    Comparison c;
    for (size_t i = 0; i < subjects_.size(); ++i) {
        c.subjects.push_back({median(ns_[i]), median(ticks_[i]), relative_iqr(ns_[i])});
        c.ratios.push_back(median(ratio_[i]));
        c.ratio_spreads.push_back(relative_iqr(ratio_[i]));
    }
    return c;
}

Comparison compare(const std::vector<Subject*>& subjects, const TimingPlan& plan)
{
    Race race(subjects, plan);
    race.run_rounds(plan.rounds);
    return race.result();
}

void run_passes(std::vector<Race>& races, const TimingPlan& plan)
{
    const int passes = std::max(1, plan.passes);
    for (int p = 0; p < passes; ++p) {
        // Rounds of this pass: the total spread evenly over the passes.
        const int rounds = (plan.rounds * (p + 1)) / passes - (plan.rounds * p) / passes;
        for (Race& r : races) r.run_rounds(rounds);
    }
}

double tsc_ghz()
{
    const double t0 = now_ns();
    const std::uint64_t c0 = ticks();
    double t1 = t0;
    while (t1 - t0 < 2e7) t1 = now_ns();
    return double(ticks() - c0) / (t1 - t0);
}

namespace {

// 256 dependent additions per trip: the loop's own two instructions run
// alongside the chain, so a trip costs 256 core cycles. The addend is a
// register, not an immediate: some cores fold chains of immediate additions
// (seen in 32-bit code), which would make the clock look several times faster.
__attribute__((noinline)) unsigned add_chain(unsigned trips, unsigned one)
{
    unsigned v = 0;
    for (unsigned i = 0; i < trips; ++i) {
#define ZPTG_ADD4 "addl %1, %0\n\taddl %1, %0\n\taddl %1, %0\n\taddl %1, %0\n\t"
#define ZPTG_ADD32 ZPTG_ADD4 ZPTG_ADD4 ZPTG_ADD4 ZPTG_ADD4 ZPTG_ADD4 ZPTG_ADD4 ZPTG_ADD4 ZPTG_ADD4
        __asm__ volatile(ZPTG_ADD32 ZPTG_ADD32 ZPTG_ADD32 ZPTG_ADD32 ZPTG_ADD32 ZPTG_ADD32
                             ZPTG_ADD32 ZPTG_ADD32
                         : "+r"(v)
                         : "r"(one));
#undef ZPTG_ADD32
#undef ZPTG_ADD4
    }
    return v;
}

}  // namespace

double core_ghz()
{
    const unsigned trips = 8000;  // about 2 million cycles
    double best = 0;
    for (int i = 0; i < 41; ++i) {
        const double t0 = now_ns();
        add_chain(trips, 1);
        // A disturbed sample can only come out slower: keep the fastest.
        best = std::max(best, 256.0 * trips / (now_ns() - t0));
    }
    return best;
}

}  // namespace zptg::bench
