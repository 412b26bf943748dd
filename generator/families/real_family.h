// The real DFT and Hartley families, N = 2..64.
//
// Real DFT: per length one forward graph (n real inputs to the half
// spectrum in Pack order, rules/real_kernel.h) and one inverse graph, each
// emitted once per packing (CCS, Pack, Perm): the layouts change only where
// the body reads and stores, never the graph. Members: the forward and the
// inverse kernels of each packing, 32f and 64f.
//
// Hartley: per length one graph (rules/hartley_kernel.h) on plain real
// arrays; members 32f and 64f, scaled alike in both directions.
#ifndef ZPTG_GEN_FAMILIES_REAL_H
#define ZPTG_GEN_FAMILIES_REAL_H

#include "core/family.h"

namespace zptg::gen {

// The layouts of a real body of length n whose half spectrum is in Pack
// order (slot 0: X[0]; 2k - 1, 2k: Re, Im X[k]; n - 1: X[n/2] for even n),
// stored or read in packing p.
Layout real_forward_layout(Packing p, int n);
Layout real_inverse_layout(Packing p, int n);

Family real_family();
Family hartley_family();

}  // namespace zptg::gen

#endif
