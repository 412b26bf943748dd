// The blocked kernels zptgWHT_8_<kind> .. zptgWHT_13_<kind>: the checks,
// then the passes through the scratch buffer. A caller's buffer is used as
// it stands; without one the kernel takes one block of the buffer's size
// from zptMalloc for the call and hands it back to zptFree afterwards. The
// allocator's result is written through as it comes: the family has no
// status for an exhausted allocator. A failed check returns before any
// allocation.
#include "core/zptcore.h"
#include "wht/buffer.h"
#include "wht/passes.h"
#include "wht/scale.h"

namespace zptg::wht {
namespace {

template <int Order, class T>
[[gnu::always_inline]] inline zptgStatus blocked(const T* src, T* dst, int flag, T* buffer)
{
    T factor;
    const zptgStatus status = check<T, Order>(src, dst, flag, &factor);
    if (status != zptgStatusOk) return status;
    const bool allocated = buffer == nullptr;
    if (allocated) buffer = static_cast<T*>(zptMalloc(BufferBytes<T>::by_order[Order - kMinOrder]));
    blocked_passes<Order>(src, dst, buffer, factor);
    if (allocated) zptFree(buffer);
    return zptgStatusOk;
}

}  // namespace
}  // namespace zptg::wht

#define ZPTG_DEFINE_WHT_BLOCKED_(kind, type, order)                                       \
    zptgStatus zptgWHT_##order##_##kind(const type* src, type* dst, int flag, type* buffer) \
    {                                                                                     \
        return zptg::wht::blocked<order>(src, dst, flag, buffer);                         \
    }

ZPTG_WHT_BLOCKED_ORDERS(ZPTG_DEFINE_WHT_BLOCKED_, 32f, zptg32f)
ZPTG_WHT_BLOCKED_ORDERS(ZPTG_DEFINE_WHT_BLOCKED_, 64f, zptg64f)
