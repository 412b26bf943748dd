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
    // precision of its computation) drops out with its products.
    Cplx rotate(Cplx x, long double c, long double s) const
    {
        auto term = [&](long double k, Real v) { return is_zero(k) ? Real{} : g_.mul(k, v); };
        return {g_.sub(term(c, x.re), term(s, x.im)), g_.add(term(c, x.im), term(s, x.re))};
    }
    static bool is_zero(long double k) { return k < 1e-15L && k > -1e-15L; }

private:
    Graph& g_;
};

}  // namespace zptg::gen

#endif
