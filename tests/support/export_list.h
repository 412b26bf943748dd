// The library's fixed-size transforms as its export list names them (read by readelf from the
// loaded object), so that a test or fuzzer covers every kernel and dispatcher the built library
// exports, families added later included. A name is `<stem>_<size>_<kind>` (a kernel) or
// `<stem>_<kind>` (a dispatcher): the stem gives the layout of the arrays, the kind the element.
#ifndef ZPTG_TESTS_SUPPORT_EXPORT_LIST_H
#define ZPTG_TESTS_SUPPORT_EXPORT_LIST_H

#include <string>
#include <vector>

#include "support/scale.h"
#include "zptgenpx.h"

namespace zptg::test {

// N complex values in and out; N real values in and a packed half spectrum out (To) or the other
// way round (From); N real values in and out (Hartley; Walsh 2^order, a scratch buffer from 8 up).
enum class Layout { Complex, ToCcs, ToPack, ToPerm, FromCcs, FromPack, FromPerm, Hartley, Walsh };

// Where Re X[k] (im: Im X[k]) of a real spectrum of length n stands in a packed layout, -1 for
// none. CCS: Re, Im of X[0 .. N/2] in turn, the imaginary parts of X[0] and X[N/2] stored as +0.0
// and never read. Pack: Re X[0], Re, Im of X[1], ..., Re X[N/2] last. Perm: for even N Re X[N/2]
// second and X[k] at 2k, 2k + 1; as Pack for odd N.
int packed_position(Layout layout, int n, int k, bool im);

struct Transform {
    std::string name, stem;
    Layout layout;
    Direction direction;
    unsigned width;  // bytes of one value: 4 or 8
    int size;        // the number in a kernel's name (an order for Walsh); 0 for a dispatcher
    void* address;

    bool dispatcher() const { return size == 0; }
    int min_size() const { return layout == Layout::Walsh ? 1 : 2; }
    int max_size() const { return layout == Layout::Walsh ? 13 : 64; }
    bool takes_buffer(int s) const { return layout == Layout::Walsh && s >= 8; }
    int length(int s) const { return layout == Layout::Walsh ? 1 << s : s; }
    // The values src and dst hold at size s (CCS position N + 1 is never read).
    int src_values(int s) const;
    int dst_values(int s) const;
    // Whether dst position p is a literal +0.0 (CCS 1 and N + 1).
    bool literal_zero(int s, int p) const;
    // Runs the transform: a kernel ignores `size`; `buffer` reaches Walsh functions only.
    zptgStatus call(const void* src, void* dst, int size, int flag, void* buffer) const;
};

// Every exported kernel and dispatcher in the order of the export list; exported names that are
// neither these nor the library's other functions (version, Walsh buffer query, DCT-IV) go to
// `unknown`, as does an export list that cannot be read.
std::vector<Transform> exported_transforms(std::vector<std::string>* unknown);

}  // namespace zptg::test

#endif
