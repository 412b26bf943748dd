/* A program built elsewhere against an installed libzptgenpx: the version
   record, one call of each family, and a DCT-IV context built in a block
   from the core library's allocator and released by the library. Exits
   non-zero on any wrong status or value. */
#include <stdio.h>
#include <string.h>

#include <zptcore.h>
#include <zptgenpx.h>

static int failures = 0;

static void check(int ok, const char* what)
{
    if (!ok) {
        printf("consumer: %s failed\n", what);
        ++failures;
    }
}

int main(void)
{
    const zptgLibVersion* v = zptgenGetLibVersion();
    zptg64fc x[3] = {{1.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}}, X[3];
    zptg32f w[256], W[256];
    zptg64f d[8] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0}, D[8], DD[8];
    zptgDCT4Context_64f* context = 0;
    void* block;
    int i, size = 0;

    check(strcmp(v->libraryName, "libzptgenpx.so.6.1") == 0, "version record");

    /* The DFT of an impulse is flat. */
    check(zptgDFTFwd_CToC_64fc(x, X, 3, zptgScaleNone) == zptgStatusOk, "complex DFT status");
    for (i = 0; i < 3; ++i) check(X[i].re == 1.0 && X[i].im == 0.0, "complex DFT value");

    /* So is the Walsh-Hadamard transform of one (order 8 allocates its
       scratch through the core library when given no buffer). */
    memset(w, 0, sizeof w);
    w[0] = 1.0f;
    check(zptgWHT_32f(w, W, 8, zptgScaleNone, 0) == zptgStatusOk, "WHT status");
    for (i = 0; i < 256; ++i) check(W[i] == 1.0f, "WHT value");

    /* The DCT-IV twice gives N/2 times the input. */
    check(zptgDCT4GetSize_64f(8, &size) == zptgStatusOk, "DCT-IV size");
    block = zptMalloc(size);
    check(block != 0, "zptMalloc");
    check(zptgDCT4Init_64f(&context, 8, block) == zptgStatusOk, "DCT-IV init");
    check(zptgDCT4_64f(d, D, context) == zptgStatusOk, "DCT-IV status");
    check(zptgDCT4_64f(D, DD, context) == zptgStatusOk, "DCT-IV status");
    for (i = 0; i < 8; ++i) {
        double e = DD[i] - 4.0 * d[i];
        check(e < 1e-12 && e > -1e-12, "DCT-IV value");
    }
    check(zptgDCT4Free_64f(context) == zptgStatusOk, "DCT-IV free");

    printf("consumer: %s, %s\n", v->libraryName, failures ? "FAILED" : "all checks passed");
    return failures != 0;
}
