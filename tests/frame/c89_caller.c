/* Compiled as strict C89 against the public header: the version record and
   a complex DFT. */
#include <stdio.h>
#include <string.h>

#include "zptgenpx.h"

int main(void)
{
    const zptgLibVersion* v = zptgenGetLibVersion();
    zptg32fc x[4], X[4];
    int i, failures = 0;
    if (v == 0 || v != zptgenGetLibVersion() || v->versionMajor != 6 || v->versionMinor != 1 ||
        v->versionBuild != 137 || v->versionRevision != 336 || memcmp(v->targetText, "px\0\0", 4) != 0 ||
        strcmp(v->libraryName, "libzptgenpx.so.6.1") != 0 || strcmp(v->versionText, "6.1 build 137.56") != 0 ||
        strcmp(v->buildDateText, "Mar 17 2010") != 0) {
        printf("bad version record\n");
        ++failures;
    }
    for (i = 0; i < 4; ++i) {
        x[i].re = (float)(i + 1);
        x[i].im = 0.0f;
    }
    if (zptgDFTFwd_CToC_32fc(x, X, 4, zptgScaleNone) != zptgStatusOk || X[0].re != 10.0f || X[2].re != -2.0f) {
        printf("4-point DFT failed\n");
        ++failures;
    }
    printf("%d failed\n", failures);
    return failures == 0 ? 0 : 1;
}
