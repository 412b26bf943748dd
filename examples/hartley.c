/* Hartley transform: H[k] = sum of x[n] (cos + sin)(2 pi kn / N), real in
   and real out, of 10 points. It has no direction: the same function
   applied twice gives the input back when one of the calls divides by N
   (flags zptgScaleFwdByN and zptgScaleInvByN both do), or when both divide
   by sqrt(N). */
#include <math.h>
#include <stdio.h>

#include "zptgenpx.h"

#define N 10

int main(void)
{
    const double pi = 3.14159265358979323846;
    zptg32f x[N], h[N], y[N];
    float error = 0.0f;
    int n, k, ok = 1;

    /* An impulse at 1: H[k] = cos(2 pi k / N) + sin(2 pi k / N). */
    for (n = 0; n < N; ++n) x[n] = n == 1 ? 1.0f : 0.0f;
    if (zptgHartley_10_32f(x, h, zptgScaleNone) != zptgStatusOk) return 1;
    for (k = 0; k < N; ++k) {
        double cas = cos(2.0 * pi * k / N) + sin(2.0 * pi * k / N);
        printf("H[%d] = %+.6f (cas %+.6f)\n", k, h[k], cas);
        ok = ok && fabs(h[k] - cas) < 1e-6;
    }

    /* In place, twice, through the dispatcher: the second call divides by N. */
    for (n = 0; n < N; ++n) y[n] = x[n] = (float)((n * 7) % 5) - 2.0f;
    if (zptgHartley_32f(y, y, N, zptgScaleNone) != zptgStatusOk ||
        zptgHartley_32f(y, y, N, zptgScaleFwdByN) != zptgStatusOk)
        return 1;
    for (n = 0; n < N; ++n) error = fmaxf(error, fabsf(y[n] - x[n]));
    printf("twice: largest error %.1e\n", error);
    return ok && error < 1e-5f ? 0 : 1;
}
