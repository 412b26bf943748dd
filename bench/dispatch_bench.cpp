// The dispatchers against the kernels they call: the same transform through
// zptgDFTFwd_CToC_64fc(src, dst, N, flag) and through the kernel of length N
// directly, interleaved; the difference is the cost of the size test and
// the jump through the table.
#include <cstdio>
#include <memory>
#include <vector>

#include "bench.h"
#include "complex_members.h"
#include "report.h"

namespace zptg::bench {
namespace {

template <class E>
struct Case {
    Case(const ComplexMember<E>& member, int length)
        : m(member), n(length), src(n), dst(n), kernel(m.kernels[n - 2], src.data(), dst.data()),
          dispatcher(m.dispatcher, n, src.data(), dst.data())
    {
        fill_random(&src[0].re, 2L * n, unsigned(n));
    }
    const ComplexMember<E>& m;
    int n;
    std::vector<E> src, dst;
    KernelSubject<E> kernel;
    DispatcherSubject<E> dispatcher;
};

template <class E, size_t M>
void time_kind(const Settings& s, const ComplexMember<E> (&members)[M], Table& table)
{
    const int last = s.quick ? 16 : 64;
    std::vector<std::unique_ptr<Case<E>>> cases;
    std::vector<Race> races;
    for (const auto& m : members)
        for (int n = 2; n <= last; ++n) {
            cases.push_back(std::make_unique<Case<E>>(m, n));
            races.emplace_back(std::vector<Subject*>{&cases.back()->dispatcher, &cases.back()->kernel},
                               s.plan);
        }
    run_passes(races, s.plan);
    for (size_t i = 0; i < cases.size(); ++i) {
        const Comparison c = races[i].result();
        table.row();
        table.cell(std::string(cases[i]->m.stem) + "_" + cases[i]->m.kind);
        table.cell(long(cases[i]->n));
        table.cell(c.subjects[1].ns, 2);
        table.cell(c.subjects[0].ns, 2);
        table.cell(c.subjects[0].ns - c.subjects[1].ns, 2);
        table.cell(c.ratios[1], 3);
        table.cell(100 * c.ratio_spreads[1], 1);
    }
}

}  // namespace

void bench_dispatchers(const Settings& s)
{
    Table table("dispatch",
                "Dispatchers against the kernels they call (" + s.configuration +
                    " build): ns per call; ratio = dispatcher / kernel, median of per-round "
                    "ratios",
                {"dispatcher", "n", "kernel_ns", "dispatcher_ns", "extra_ns", "ratio",
                 "ratio_spread_%"});
    time_kind(s, kMembers32, table);
    time_kind(s, kMembers64, table);
    table.print(stdout);
    table.write(s.out_dir);
    Panel p{"dispatcher / kernel (median of per-round ratios)", "N", "ratio", false, false, 1, {}};
    for (const auto& m : kMembers32) {
        const std::string d = std::string(m.stem) + "_" + m.kind;
        p.series.push_back({d, "n", "ratio", {{"dispatcher", d}}});
    }
    for (const auto& m : kMembers64) {
        const std::string d = std::string(m.stem) + "_" + m.kind;
        p.series.push_back({d, "n", "ratio", {{"dispatcher", d}}});
    }
    write_plot(s.out_dir, table, "dispatch", {p}, 1);
}

}  // namespace zptg::bench
