// Two builds of the library against each other, in one process:
//
//   zptg_ab A/libzptgenpx.so.6.1 B/libzptgenpx.so.6.1 [kernels] [dct4 [lo hi]]
//
// Each library is loaded into a link-map namespace of its own (dlmopen), so
// both export the same names side by side. Every 32- and 64-bit kernel of
// the complex, real and Hartley families (N = 2..64, looked up by name) and
// the DCT-IV at 2^lo..2^hi (default 6..20) run in interleaved rounds
// (timing.h): a slow spell of the shared machine falls on both builds
// alike, so a change of a few per cent shows where separate runs of the
// benchmark would drown it. Printed: the median per-round ratio B/A with
// its interquartile range per size, and the geometric mean per member.
// Timings mean something only where the build runs natively.
#include <dlfcn.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "timing.h"
#include "zptgenpx.h"

namespace {

using namespace zptg::bench;

// One fixed-size kernel of one build, on arrays of its own.
class KernelCall : public Subject {
public:
    using Fn = zptgStatus (*)(const void*, void*, int);
    explicit KernelCall(Fn fn) : fn_(fn)
    {
        for (size_t i = 0; i < std::size(in_); ++i) in_[i] = std::sin(0.7 * double(i));
    }
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) fn_(in_, out_, zptgScaleNone);
    }

private:
    Fn fn_;
    alignas(64) double in_[132] = {};
    alignas(64) double out_[132] = {};
};

// The DCT-IV of one build and one length, with its own context and arrays.
template <class E>
class Dct4Call : public Subject {
public:
    using Init = zptgStatus (*)(void**, int);
    using Run = zptgStatus (*)(const E*, E*, void*);
    using Free = zptgStatus (*)(void*);
    Dct4Call(Init init, Run run, Free free, int n)
        : run_(run), free_(free), in_(size_t(n)), out_(size_t(n))
    {
        for (int i = 0; i < n; ++i) in_[size_t(i)] = E(i * 7 % 13 - 6);
        if (init(&context_, n) != zptgStatusOk) context_ = nullptr;
    }
    ~Dct4Call() override
    {
        if (context_) free_(context_);
    }
    bool ready() const { return context_ != nullptr; }
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) run_(in_.data(), out_.data(), context_);
    }

private:
    Run run_;
    Free free_;
    std::vector<E> in_, out_;
    void* context_ = nullptr;
};

void* open_build(const char* path)
{
    void* library = dlmopen(LM_ID_NEWLM, path, RTLD_NOW | RTLD_LOCAL);
    if (!library) std::fprintf(stderr, "zptg_ab: %s\n", dlerror());
    return library;
}

template <class F>
F symbol(void* library, const std::string& name)
{
    return reinterpret_cast<F>(dlsym(library, name.c_str()));
}

// Prints one member's line: B/A per size and the geometric mean.
void report(const std::string& member, const std::vector<std::string>& sizes,
            std::vector<Race>& races)
{
    double logs = 0;
    std::string line;
    for (size_t i = 0; i < races.size(); ++i) {
        const Comparison c = races[i].result();
        const double ratio = 1 / c.ratios[1];  // ratios[1] is A/B
        logs += std::log(ratio);
        char cell[64];
        std::snprintf(cell, sizeof cell, " %s:%.3f(%.0f%%)", sizes[i].c_str(), ratio,
                      100 * c.ratio_spreads[1]);
        line += cell;
    }
    if (races.empty()) return;
    std::printf("%-24s B/A geomean %.3f\n   %s\n", member.c_str(),
                std::exp(logs / double(races.size())), line.c_str());
    std::fflush(stdout);
}

void kernels(void* a, void* b, const TimingPlan& plan)
{
    static const char* const stems[] = {
        "zptgDFTFwd_CToC_%d_32fc",   "zptgDFTInv_CToC_%d_32fc",  "zptgDFTFwd_CToC_%d_64fc",
        "zptgDFTInv_CToC_%d_64fc",   "zptgDFTFwd_RToCCS_%d_32f", "zptgDFTFwd_RToPack_%d_32f",
        "zptgDFTFwd_RToPerm_%d_32f", "zptgDFTInv_CCSToR_%d_32f", "zptgDFTInv_PackToR_%d_32f",
        "zptgDFTInv_PermToR_%d_32f", "zptgDFTFwd_RToCCS_%d_64f", "zptgDFTFwd_RToPack_%d_64f",
        "zptgDFTFwd_RToPerm_%d_64f", "zptgDFTInv_CCSToR_%d_64f", "zptgDFTInv_PackToR_%d_64f",
        "zptgDFTInv_PermToR_%d_64f", "zptgHartley_%d_32f",       "zptgHartley_%d_64f"};
    for (const char* stem : stems) {
        std::vector<KernelCall> calls;
        std::vector<std::string> sizes;
        calls.reserve(2 * 63);
        for (int n = 2; n <= 64; ++n) {
            char name[64];
            std::snprintf(name, sizeof name, stem, n);
            const auto fa = symbol<KernelCall::Fn>(a, name), fb = symbol<KernelCall::Fn>(b, name);
            if (!fa || !fb) continue;
            calls.emplace_back(fa);
            calls.emplace_back(fb);
            sizes.push_back(std::to_string(n));
        }
        std::vector<Race> races;
        for (size_t i = 0; i + 1 < calls.size(); i += 2)
            races.emplace_back(std::vector<Subject*>{&calls[i], &calls[i + 1]}, plan);
        run_passes(races, plan);
        std::string member = stem;
        member.replace(member.find("_%d"), 3, "");
        report(member, sizes, races);
    }
}

template <class E>
void dct4(void* a, void* b, const std::string& kind, int lo, int hi, const TimingPlan& plan)
{
    std::vector<std::string> sizes;
    std::vector<std::unique_ptr<Dct4Call<E>>> calls;
    for (int lg = lo; lg <= hi; ++lg) {
        for (void* library : {a, b})
            calls.push_back(std::make_unique<Dct4Call<E>>(
                symbol<typename Dct4Call<E>::Init>(library, "zptgDCT4InitAlloc_" + kind),
                symbol<typename Dct4Call<E>::Run>(library, "zptgDCT4_" + kind),
                symbol<typename Dct4Call<E>::Free>(library, "zptgDCT4Free_" + kind), 1 << lg));
        sizes.push_back("2^" + std::to_string(lg));
    }
    std::vector<Race> races;
    for (size_t i = 0; i + 1 < calls.size(); i += 2) {
        if (!calls[i]->ready() || !calls[i + 1]->ready()) {
            std::fprintf(stderr, "zptg_ab: no DCT-IV context of length %s\n", sizes[i / 2].c_str());
            return;
        }
        races.emplace_back(std::vector<Subject*>{calls[i].get(), calls[i + 1].get()}, plan);
    }
    run_passes(races, plan);
    report("zptgDCT4_" + kind, sizes, races);
}

void dct4(void* a, void* b, int lo, int hi, const TimingPlan& plan)
{
    dct4<float>(a, b, "32f", lo, hi, plan);
    dct4<double>(a, b, "64f", lo, hi, plan);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: zptg_ab A.so B.so [kernels] [dct4 [lo hi]]\n");
        return 2;
    }
    void* const a = open_build(argv[1]);
    void* const b = open_build(argv[2]);
    if (!a || !b) return 1;
    TimingPlan plan;
    plan.rounds = 31;
    plan.batch_ns = 50000.0;
    const bool all = argc == 3;
    for (int i = 3; i < argc; ++i) {
        if (std::strcmp(argv[i], "kernels") == 0) kernels(a, b, plan);
        if (std::strcmp(argv[i], "dct4") == 0) {
            int lo = 6, hi = 20;
            if (i + 2 < argc) {
                lo = std::atoi(argv[i + 1]);
                hi = std::atoi(argv[i + 2]);
                i += 2;
            }
            dct4(a, b, lo, hi, plan);
        }
    }
    if (all) {
        kernels(a, b, plan);
        dct4(a, b, 6, 20, plan);
    }
    return 0;
}
