// The dispatchers zptgWHT_<kind>(src, dst, order, flag, buffer) and the
// buffer-size queries. Both test the order with one unsigned comparison of
// order - 1 with 12, which rejects everything below 1 and above 13, before
// anything else is looked at. A dispatcher then jumps through its table of
// 13 kernels and returns the kernel's status unchanged; it hands the buffer
// on for every order, and the direct orders drop it unseen.
#include "wht/buffer.h"
#include "wht/scale.h"

namespace zptg::wht {
namespace {

template <class T>
using Entry = zptgStatus (*)(const T*, T*, int, T*);

template <class T, zptgStatus (*Kernel)(const T*, T*, int)>
zptgStatus without_buffer(const T* src, T* dst, int flag, T*)
{
    return Kernel(src, dst, flag);
}

#define ZPTG_WHT_DIRECT_ENTRY_(kind, type, order) &without_buffer<type, zptgWHT_##order##_##kind>,
#define ZPTG_WHT_BLOCKED_ENTRY_(kind, type, order) &zptgWHT_##order##_##kind,
#define ZPTG_WHT_TABLE_(kind, type)                                \
    constexpr Entry<type> kTable_##kind[kOrders] = {               \
        ZPTG_WHT_DIRECT_ORDERS(ZPTG_WHT_DIRECT_ENTRY_, kind, type) \
        ZPTG_WHT_BLOCKED_ORDERS(ZPTG_WHT_BLOCKED_ENTRY_, kind, type)};

ZPTG_WHT_TABLE_(32f, zptg32f)
ZPTG_WHT_TABLE_(64f, zptg64f)

// Index of an order in the tables, or a value above kOrders - 1.
inline unsigned order_index(int order)
{
    return static_cast<unsigned>(order) - static_cast<unsigned>(kMinOrder);
}

template <class T>
inline zptgStatus dispatch(const Entry<T> (&table)[kOrders], const T* src, T* dst, int order,
                           int flag, T* buffer)
{
    const unsigned index = order_index(order);
    if (index > kOrders - 1) return zptgStatusBadSize;
    return table[index](src, dst, flag, buffer);
}

// The size is written through without a test of the pointer.
template <class T>
inline zptgStatus buffer_size(int order, int* size)
{
    const unsigned index = order_index(order);
    if (index > kOrders - 1) return zptgStatusBadSize;
    *size = BufferBytes<T>::by_order[index];
    return zptgStatusOk;
}

}  // namespace
}  // namespace zptg::wht

zptgStatus zptgWHT_32f(const zptg32f* src, zptg32f* dst, int order, int flag, zptg32f* buffer)
{
    return zptg::wht::dispatch(zptg::wht::kTable_32f, src, dst, order, flag, buffer);
}

zptgStatus zptgWHT_64f(const zptg64f* src, zptg64f* dst, int order, int flag, zptg64f* buffer)
{
    return zptg::wht::dispatch(zptg::wht::kTable_64f, src, dst, order, flag, buffer);
}

zptgStatus zptgWHTGetBufferSize_32f(int order, int* size)
{
    return zptg::wht::buffer_size<zptg32f>(order, size);
}

zptgStatus zptgWHTGetBufferSize_64f(int order, int* size)
{
    return zptg::wht::buffer_size<zptg64f>(order, size);
}
