// The direct kernels zptgWHT_1_<kind> .. zptgWHT_7_<kind>: the checks, then
// the whole network of 2 to 128 points as one straight-line body, each
// output multiplied by the scale right before its store.
#include "wht/network.h"
#include "wht/scale.h"

namespace zptg::wht {
namespace {

template <int Order, class T>
[[gnu::always_inline]] inline zptgStatus direct(const T* src, T* dst, int flag)
{
    T factor;
    const zptgStatus status = check<T, Order>(src, dst, flag, &factor);
    if (status != zptgStatusOk) return status;
    network<1 << Order, 1>(src, dst, Scaled<T>{factor});
    return zptgStatusOk;
}

}  // namespace
}  // namespace zptg::wht

#define ZPTG_DEFINE_WHT_DIRECT_(kind, type, order)                                  \
    zptgStatus zptgWHT_##order##_##kind(const type* src, type* dst, int flag)       \
    {                                                                               \
        return zptg::wht::direct<order>(src, dst, flag);                            \
    }

ZPTG_WHT_DIRECT_ORDERS(ZPTG_DEFINE_WHT_DIRECT_, 32f, zptg32f)
ZPTG_WHT_DIRECT_ORDERS(ZPTG_DEFINE_WHT_DIRECT_, 64f, zptg64f)
