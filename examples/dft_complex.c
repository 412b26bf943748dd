/* Complex DFT: the 12-point spectrum of a complex tone, through the
   dispatcher (length as an argument), and back through the 12-point inverse
   kernel called by name. The same flag on both sides makes the pair exact
   inverses; zptgScaleFwdByN puts the division by N on the forward side. */
#include <math.h>
#include <stdio.h>

#include "zptgenpx.h"

#define N 12

int main(void)
{
    const double pi = 3.14159265358979323846;
    zptg64fc x[N], X[N], y[N];
    double error = 0.0;
    zptgStatus status;
    int n, k;

    /* x[n] = exp(2 pi i 3n / N): all of it lands in bin 3. */
    for (n = 0; n < N; ++n) {
        x[n].re = cos(2.0 * pi * 3 * n / N);
        x[n].im = sin(2.0 * pi * 3 * n / N);
    }

    status = zptgDFTFwd_CToC_64fc(x, X, N, zptgScaleFwdByN);
    if (status != zptgStatusOk) {
        printf("forward DFT: status %d\n", status);
        return 1;
    }
    for (k = 0; k < N; ++k) printf("X[%2d] = %+.6f %+.6fi\n", k, X[k].re, X[k].im);

    status = zptgDFTInv_CToC_12_64fc(X, y, zptgScaleFwdByN);
    if (status != zptgStatusOk) {
        printf("inverse DFT: status %d\n", status);
        return 1;
    }
    for (n = 0; n < N; ++n) {
        error = fmax(error, fabs(y[n].re - x[n].re));
        error = fmax(error, fabs(y[n].im - x[n].im));
    }
    printf("forward then inverse: largest error %.1e\n", error);

    /* A size outside 2..64 is refused before anything is read. */
    printf("length 65: status %d (zptgStatusBadSize)\n",
           zptgDFTFwd_CToC_64fc(x, X, 65, zptgScaleNone));
    return fabs(X[3].re - 1.0) < 1e-12 && error < 1e-12 ? 0 : 1;
}
