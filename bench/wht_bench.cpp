// The Walsh-Hadamard transform, orders 1..13, 32f and 64f, against the plain
// radix-2 loop; orders 8..13 once with a caller's buffer and once with a
// null one (the kernel then allocates for the call).
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench.h"
#include "report.h"
#include "wht_reference.h"
#include "zptgenpx.h"

namespace zptg::bench {
namespace {

template <class R>
struct WhtKind {
    using Direct = zptgStatus (*)(const R*, R*, int);
    using Blocked = zptgStatus (*)(const R*, R*, int, R*);
    using BufferSize = zptgStatus (*)(int, int*);
    const char* kind;
    Direct direct[7];    // orders 1 .. 7
    Blocked blocked[6];  // orders 8 .. 13
    BufferSize buffer_size;
};

// The kind's functions, looked up by name; false if any is not exported.
template <class R>
bool look_up(WhtKind<R>& k)
{
    const std::string kind = k.kind;
    bool all = true;
    for (int order = 1; order <= 13; ++order) {
        const std::string name = "zptgWHT_" + std::to_string(order) + "_" + kind;
        if (order <= 7)
            all &= (k.direct[order - 1] = library_function<typename WhtKind<R>::Direct>(name.c_str())) != nullptr;
        else
            all &= (k.blocked[order - 8] = library_function<typename WhtKind<R>::Blocked>(name.c_str())) != nullptr;
    }
    const std::string query = "zptgWHTGetBufferSize_" + kind;
    all &= (k.buffer_size = library_function<typename WhtKind<R>::BufferSize>(query.c_str())) != nullptr;
    return all;
}

template <class R>
class OursSubject : public Subject {
public:
    OursSubject(const WhtKind<R>& k, int order, const R* src, R* dst, R* buffer)
        : kind_(k), order_(order), src_(src), dst_(dst), buffer_(buffer)
    {
    }
    void run(long calls) override
    {
        if (order_ <= 7) {
            const auto f = kind_.direct[order_ - 1];
            for (long i = 0; i < calls; ++i) f(src_, dst_, zptgScaleNone);
        } else {
            const auto f = kind_.blocked[order_ - 8];
            for (long i = 0; i < calls; ++i) f(src_, dst_, zptgScaleNone, buffer_);
        }
    }

private:
    const WhtKind<R>& kind_;
    int order_;
    const R* src_;
    R* dst_;
    R* buffer_;
};

template <class R>
class LoopSubject : public Subject {
public:
    LoopSubject(int order, const R* src, R* dst) : order_(order), src_(src), dst_(dst) {}
    void run(long calls) override
    {
        void (*const f)(const R*, R*, int) = wht_loop;
        for (long i = 0; i < calls; ++i) f(src_, dst_, order_);
    }

private:
    int order_;
    const R* src_;
    R* dst_;
};

// One order with one kind of buffer: data, both subjects, and how far the
// two results lie apart.
template <class R>
struct Case {
    Case(const WhtKind<R>& k, int o, bool null_buffer)
        : kind(k), order(o), n(1 << o), buffer_kind(o <= 7 ? "none" : null_buffer ? "null" : "caller"),
          src(n), dst(n), ref(n), buffer(buffer_elements(k, o)),
          ours(k, o, src.data(), dst.data(), null_buffer ? nullptr : buffer.data()),
          loop(o, src.data(), ref.data())
    {
        fill_random(src.data(), n, unsigned(order));
        // The two must agree before their times mean anything.
        ours.run(1);
        loop.run(1);
        double diff = 0, mag = 0;
        for (int i = 0; i < n; ++i) {
            diff = std::max(diff, std::fabs(double(dst[i]) - double(ref[i])));
            mag = std::max(mag, std::fabs(double(ref[i])));
        }
        rel_diff = mag > 0 ? diff / mag : diff;
    }
    static size_t buffer_elements(const WhtKind<R>& k, int o)
    {
        int bytes = 0;
        k.buffer_size(o, &bytes);
        return size_t(bytes) / sizeof(R) + 1;
    }
    const WhtKind<R>& kind;
    int order, n;
    const char* buffer_kind;
    std::vector<R> src, dst, ref, buffer;
    OursSubject<R> ours;
    LoopSubject<R> loop;
    double rel_diff = 0;
};

template <class R>
void time_kind(const Settings& s, const WhtKind<R>& k, Table& table)
{
    std::vector<std::unique_ptr<Case<R>>> cases;
    std::vector<Race> races;
    for (int order = 1; order <= 13; ++order)
        for (const bool null_buffer : {false, true}) {
            if (order <= 7 && null_buffer) continue;
            cases.push_back(std::make_unique<Case<R>>(k, order, null_buffer));
            races.emplace_back(std::vector<Subject*>{&cases.back()->ours, &cases.back()->loop}, s.plan);
        }
    run_passes(races, s.plan);
    for (size_t i = 0; i < cases.size(); ++i) {
        const Case<R>& w = *cases[i];
        const Comparison c = races[i].result();
        const double cycles = c.subjects[0].ns * s.core_ghz;
        const long ops = long(w.order) * w.n + w.n;  // sums and differences, then the scale
        table.row();
        table.cell(k.kind);
        table.cell(long(w.order));
        table.cell(long(w.n));
        table.cell(w.buffer_kind);
        comparison_cells(table, c);
        table.cell(c.subjects[0].ticks, 0);
        table.cell(double(ops) / cycles, 2);
        table.cell_sci(w.rel_diff);
    }
}

}  // namespace

void bench_wht(const Settings& s)
{
    Table table("wht",
                "Walsh-Hadamard transform against a plain radix-2 loop (" + s.configuration +
                    " build): ns per call; ratio = ours / loop, median of per-round ratios",
                join({"kind", "order", "n", "buffer"}, comparison_columns({"loop"}),
                     std::vector<std::string>{"ours_tsc_ticks", "ops_per_cycle", "max_rel_diff"}));
    WhtKind<float> k32{"32f", {}, {}, nullptr};
    WhtKind<double> k64{"64f", {}, {}, nullptr};
    if (!look_up(k32) || !look_up(k64)) {
        std::printf("\nwht: the library does not export the whole family yet: skipped\n");
        return;
    }
    time_kind(s, k32, table);
    time_kind(s, k64, table);
    table.print(stdout);
    table.write(s.out_dir);
    std::vector<Panel> panels;
    for (const char* kind : {"32f", "64f"}) {
        Panel p{std::string(kind) + ": ns per call", "order", "ns", false, true, 0, {}};
        for (const char* buffer : {"none", "caller", "null"})
            p.series.push_back({std::string("ours, buffer ") + buffer, "order", "ours_ns",
                                {{"kind", kind}, {"buffer", buffer}}});
        p.series.push_back(
            {"radix-2 loop", "order", "loop_ns", {{"kind", kind}, {"buffer", "!null"}}});
        panels.push_back(p);
        Panel r{std::string(kind) + ": ours / loop", "order", "ratio", false, false, 1, {}};
        for (const char* buffer : {"none", "caller", "null"})
            r.series.push_back({std::string("buffer ") + buffer, "order", "ratio_loop",
                                {{"kind", kind}, {"buffer", buffer}}});
        panels.push_back(r);
    }
    write_plot(s.out_dir, table, "wht", panels, 2);
}

}  // namespace zptg::bench
