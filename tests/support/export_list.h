// The library's fixed-size transforms as its export list names them, so
// that a test or fuzzer covers every kernel and dispatcher that the built
// library exports, including families added after the test was written.
// Each exported name is `<stem>_<size>_<kind>` (a kernel) or `<stem>_<kind>`
// (a dispatcher); the stem gives the arrays' layout, the kind the element.
#ifndef ZPTG_TESTS_SUPPORT_EXPORT_LIST_H
#define ZPTG_TESTS_SUPPORT_EXPORT_LIST_H

#include <string>
#include <vector>

#include "zptgenpx.h"

namespace zptg::test {

// How a family's arrays are laid out, in values of the element's width.
enum class Layout {
    Complex,  // N interleaved complex elements in and out
    Real,     // N real values in and out (also Pack and Perm spectra)
    ToCcs,    // N real values in, a CCS spectrum out (N + 2 values, N + 1 for odd N)
    FromCcs,  // a CCS spectrum in (positions 0 and 2 .. N are read), N real values out
    Walsh,    // 2^order real values in and out; orders 8 up take a scratch buffer
};

struct Transform {
    std::string name;
    std::string stem;
    Layout layout;
    unsigned width;  // bytes of one value: 4 or 8
    int size;        // the number in a kernel's name (an order for Walsh); 0 for a dispatcher
    void* address;

    bool dispatcher() const { return size == 0; }
    // The sizes the family accepts: 2 .. 64, or orders 1 .. 13.
    int min_size() const { return layout == Layout::Walsh ? 1 : 2; }
    int max_size() const { return layout == Layout::Walsh ? 13 : 64; }
    // Whether the kernel of `size` takes a scratch buffer.
    bool takes_buffer(int size) const { return layout == Layout::Walsh && size >= 8; }
    // Transform length and the values that src and dst hold at `size`.
    int length(int size) const { return layout == Layout::Walsh ? 1 << size : size; }
    int src_values(int size) const;
    int dst_values(int size) const;
    // Whether dst position p is stored as a literal +0.0 (CCS 1 and N + 1).
    bool literal_zero(int size, int p) const;

    // Runs the transform: a kernel ignores `size`, `buffer` reaches only
    // the Walsh kernels and dispatchers that take it.
    zptgStatus call(const void* src, void* dst, int size, int flag, void* buffer) const;
};

// Every exported kernel and dispatcher of the fixed-size families, in the
// order of the export list. Exported names that are no transform are
// checked against the library's other functions (version, Walsh buffer
// query, DCT-IV); any name that fits neither goes to `unknown`.
std::vector<Transform> exported_transforms(std::vector<std::string>* unknown);

}  // namespace zptg::test

#endif
