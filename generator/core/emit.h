// C++ text of a kernel body: one straight-line function template over the
// scalar type T and the array access, so that the library instantiates it
// with double and the tests with counting and tracing types.
//
//   template <class T, class In, class Out>
//   inline void name(const In& in, const Out& out, T s)
//
// reads every input with in(slot) first, holds each constant once as a
// local, computes each node once into a const temporary, and ends with
// out(slot, s * value) for every output in slot order: the scale product is
// the last operation on each output and every output is stored once.
// Temporaries are numbered in order of first use, constants likewise, so the
// text depends on the graph alone.
#ifndef ZPTG_GEN_EMIT_H
#define ZPTG_GEN_EMIT_H

#include <string>
#include <vector>

#include "core/graph.h"

namespace zptg::gen {

std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name);

}  // namespace zptg::gen

#endif
