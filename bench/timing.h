// Interleaved timing of a few competing subjects (ours and its peers).
//
// Each subject runs its own loop of calls in one batch; a round times one
// batch of every subject in turn (A B C, A B C, ...), so a slow spell of the
// shared machine hits all of them alike. Per subject we keep the time per
// call of every round (wall-clock ns and time-stamp-counter ticks) and the
// per-round ratio of the first subject to each other one, from which
// medians and spreads are taken.
#ifndef ZPTG_BENCH_TIMING_H
#define ZPTG_BENCH_TIMING_H

#include <cstdint>
#include <string>
#include <vector>

namespace zptg::bench {

// Something to time: run() performs `calls` calls of the timed operation on
// warm data. Implementations keep the call out of the compiler's sight (a
// function in a shared library, or through a pointer the compiler cannot
// follow).
class Subject {
public:
    virtual ~Subject() = default;
    virtual void run(long calls) = 0;
};

// How long and how often to measure.
struct TimingPlan {
    int rounds = 45;             // interleaved rounds per comparison, over all passes
    int passes = 5;              // sweeps over a family's sizes (see run_passes)
    double batch_ns = 100000.0;  // target length of one batch
    int warm_calls = 64;         // untimed calls before calibration
};

// Robust summary of one subject's per-round samples.
struct Summary {
    double ns = 0;        // median ns per call
    double ticks = 0;     // median TSC ticks per call
    double spread = 0;    // interquartile range of ns per call, relative to the median
};

struct Comparison {
    std::vector<Summary> subjects;  // in the order given
    // ratios[i]: median over rounds of subject 0's time over subject i's in
    // the same round (so ratios[0] == 1: with ours first, ours/peer), and
    // the interquartile range of those per-round ratios, relative.
    std::vector<double> ratios;
    std::vector<double> ratio_spreads;
};

// One comparison in progress: the subjects, their calls per batch (each
// scaled to its own speed, calibrated once) and the samples so far.
class Race {
public:
    Race(std::vector<Subject*> subjects, const TimingPlan& plan);
    void run_rounds(int rounds);
    Comparison result() const;

private:
    std::vector<Subject*> subjects_;
    std::vector<long> calls_;
    std::vector<std::vector<double>> ns_, ticks_, ratio_;
};

// Times the subjects interleaved in one go: plan.rounds rounds.
Comparison compare(const std::vector<Subject*>& subjects, const TimingPlan& plan);

// Times many comparisons in plan.passes sweeps over all of them, each sweep
// adding its share of the rounds to every race: a slow spell of the shared
// machine then falls on a few rounds of many sizes rather than on all the
// rounds of a few.
void run_passes(std::vector<Race>& races, const TimingPlan& plan);

// Monotonic clock in ns, and the time-stamp counter.
double now_ns();
std::uint64_t ticks();

// TSC ticks per ns, measured over a short sleep-free busy interval.
double tsc_ghz();
// The core's clock in GHz, from a chain of dependent integer additions (one
// cycle each on every x86 core): the TSC runs at a fixed rate that need not
// be the core's.
double core_ghz();

double median(std::vector<double> v);
double quantile(std::vector<double> v, double q);

}  // namespace zptg::bench

#endif
