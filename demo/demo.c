/* A short tour of the library: version, and an 8-point complex DFT of an
   impulse and of a cosine, forward then back. */
#include <stdio.h>

#include "zptgenpx.h"

int main(void)
{
    const zptgLibVersion* v = zptgenGetLibVersion();
    zptg64fc x[8], X[8], y[8];
    int k, st;

    printf("%s %d.%d build %d.%d (%s, target \"%s\", %s)\n", v->libraryName, v->versionMajor,
           v->versionMinor, v->versionBuild, v->versionRevision, v->versionText, v->targetText,
           v->buildDateText);

    for (k = 0; k < 8; ++k) {
        x[k].re = k == 1 ? 1.0 : 0.0;
        x[k].im = 0.0;
    }
    st = zptgDFTFwd_CToC_64fc(x, X, 8, zptgScaleNone);
    printf("DFT of an impulse at x[1], status %d:\n", st);
    for (k = 0; k < 8; ++k) printf("  X[%d] = %+.6f %+.6fi\n", k, X[k].re, X[k].im);

    st = zptgDFTInv_CToC_64fc(X, y, 8, zptgScaleInvByN);
    printf("inverse with 1/N, status %d: x[1] = %+.6f %+.6fi\n", st, y[1].re, y[1].im);

    st = zptgDFTFwd_CToC_64fc(x, X, 65, zptgScaleNone);
    printf("length 65 is rejected: status %d\n", st);
    return 0;
}
