// Google Benchmark registration of the complex kernels (ours/<kind>/<dir>/N)
// and of FFTW's scalar plans (fftw_scalar/<kind>/<dir>/N). Filter with
// --benchmark_filter, e.g. 'ours/64fc/forward/(8|32|64)$'.
#include "gbench.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench.h"
#include "complex_members.h"

namespace {

using namespace zptg::bench;

template <class E>
void register_member(const ComplexMember<E>& m)
{
    using R = RealOf<E>;
    for (int n = 2; n <= 64; ++n) {
        const std::string suffix =
            std::string(m.kind) + "/" + m.direction + "/" + std::to_string(n);
        // Arrays and plans live until the program ends.
        auto* src = new std::vector<E>(n);
        auto* dst = new std::vector<E>(n);
        fill_random(&(*src)[0].re, 2L * n, unsigned(n));
        const auto kernel = m.kernels[n - 2];
        benchmark::RegisterBenchmark(("ours/" + suffix).c_str(), [=](benchmark::State& st) {
            for (auto _ : st) {
                kernel(src->data(), dst->data(), zptgScaleNone);
                benchmark::ClobberMemory();
            }
        });
        const int sign = m.sign;
        benchmark::RegisterBenchmark(("fftw_scalar/" + suffix).c_str(), [=](benchmark::State& st) {
            const PlannedDft<R> dft(n, sign, kFftwScalar);
            fill_random(&dft.in[0][0], 2L * n, unsigned(n));
            for (auto _ : st) {
                Fftw<R>::execute(dft.plan);
                benchmark::ClobberMemory();
            }
        });
    }
}

}  // namespace

int run_gbench(int argc, char** argv)
{
    for (const auto& m : kMembers32) register_member(m);
    for (const auto& m : kMembers64) register_member(m);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
