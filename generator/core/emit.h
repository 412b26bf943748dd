// C++ text of a kernel body: one straight-line function template over the
// scalar type T and the array access, so that the library instantiates it
// with double and the tests with counting and tracing types.
//
//   template <class T, class In, class Out>
//   inline void name(const In& in, const Out& out, T s)
//
// reads every input with in(slot) first, holds each constant once as a
// local, computes each node once into a const temporary, and stores each
// output with out(slot, s * value) right after its value is computed: the
// scale product is the last operation on each output, every output is
// stored once, and every read comes before the first store. The operations
// are written in an order that keeps few values alive at a time (see the
// scheduler in emit.cpp); temporaries are numbered in that order, constants
// in order of first use, so the text depends on the graph alone.
#ifndef ZPTG_GEN_EMIT_H
#define ZPTG_GEN_EMIT_H

#include <string>
#include <vector>

#include "core/graph.h"

namespace zptg::gen {

std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name);

}  // namespace zptg::gen

#endif
