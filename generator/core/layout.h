// Where the slots of a graph stand in memory. A graph numbers its inputs
// and outputs by slot; a family says, per body, at which array position
// each input slot is read and each output slot is stored, which outputs are
// stored negated, and which positions take a literal +0.0. The emitter
// writes the body by this map (core/emit.h).
//
// The maps of the library's layouts:
//   interleaved complex   slot 2k: Re x[k], slot 2k + 1: Im x[k], in place
//   plain real            slot k: x[k]
//   half spectrum         slot 2k: Re X[k], slot 2k + 1: Im X[k], k <= n/2,
//                         packed as CCS, Pack or Perm:
//
//     CCS    Re X[k] at 2k, Im X[k] at 2k + 1; Im X[0] and (n even)
//            Im X[n/2] are the literal zeros at 1 and n + 1
//     Pack   Re X[0] at 0, Re X[k] at 2k - 1, Im X[k] at 2k (0 < k < n/2),
//            (n even) Re X[n/2] at n - 1
//     Perm   as Pack for odd n; for even n Re X[n/2] at 1 and the complex
//            terms as in CCS
//
// The imaginary parts of X[0] and of X[n/2] (n even) have no position in
// Pack and Perm, and in CCS only the literal zero: a forward body stores
// nothing for their slots, an inverse body reads nothing for them.
#ifndef ZPTG_GEN_CORE_LAYOUT_H
#define ZPTG_GEN_CORE_LAYOUT_H

#include <vector>

namespace zptg::gen {

// Where an output slot goes: its position (-1: the slot is not stored, and
// its value must be the exact zero) and whether it is stored negated.
struct Placement {
    int position = -1;
    bool negated = false;
};

struct Layout {
    std::vector<int> reads;         // input slot -> position (-1: never read)
    std::vector<Placement> stores;  // output slot -> placement
    std::vector<int> zeros;         // positions stored as +0.0, after the last read
};

enum class Packing { CCS, Pack, Perm };

// Every input slot k read at k, every output slot k stored at k.
Layout identity_layout(int inputs, int outputs);

// The position of half-spectrum slot `slot` of length n in a packing, or
// -1 where it has none; and the literal zeros of the packing.
int packed_position(Packing p, int n, int slot);
std::vector<int> packed_zeros(Packing p, int n);

// A forward real body: n real inputs, the half spectrum stored packed; its
// imaginary parts negated where `negate_imaginary` (for a graph that makes
// -Im X[k]).
Layout packed_store_layout(Packing p, int n, bool negate_imaginary = false);
// An inverse real body: the half spectrum read packed, n real outputs.
Layout packed_load_layout(Packing p, int n);

}  // namespace zptg::gen

#endif
