/* Walsh-Hadamard transform of order 10 (1024 points), in place, with a
   scratch buffer of the size the library asks for; applied twice it gives
   the input back when one of the two calls divides by N. */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#include "zptgenpx.h"

#define ORDER 10
#define N (1 << ORDER)

int main(void)
{
    zptg32f x[N], y[N];
    zptg32f* buffer;
    float error = 0.0f;
    int bytes = 0, n;

    for (n = 0; n < N; ++n) x[n] = y[n] = (float)((n * 37) % 101) / 101.0f;

    /* Orders 8 to 13 work through a scratch buffer. The caller may pass
       one (to reuse it across calls) or null (the call then allocates
       one for itself). */
    if (zptgWHTGetBufferSize_32f(ORDER, &bytes) != zptgStatusOk) return 1;
    buffer = malloc((size_t)bytes);
    if (buffer == NULL) return 1;
    printf("order %d: %d points, buffer of %d bytes\n", ORDER, N, bytes);

    /* dst may be src: the transform runs in place. */
    if (zptgWHT_32f(y, y, ORDER, zptgScaleNone, buffer) != zptgStatusOk ||
        zptgWHT_10_32f(y, y, zptgScaleInvByN, NULL) != zptgStatusOk) {
        free(buffer);
        return 1;
    }
    free(buffer);
    for (n = 0; n < N; ++n) error = fmaxf(error, fabsf(y[n] - x[n]));
    printf("twice, once divided by N: largest error %.1e\n", error);
    return error < 1e-5f ? 0 : 1;
}
