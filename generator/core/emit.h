// C++ text of a kernel body: one straight-line function template over the
// scalar type T and the array access, so that the library instantiates it
// with double and the tests with counting and tracing types.
//
//   template <class T, class In, class Out>
//   inline void name(const In& in, const Out& out, T s)
//
// reads every input with in(position) first, holds each constant once as a
// local, computes each node once into a const temporary, and stores each
// output with out(position, s * value) right after its value is computed:
// the scale product is the last operation on each output, every output is
// stored once, and every read comes before the first store. An output that
// the graph makes with a negative sign, or that the layout stores negated
// (core/layout.h), is stored as out(position, -(s * value)): a sign flip of
// the scaled value, not an operation of the graph. Positions that take a
// literal zero are written out.zero(position) at the end, after every read,
// so that dst may equal src in every layout. The operations
// are written in an order that keeps few values alive at a time (see the
// order in emit.cpp); temporaries are numbered in that order, constants
// in order of first use, so the text depends on the graph alone. A long
// body is wrapped in a GCC pragma that compiles it for size where the
// compiler optimizes (see kLongBody in emit.cpp).
#ifndef ZPTG_GEN_EMIT_H
#define ZPTG_GEN_EMIT_H

#include <string>
#include <vector>

#include "core/graph.h"
#include "core/layout.h"

namespace zptg::gen {

// `layout` maps the graph's input and output slots to memory positions;
// without one, slot k is position k.
std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name,
                      const Layout& layout);
std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name);

}  // namespace zptg::gen

#endif
