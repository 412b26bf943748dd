// zptg_bench: times the library's families against their peers and writes
// tables, CSV files and gnuplot scripts into a results folder.
//
//   zptg_bench [--out DIR] [--manifest FILE] [--only PARTS] [--rounds R] [--quick]
//   zptg_bench --gbench [Google Benchmark options]
//
// PARTS is a comma-separated choice of complex, dispatch, accuracy, real,
// hartley, wht, dct4 (default: all that this build has). real and hartley
// time their family and take its accuracy; accuracy alone takes that of
// every fixed-size family without timing anything. --gbench runs the complex kernels and
// scalar FFTW through Google Benchmark's own runner instead, as a cross-check
// of the interleaved harness.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <sys/stat.h>

#include "bench.h"
#include "gbench.h"
#include "report.h"

namespace {

using namespace zptg::bench;

// The processor as /proc/cpuinfo names it: vendor, family, model and
// stepping, then its marketing name (the same for machines of different
// generations on some virtual machines).
std::string cpu_identity()
{
    std::ifstream in("/proc/cpuinfo");
    std::string line, vendor = "?", family = "?", model = "?", stepping = "?", name = "unknown CPU";
    auto value = [&](const char* key, std::string& out) {
        if (line.rfind(key, 0) == 0 && line.find(':') != std::string::npos &&
            line.find_first_not_of(" \t", std::strlen(key)) == line.find(':'))
            out = line.substr(std::min(line.size(), line.find(':') + 2));
    };
    while (std::getline(in, line) && !line.empty()) {
        value("vendor_id", vendor);
        value("cpu family", family);
        value("model", model);
        value("model name", name);
        value("stepping", stepping);
    }
    return vendor + " family " + family + " model " + model + " stepping " + stepping + " (" + name + ")";
}

bool wanted(const std::string& only, const char* part)
{
    if (only.empty()) return true;
    const std::string list = "," + only + ",";
    return list.find(std::string(",") + part + ",") != std::string::npos;
}

int usage()
{
    std::fprintf(stderr,
                 "usage: zptg_bench [--out DIR] [--manifest FILE] [--only PARTS] [--rounds R] "
                 "[--quick]\n       zptg_bench --gbench [Google Benchmark options]\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--gbench") == 0) return run_gbench(argc - 1, argv + 1);
    Settings s;
    s.out_dir = ZPTG_BENCH_DEFAULT_OUT;
    s.manifest = ZPTG_BENCH_MANIFEST;
    s.real_manifest = ZPTG_BENCH_REAL_MANIFEST;
    s.hartley_manifest = ZPTG_BENCH_HARTLEY_MANIFEST;
    s.configuration = ZPTG_BENCH_CONFIGURATION;
    std::string only;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        const bool has_value = i + 1 < argc;
        if (a == "--out" && has_value)
            s.out_dir = argv[++i];
        else if (a == "--manifest" && has_value)
            s.manifest = argv[++i];
        else if (a == "--only" && has_value)
            only = argv[++i];
        else if (a == "--rounds" && has_value)
            s.plan.rounds = std::atoi(argv[++i]);
        else if (a == "--quick")
            s.quick = true;
        else
            return usage();
    }
    if (s.quick) {
        s.plan.rounds = 7;
        s.plan.batch_ns = 20000;
    }
    mkdir(s.out_dir.c_str(), 0755);

    double load[3] = {0, 0, 0};
    getloadavg(load, 3);
    char date[64];
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M UTC", std::gmtime(&now));
    std::string head = "date: " + std::string(date) + "\ncpu: " + cpu_identity() +
                       "\nconfiguration: " + s.configuration + " build (" +
                       (s.configuration == "i386" ? "32-bit, x87" : "x86-64") +
                       ")\ncompiler: " + __VERSION__ + "\n";
    // Accuracy alone needs no clock (and may run where timings mean nothing).
    const bool timed = wanted(only, "complex") || wanted(only, "dispatch") ||
                       wanted(only, "real") || wanted(only, "hartley") || wanted(only, "wht") ||
                       wanted(only, "dct4");
    if (timed) {
        s.tsc_ghz = tsc_ghz();
        s.core_ghz = core_ghz();
        s.peak = measure_scalar_peak(s.core_ghz);
        char b[512];
        std::snprintf(b, sizeof b,
                      "tsc: %.3f GHz; core clock (dependent additions): %.3f GHz\n"
                      "scalar peak: %.2f additions or %.2f products per core cycle, %.2f of both "
                      "interleaved\n"
                      "load average at start: %.2f %.2f %.2f\n"
                      "interleaved rounds: %d, batch %.0f us%s\n",
                      s.tsc_ghz, s.core_ghz, s.peak.adds_per_cycle, s.peak.products_per_cycle,
                      s.peak.mixed_per_cycle,
                      load[0], load[1], load[2], s.plan.rounds, s.plan.batch_ns / 1000,
                      s.quick ? " (quick: not for numbers)" : "");
        head += b;
    }
    std::printf("%s", head.c_str());
    set_results_note("cpu: " + cpu_identity() + "; " + s.configuration + " build");
    std::ofstream(s.out_dir + "/run.txt") << head;

    if (wanted(only, "complex")) bench_complex(s);
    if (wanted(only, "dispatch")) bench_dispatchers(s);
    if (wanted(only, "accuracy")) bench_complex_accuracy(s);
    if (wanted(only, "real")) bench_real(s);
    if (wanted(only, "real") || wanted(only, "accuracy")) bench_real_accuracy(s);
    if (wanted(only, "hartley")) bench_hartley(s);
    if (wanted(only, "hartley") || wanted(only, "accuracy")) bench_hartley_accuracy(s);
#ifdef ZPTG_BENCH_WHT
    if (wanted(only, "wht")) bench_wht(s);
#endif
#ifdef ZPTG_BENCH_DCT4
    if (wanted(only, "dct4")) bench_dct4(s);
#endif
    std::printf("\nresults in %s\n", s.out_dir.c_str());
    return 0;
}
