/* Real DFT: the half spectrum of 16 real samples in the three packed
   layouts, and back. The forward call goes through the dispatcher (length
   as an argument), the inverse through the 16-point kernel by name. CCS
   holds N + 2 elements for even N: the imaginary parts of the DC and
   Nyquist terms are stored as literal zeros, and the inverse never reads
   them. */
#include <math.h>
#include <stdio.h>

#include "zptgenpx.h"

#define N 16

int main(void)
{
    const double pi = 3.14159265358979323846;
    zptg64f x[N], ccs[N + 2], pack[N], perm[N], y[N];
    double error = 0.0;
    int n, k, ok = 1;

    /* x[n] = 1 + cos(2 pi 3n / N): R0 = N and R3 = N / 2, nothing else. */
    for (n = 0; n < N; ++n) x[n] = 1.0 + cos(2.0 * pi * 3 * n / N);

    if (zptgDFTFwd_RToCCS_64f(x, ccs, N, zptgScaleNone) != zptgStatusOk ||
        zptgDFTFwd_RToPack_64f(x, pack, N, zptgScaleNone) != zptgStatusOk ||
        zptgDFTFwd_RToPerm_64f(x, perm, N, zptgScaleNone) != zptgStatusOk)
        return 1;
    printf(" pos      CCS     Pack     Perm\n");
    for (k = 0; k < N + 2; ++k) {
        printf("%4d %8.4f", k, ccs[k]);
        if (k < N) printf(" %8.4f %8.4f", pack[k], perm[k]);
        printf("\n");
    }
    /* The same terms at their positions: R3 at 6 in CCS, 5 in Pack, 6 in
       Perm; the Nyquist term at N in CCS, N - 1 in Pack, 1 in Perm. */
    ok = fabs(ccs[0] - N) < 1e-12 && fabs(ccs[6] - N / 2) < 1e-12 && fabs(pack[5] - N / 2) < 1e-12 &&
         fabs(perm[6] - N / 2) < 1e-12 && ccs[1] == 0.0 && ccs[N + 1] == 0.0;

    /* Back from CCS, scaled by 1/N on the inverse side. Positions 1 and
       N + 1 are not read: a NaN there changes nothing. */
    ccs[1] = ccs[N + 1] = NAN;
    if (zptgDFTInv_CCSToR_16_64f(ccs, y, zptgScaleInvByN) != zptgStatusOk) return 1;
    for (n = 0; n < N; ++n) error = fmax(error, fabs(y[n] - x[n]));
    printf("forward then inverse: largest error %.1e\n", error);
    return ok && error < 1e-12 ? 0 : 1;
}
