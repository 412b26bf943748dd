#include "families/complex_family.h"

#include <cmath>
#include <complex>
#include <sstream>

#include "core/analysis.h"
#include "core/number.h"
#include "rules/transform.h"

namespace zptg::gen {
namespace {

const char* dir_word(Dir d) { return d == Dir::Forward ? "forward" : "inverse"; }

std::string describe(const Rule& r)
{
    std::ostringstream s;
    switch (r.form) {
    case Form::Direct: s << "direct form"; break;
    case Form::GoodThomas: s << "Good-Thomas " << r.first << " x " << r.second; break;
    case Form::CooleyTukey: s << "Cooley-Tukey " << r.first << " x " << r.second; break;
    case Form::Rader:
        s << "Rader, root " << r.root << ", cycle transform " << r.cycle;
        break;
    }
    if (r.first_rule) s << " (first stage " << describe(*r.first_rule) << ")";
    return s.str();
}

}  // namespace

ComplexKernel build_complex_kernel(int n, Dir dir)
{
    ComplexKernel k;
    k.n = n;
    k.dir = dir;
    ComplexOps ops(k.graph);
    CVec x(n);
    for (int i = 0; i < n; ++i) x[i] = {k.graph.input(2 * i), k.graph.input(2 * i + 1)};
    const CVec X = transform(ops, complex_rule(n), x, dir);
    for (const Cplx& v : X) {
        k.outputs.push_back(v.re);
        k.outputs.push_back(v.im);
    }
    return k;
}

long double complex_kernel_error(const ComplexKernel& k)
{
    const int n = k.n;
    long double worst = 0;
    unsigned seed = 12345u + unsigned(n);
    for (int trial = 0; trial < 3; ++trial) {
        std::vector<long double> in(2 * n);
        for (auto& v : in) {
            seed = seed * 1664525u + 1013904223u;
            v = (long double)(seed >> 8) / (1u << 24) - 0.5L;
        }
        const std::vector<long double> out = evaluate(k.graph, k.outputs, in);
        long double scale = 0, err = 0;
        for (int f = 0; f < n; ++f) {
            std::complex<long double> sum = 0;
            for (int t = 0; t < n; ++t) {
                const long long e = (long long)f * t;
                const std::complex<long double> w(cos_2pi(e, n), sign_of(k.dir) * sin_2pi(e, n));
                sum += std::complex<long double>(in[2 * t], in[2 * t + 1]) * w;
            }
            scale = std::max(scale, std::abs(sum));
            err = std::max(err, std::abs(sum - std::complex<long double>(out[2 * f], out[2 * f + 1])));
        }
        worst = std::max(worst, err / scale);
    }
    return worst;
}

Family complex_family()
{
    Family f;
    f.dir = "dft_complex";
    f.title = "complex DFT";
    f.prefix = "cdft_";
    f.slots = "Inputs and outputs are the interleaved parts: slot 2k is Re x[k], 2k + 1 Im x[k].";
    f.members = {
        {"zptgDFTFwd_CToC", "32fc", "zptg32fc", true, "Forward", "forward"},
        {"zptgDFTFwd_CToC", "64fc", "zptg64fc", false, "Forward", "forward"},
        {"zptgDFTInv_CToC", "32fc", "zptg32fc", true, "Inverse", "inverse"},
        {"zptgDFTInv_CToC", "64fc", "zptg64fc", false, "Inverse", "inverse"},
    };
    f.bodies = [](int n) {
        std::vector<Body> bodies;
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            ComplexKernel k = build_complex_kernel(n, d);
            const Layout layout = identity_layout(2 * n, 2 * n);
            bodies.push_back({dir_word(d), describe(complex_rule(n)), std::move(k.graph),
                              std::move(k.outputs), layout});
        }
        return bodies;
    };
    f.error = [](const Body& b, int n) {
        ComplexKernel k;
        k.n = n;
        k.dir = b.name == "forward" ? Dir::Forward : Dir::Inverse;
        k.graph = b.graph;
        k.outputs = b.outputs;
        return complex_kernel_error(k);
    };
    return f;
}

}  // namespace zptg::gen
