// Rounding through a volatile store (a single rounding from long double, also
// on x87) with a check of the distance to the nearest midpoint.
#include "dft_complex/stated_scale.h"

#include <cmath>

namespace zptg::test {

template <class R>
R round_nearest(long double x, bool* decided)
{
    volatile R stored = R(x);
    const R r = stored;
    // The midpoints next to r are exact in long double.
    const long double below = ((long double)r + std::nextafter(r, R(-INFINITY))) / 2;
    const long double above = ((long double)r + std::nextafter(r, R(INFINITY))) / 2;
    const long double margin = std::fabs(x) * 0x1p-62L;
    if (std::fabs(x - below) <= margin || std::fabs(x - above) <= margin) *decided = false;
    return r;
}

template <class R>
ScaleConstants<R> scale_constants(int n)
{
    ScaleConstants<R> c{};
    c.decided = true;
    c.by_n = round_nearest<R>(1.0L / n, &c.decided);
    c.nearest_by_sqrt_n = round_nearest<R>(1.0L / std::sqrt((long double)n), &c.decided);
    if constexpr (sizeof(R) == sizeof(float)) {
        c.by_sqrt_n = c.nearest_by_sqrt_n;
    } else {
        const R root = round_nearest<R>(std::sqrt((long double)n), &c.decided);
        c.by_sqrt_n = round_nearest<R>(1.0L / root, &c.decided);
    }
    return c;
}

template <class R>
R stated_factor(Dir d, int flag, int n)
{
    const ScaleConstants<R> c = scale_constants<R>(n);
    switch (flag) {
    case zptgScaleFwdByN: return d == Dir::Forward ? c.by_n : R(1);
    case zptgScaleInvByN: return d == Dir::Inverse ? c.by_n : R(1);
    case zptgScaleBySqrtN: return c.by_sqrt_n;
    default: return R(1);
    }
}

template float round_nearest<float>(long double, bool*);
template double round_nearest<double>(long double, bool*);
template ScaleConstants<float> scale_constants<float>(int);
template ScaleConstants<double> scale_constants<double>(int);
template float stated_factor<float>(Dir, int, int);
template double stated_factor<double>(Dir, int, int);

}  // namespace zptg::test
