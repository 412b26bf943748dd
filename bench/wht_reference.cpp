// The plain radix-2 Walsh-Hadamard loop: stage distance 1, 2, 4, ... with
// sums and differences, no blocking and no unrolling of its own.
#include "wht_reference.h"

namespace zptg::bench {
namespace {

template <class R>
void loop(const R* src, R* dst, int order)
{
    const int n = 1 << order;
    for (int i = 0; i < n; i += 2) {
        const R a = src[i], b = src[i + 1];
        dst[i] = a + b;
        dst[i + 1] = a - b;
    }
    for (int h = 2; h < n; h *= 2)
        for (int i = 0; i < n; i += 2 * h)
            for (int j = i; j < i + h; ++j) {
                const R a = dst[j], b = dst[j + h];
                dst[j] = a + b;
                dst[j + h] = a - b;
            }
}

}  // namespace

void wht_loop(const float* src, float* dst, int order) { loop(src, dst, order); }
void wht_loop(const double* src, double* dst, int order) { loop(src, dst, order); }

}  // namespace zptg::bench
