// The dispatchers against the kernels they call: the same transform through
// zptgDFTFwd_CToC_64fc(src, dst, N, flag) and through the kernel of length N
// directly, interleaved; the difference is the cost of the size test and
// the jump through the table.
#include <cstdio>
#include <vector>

#include "bench.h"
#include "complex_members.h"
#include "report.h"

namespace zptg::bench {
namespace {

template <class E>
void time_member(const Settings& s, const ComplexMember<E>& m, Table& table)
{
    const int last = s.quick ? 16 : 64;
    for (int n = 2; n <= last; ++n) {
        std::vector<E> src(n), dst(n);
        fill_random(&src[0].re, 2L * n, unsigned(n));
        KernelSubject<E> kernel(m.kernels[n - 2], src.data(), dst.data());
        DispatcherSubject<E> dispatcher(m.dispatcher, n, src.data(), dst.data());
        const Comparison c = compare({&dispatcher, &kernel}, s.plan);
        table.row();
        table.cell(std::string(m.stem) + "_" + m.kind);
        table.cell(long(n));
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
    for (const auto& m : kMembers32) time_member(s, m, table);
    for (const auto& m : kMembers64) time_member(s, m, table);
    table.print(stdout);
    table.write(s.out_dir);
    Panel p{"extra time of the dispatcher over the kernel", "N", "ns", false, false, 0, {}};
    for (const auto& m : kMembers32) {
        const std::string d = std::string(m.stem) + "_" + m.kind;
        p.series.push_back({d, "n", "extra_ns", {{"dispatcher", d}}});
    }
    for (const auto& m : kMembers64) {
        const std::string d = std::string(m.stem) + "_" + m.kind;
        p.series.push_back({d, "n", "extra_ns", {{"dispatcher", d}}});
    }
    write_plot(s.out_dir, table, "dispatch", {p}, 1);
}

}  // namespace zptg::bench
