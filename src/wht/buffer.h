// Scratch buffer sizes in bytes by order, one table of 13 entries per
// element kind. The direct orders 1 to 7 need none. The blocked kernels
// allocate exactly these sizes when the caller gives no buffer, and the
// size query reports them; both are checked here against the layout of the
// passes (main, plus tail at orders 12 and 13).
#ifndef ZPTG_WHT_BUFFER_H
#define ZPTG_WHT_BUFFER_H

#include "wht/passes.h"
#include "wht/scale.h"

namespace zptg::wht {

template <class T>
struct BufferBytes;

template <>
struct BufferBytes<float> {
    static constexpr int by_order[kOrders] = {0,    0,    0,    0,     0,     0,    0,
                                              1024, 2048, 4096, 8192, 17408, 36864};
};

template <>
struct BufferBytes<double> {
    static constexpr int by_order[kOrders] = {0,    0,    0,     0,     0,     0,    0,
                                              2048, 4096, 8192, 16384, 34816, 73728};
};

template <class T>
constexpr bool sizes_match_layout()
{
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        const int bytes = scratch_elements(order) * static_cast<int>(sizeof(T));
        if (BufferBytes<T>::by_order[order - kMinOrder] != bytes) return false;
    }
    return true;
}
static_assert(sizes_match_layout<float>() && sizes_match_layout<double>());

}  // namespace zptg::wht

#endif
