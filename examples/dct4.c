/* DCT-IV, the planned transform: a context for N = 256 built once in a
   block from the core library's allocator, run twice (the DCT-IV is its
   own inverse up to 2/N), and checked against the defining sum. Then the
   same with a context that the library allocates itself. */
#include <math.h>
#include <stdio.h>

#include "zptcore.h"
#include "zptgenpx.h"

#define N 256

int main(void)
{
    const double pi = 3.14159265358979323846;
    zptg64f x[N], X[N], y[N];
    zptgDCT4Context_64f* context = NULL;
    zptgDCT4Context_32f* context32 = NULL;
    zptg32f f[N], F[N];
    double error = 0.0, round_trip = 0.0;
    void* block;
    int size = 0, j, k;

    for (j = 0; j < N; ++j) x[j] = sin(0.1 * j) + 0.5 * cos(0.37 * j);

    /* Ask for the size, allocate, build. The block holds the whole plan
       and the scratch. zptgDCT4Free_64f hands the block to zptFree, so it
       comes from zptMalloc here. */
    if (zptgDCT4GetSize_64f(N, &size) != zptgStatusOk) return 1;
    block = zptMalloc(size);
    if (block == NULL || zptgDCT4Init_64f(&context, N, block) != zptgStatusOk) return 1;
    printf("N = %d: context of %d bytes\n", N, size);

    /* Data first, context last. */
    if (zptgDCT4_64f(x, X, context) != zptgStatusOk || zptgDCT4_64f(X, y, context) != zptgStatusOk)
        return 1;
    zptgDCT4Free_64f(context);

    for (k = 0; k < N; ++k) {
        double sum = 0.0;
        for (j = 0; j < N; ++j) sum += x[j] * cos(pi / N * (j + 0.5) * (k + 0.5));
        error = fmax(error, fabs(X[k] - sum));
        round_trip = fmax(round_trip, fabs(y[k] * 2.0 / N - x[k]));
    }
    printf("against the sum: largest error %.1e; twice, times 2/N: %.1e\n", error, round_trip);

    /* InitAlloc does GetSize, zptMalloc and Init in one call. */
    for (j = 0; j < N; ++j) f[j] = (float)x[j];
    if (zptgDCT4InitAlloc_32f(&context32, N) != zptgStatusOk ||
        zptgDCT4_32f(f, F, context32) != zptgStatusOk)
        return 1;
    zptgDCT4Free_32f(context32);
    printf("32f: X[0] = %.5f (64f: %.5f)\n", F[0], X[0]);

    return error < 1e-10 && round_trip < 1e-12 && fabs(F[0] - X[0]) < 1e-3 ? 0 : 1;
}
