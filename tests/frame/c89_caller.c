/* Compiled as strict C89 against the public header: the version query and
   a complex DFT by dispatcher and by kernel. */
#include <stdio.h>
#include <string.h>

#include "zptgenpx.h"

int main(void)
{
    const zptgLibVersion* v = zptgenGetLibVersion();
    zptg32fc x[4], X[4];
    zptg64fc y[2], Y[2];
    int i, failures = 0;

    if (v == 0 || v->versionMajor != 6 || strcmp(v->libraryName, "libzptgenpx.so.6.1") != 0) {
        printf("bad version record\n");
        ++failures;
    }
    for (i = 0; i < 4; ++i) {
        x[i].re = (float)(i + 1);
        x[i].im = 0.0f;
    }
    if (zptgDFTFwd_CToC_32fc(x, X, 4, zptgScaleNone) != zptgStatusOk || X[0].re != 10.0f ||
        X[2].re != -2.0f) {
        printf("4-point DFT failed\n");
        ++failures;
    }
    y[0].re = 1.0;
    y[0].im = 2.0;
    y[1].re = 3.0;
    y[1].im = 4.0;
    if (zptgDFTInv_CToC_2_64fc(y, Y, zptgScaleInvByN) != zptgStatusOk || Y[0].re != 2.0 ||
        Y[1].im != -1.0) {
        printf("2-point inverse DFT failed\n");
        ++failures;
    }
    if (zptgDFTFwd_CToC_64fc(y, Y, 1, zptgScaleNone) != zptgStatusBadSize) {
        printf("length 1 not rejected\n");
        ++failures;
    }
    printf("%d passed, %d failed\n", 4 - failures, failures);
    return failures == 0 ? 0 : 1;
}
