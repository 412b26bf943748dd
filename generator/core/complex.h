// Complex values as pairs of graph values, and the few operations that the
// transform rules are written in. A product with a constant costs two real
// products; multiplying by +i or -i costs nothing: it swaps the parts and
// moves a sign into the next sum.
#ifndef ZPTG_GEN_COMPLEX_H
#define ZPTG_GEN_COMPLEX_H

#include <vector>

#include "core/graph.h"

namespace zptg::gen {

struct Cplx {
    Real re, im;
};
using CVec = std::vector<Cplx>;

// The sign of the exponent of a transform: -1 forward, +1 inverse.
enum class Dir : int { Forward = -1, Inverse = 1 };
inline int sign_of(Dir d) { return static_cast<int>(d); }

class ComplexOps {
public:
    explicit ComplexOps(Graph& g) : g_(g) {}
    Graph& graph() const { return g_; }

    Cplx add(Cplx x, Cplx y) const { return {g_.add(x.re, y.re), g_.add(x.im, y.im)}; }
    Cplx sub(Cplx x, Cplx y) const { return {g_.sub(x.re, y.re), g_.sub(x.im, y.im)}; }
    Cplx scale(long double c, Cplx x) const { return {g_.mul(c, x.re), g_.mul(c, x.im)}; }
    static Cplx neg(Cplx x) { return {-x.re, -x.im}; }
    // Both parts taken the other way round where `flip` is set (Graph::oriented).
    Cplx oriented(Cplx x, bool flip) const { return {g_.oriented(x.re, flip), g_.oriented(x.im, flip)}; }
    // x * (s i) for s = +1 or -1: (re, im) -> (-s im, s re).
    static Cplx times_i(Cplx x, int s)
    {
        return s > 0 ? Cplx{-x.im, x.re} : Cplx{x.im, -x.re};
    }
    // x * (c + i s), four products and two sums; a part that is zero (to the
    // precision of its computation) drops out with its products. The
    // products are made in a fixed order (each sum's second term first),
    // which numbers the constants of a body.
    Cplx rotate(Cplx x, long double c, long double s) const
    {
        auto term = [&](long double k, Real v) { return is_zero(k) ? Real{} : g_.mul(k, v); };
        const Real s_im = term(s, x.im);
        const Real c_re = term(c, x.re);
        const Real re = g_.sub(c_re, s_im);
        const Real s_re = term(s, x.re);
        const Real c_im = term(c, x.im);
        return {re, g_.add(c_im, s_re)};
    }
    static bool is_zero(long double k) { return k < 1e-15L && k > -1e-15L; }

private:
    Graph& g_;
};

}  // namespace zptg::gen

#endif
