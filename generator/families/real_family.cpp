#include "families/real_family.h"

#include <sstream>

#include "rules/hartley_kernel.h"
#include "rules/real.h"
#include "rules/real_kernel.h"

namespace zptg::gen {
namespace {

std::string describe(const RealRule& r)
{
    std::ostringstream s;
    switch (r.form) {
    case RealForm::Direct: s << "direct form"; break;
    case RealForm::GoodThomas: s << "Good-Thomas " << r.a << " x " << r.b; break;
    case RealForm::CooleyTukey: s << "Cooley-Tukey " << r.a << " x " << r.b; break;
    case RealForm::Rader: s << "Rader, root " << r.root; break;
    }
    return s.str();
}

// The half-spectrum slot (2k: Re X[k], 2k + 1: Im X[k]) of Pack slot j.
int half_slot(int n, int j)
{
    if (j == 0) return 0;
    if (n % 2 == 0 && j == n - 1) return n;
    return j + 1;  // 2k - 1 -> 2k (Re X[k]), 2k -> 2k + 1 (Im X[k])
}

struct Packed {
    Packing packing;
    const char* word;   // ccs: the body names forward_ccs, inverse_ccs
    const char* name;   // CCS: the kernel stems zptgDFTFwd_RToCCS, zptgDFTInv_CCSToR
};
constexpr Packed kPackings[] = {
    {Packing::CCS, "ccs", "CCS"}, {Packing::Pack, "pack", "Pack"}, {Packing::Perm, "perm", "Perm"}};

}  // namespace

Layout real_forward_layout(Packing p, int n)
{
    Layout l;
    for (int k = 0; k < n; ++k) l.reads.push_back(k);
    for (int j = 0; j < n; ++j) l.stores.push_back({packed_position(p, n, half_slot(n, j)), false});
    l.zeros = packed_zeros(p, n);
    return l;
}

Layout real_inverse_layout(Packing p, int n)
{
    Layout l;
    for (int j = 0; j < n; ++j) l.reads.push_back(packed_position(p, n, half_slot(n, j)));
    for (int k = 0; k < n; ++k) l.stores.push_back({k, false});
    return l;
}

Family real_family()
{
    Family f;
    f.dir = "dft_real";
    f.title = "real DFT";
    f.prefix = "rdft_";
    f.slots = "Forward: inputs x[0..n-1], outputs the half spectrum; inverse the other way round.";
    for (const Packed& p : kPackings)
        for (const bool single : {true, false})
            f.members.push_back({std::string("zptgDFTFwd_RTo") + p.name, single ? "32f" : "64f",
                                 single ? "zptg32f" : "zptg64f", single, "Forward",
                                 std::string("forward_") + p.word});
    for (const Packed& p : kPackings)
        for (const bool single : {true, false})
            f.members.push_back({std::string("zptgDFTInv_") + p.name + "ToR", single ? "32f" : "64f",
                                 single ? "zptg32f" : "zptg64f", single, "Inverse",
                                 std::string("inverse_") + p.word});
    f.bodies = [](int n) {
        std::vector<Body> bodies;
        const RealKernelGraph fwd = build_real_forward_graph(n);
        const RealKernelGraph inv = build_real_inverse_graph(n);
        for (const Packed& p : kPackings)
            bodies.push_back({std::string("forward_") + p.word, describe(real_forward_rule(n)),
                              fwd.graph, fwd.outputs, real_forward_layout(p.packing, n)});
        for (const Packed& p : kPackings)
            bodies.push_back({std::string("inverse_") + p.word, describe(real_inverse_rule(n)),
                              inv.graph, inv.outputs, real_inverse_layout(p.packing, n)});
        return bodies;
    };
    f.error = [](const Body& b, int n) {
        RealKernelGraph k;
        k.n = n;
        k.inverse = b.name.rfind("inverse", 0) == 0;
        k.graph = b.graph;
        k.outputs = b.outputs;
        return real_graph_error(k);
    };
    return f;
}

Family hartley_family()
{
    Family f;
    f.dir = "hartley";
    f.title = "Hartley transform";
    f.prefix = "dht_";
    f.slots = "Inputs x[0..n-1], outputs H[0..n-1].";
    f.members = {
        {"zptgHartley", "32f", "zptg32f", true, "SelfInverse", "hartley"},
        {"zptgHartley", "64f", "zptg64f", false, "SelfInverse", "hartley"},
    };
    f.bodies = [](int n) {
        HartleyGraph h = build_hartley_graph(n);
        std::vector<Body> bodies;
        bodies.push_back({"hartley",
                          h.from_pairs ? "from the pairs x[k] +- x[n-k]" : "from the real spectrum",
                          std::move(h.graph), std::move(h.outputs), identity_layout(n, n)});
        return bodies;
    };
    f.error = [](const Body& b, int n) {
        HartleyGraph h;
        h.n = n;
        h.graph = b.graph;
        h.outputs = b.outputs;
        return hartley_graph_error(h);
    };
    return f;
}

}  // namespace zptg::gen
