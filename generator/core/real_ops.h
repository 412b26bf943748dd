// The operations of the transform rules on single real values, with the
// same names as those of ComplexOps (core/complex.h), so that a form written
// once as a template serves complex pairs and real values alike.
#ifndef ZPTG_GEN_REAL_OPS_H
#define ZPTG_GEN_REAL_OPS_H

#include "core/graph.h"

namespace zptg::gen {

class RealOps {
public:
    explicit RealOps(Graph& g) : g_(g) {}
    Graph& graph() const { return g_; }

    Real add(Real x, Real y) const { return g_.add(x, y); }
    Real sub(Real x, Real y) const { return g_.sub(x, y); }
    Real scale(long double c, Real x) const { return g_.mul(c, x); }

private:
    Graph& g_;
};

}  // namespace zptg::gen

#endif
