/*
 * zptgenpx.h - public interface of libzptgenpx.so.6.1
 *
 * Fixed-size linear transforms in the generic ("px") variant: plain scalar
 * code, no vector instructions. Every function returns a zptgStatus; there is
 * no other way a failure is reported.
 *
 * Element kinds: 32f and 64f are plain float and double arrays; 32fc and 64fc
 * are complex arrays, interleaved with the real part first. No array needs
 * any alignment beyond that of its element.
 *
 * This header is C89 and C++ compatible. The exported functions are declared
 * through the family lists below (ZPTG_*_FUNCTIONS), which expand one entry
 * per exported name; the same lists serve callers that want to enumerate the
 * interface.
 */
#ifndef ZPTGENPX_H
#define ZPTGENPX_H

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define ZPTG_API __attribute__((visibility("default")))
#else
#define ZPTG_API
#endif

/* ---- Statuses -------------------------------------------------------- */

typedef int zptgStatus;

enum {
    zptgStatusOk = 0,
    zptgStatusNotPlanned = -5, /* a planned transform reached an unplanned step */
    zptgStatusBadSize = -6,    /* a length, order or size is out of range */
    zptgStatusNullPtr = -8,    /* a required pointer is null */
    zptgStatusBadFlag = -16    /* flag is not exactly one of the scale flags */
};

/* ---- Scale flags: one whole value, never a bit set ------------------- */

enum {
    zptgScaleFwdByN = 1,  /* the forward transform divides by N */
    zptgScaleInvByN = 2,  /* the inverse transform divides by N */
    zptgScaleBySqrtN = 4, /* both directions divide by sqrt(N) */
    zptgScaleNone = 8     /* no division */
};

/* ---- Element types ---------------------------------------------------- */

typedef float zptg32f;
typedef double zptg64f;
typedef struct { float re; float im; } zptg32fc;
typedef struct { double re; double im; } zptg64fc;

/* ---- Version ---------------------------------------------------------- */

typedef struct {
    int versionMajor;
    int versionMinor;
    int versionBuild;
    int versionRevision;
    char targetText[4];
    const char* libraryName;
    const char* versionText;
    const char* buildDateText;
} zptgLibVersion;

/* Returns the library's constant version record; never null. */
ZPTG_API const zptgLibVersion* zptgenGetLibVersion(void);

/* ---- Family lists ----------------------------------------------------- */

/* ZPTG_LENGTHS_2_64(M, a, b, c) expands M(a, b, c, N) for N = 2 .. 64. */
#define ZPTG_LENGTHS_2_64(M, a, b, c) \
    M(a,b,c,2)  M(a,b,c,3)  M(a,b,c,4)  M(a,b,c,5)  M(a,b,c,6)  M(a,b,c,7)  M(a,b,c,8)  \
    M(a,b,c,9)  M(a,b,c,10) M(a,b,c,11) M(a,b,c,12) M(a,b,c,13) M(a,b,c,14) M(a,b,c,15) \
    M(a,b,c,16) M(a,b,c,17) M(a,b,c,18) M(a,b,c,19) M(a,b,c,20) M(a,b,c,21) M(a,b,c,22) \
    M(a,b,c,23) M(a,b,c,24) M(a,b,c,25) M(a,b,c,26) M(a,b,c,27) M(a,b,c,28) M(a,b,c,29) \
    M(a,b,c,30) M(a,b,c,31) M(a,b,c,32) M(a,b,c,33) M(a,b,c,34) M(a,b,c,35) M(a,b,c,36) \
    M(a,b,c,37) M(a,b,c,38) M(a,b,c,39) M(a,b,c,40) M(a,b,c,41) M(a,b,c,42) M(a,b,c,43) \
    M(a,b,c,44) M(a,b,c,45) M(a,b,c,46) M(a,b,c,47) M(a,b,c,48) M(a,b,c,49) M(a,b,c,50) \
    M(a,b,c,51) M(a,b,c,52) M(a,b,c,53) M(a,b,c,54) M(a,b,c,55) M(a,b,c,56) M(a,b,c,57) \
    M(a,b,c,58) M(a,b,c,59) M(a,b,c,60) M(a,b,c,61) M(a,b,c,62) M(a,b,c,63) M(a,b,c,64)

/*
 * A fixed-size family is described by FAMILY(K, D): K(stem, kind, type, N)
 * for each kernel stem_N_kind(src, dst, flag) and D(stem, kind, type) for
 * its dispatcher stem_kind(src, dst, N, flag).
 */
#define ZPTG_FIXED_FAMILY(K, D, stem, kind, type) \
    ZPTG_LENGTHS_2_64(K, stem, kind, type) D(stem, kind, type)

/* Complex DFT, forward and inverse, N = 2 .. 64. */
#define ZPTG_DFT_COMPLEX_FUNCTIONS(K, D)                          \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_CToC, 32fc, zptg32fc)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_CToC, 64fc, zptg64fc)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_CToC, 32fc, zptg32fc)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_CToC, 64fc, zptg64fc)

/* Real DFT in the packed layouts CCS, Pack and Perm, N = 2 .. 64. */
#define ZPTG_DFT_REAL_FUNCTIONS(K, D)                             \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_RToCCS, 32f, zptg32f)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_RToCCS, 64f, zptg64f)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_RToPack, 32f, zptg32f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_RToPack, 64f, zptg64f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_RToPerm, 32f, zptg32f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_RToPerm, 64f, zptg64f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_CCSToR, 32f, zptg32f)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_CCSToR, 64f, zptg64f)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_PackToR, 32f, zptg32f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_PackToR, 64f, zptg64f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_PermToR, 32f, zptg32f)     \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_PermToR, 64f, zptg64f)

/* Hartley transform, N = 2 .. 64. */
#define ZPTG_HARTLEY_FUNCTIONS(K, D)                              \
    ZPTG_FIXED_FAMILY(K, D, zptgHartley, 32f, zptg32f)            \
    ZPTG_FIXED_FAMILY(K, D, zptgHartley, 64f, zptg64f)

/* ---- Declarations ----------------------------------------------------- */

#define ZPTG_DECLARE_KERNEL_(stem, kind, type, N) \
    ZPTG_API zptgStatus stem##_##N##_##kind(const type* src, type* dst, int flag);
#define ZPTG_DECLARE_DISPATCHER_(stem, kind, type) \
    ZPTG_API zptgStatus stem##_##kind(const type* src, type* dst, int len, int flag);

/*
 * Complex DFT: zptgDFTFwd_CToC_<N>_<kind>(src, dst, flag) and the
 * dispatchers zptgDFTFwd_CToC_<kind>(src, dst, N, flag), likewise Inv.
 * src and dst hold N complex elements; dst may equal src.
 */
ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_DECLARE_KERNEL_, ZPTG_DECLARE_DISPATCHER_)

/*
 * Real DFT: zptgDFTFwd_RTo<layout>_<N>_<kind>(src, dst, flag) takes N reals
 * to the half spectrum X[0 .. N/2] packed as <layout>:
 *   CCS   Re X[k] at 2k, Im X[k] at 2k + 1 (N + 2 elements for even N,
 *         N + 1 for odd N; Im X[0] and Im X[N/2] stored as +0.0)
 *   Pack  X[0] at 0, Re X[k] at 2k - 1, Im X[k] at 2k, X[N/2] at N - 1
 *   Perm  as Pack for odd N; for even N X[0] at 0, X[N/2] at 1 and the
 *         other terms as in CCS
 * (N elements for Pack and Perm). zptgDFTInv_<layout>ToR_<N>_<kind> takes
 * the layout back to N reals and reads only the positions that hold a
 * value. The dispatchers take N between dst and flag. dst may equal src.
 */
ZPTG_DFT_REAL_FUNCTIONS(ZPTG_DECLARE_KERNEL_, ZPTG_DECLARE_DISPATCHER_)

/*
 * Hartley transform: zptgHartley_<N>_<kind>(src, dst, flag),
 * H[k] = s * sum_n x[n] (cos + sin)(2 pi k n / N); flags 1 and 2 both
 * scale by 1/N. The dispatchers take N between dst and flag. dst may equal
 * src.
 */
ZPTG_HARTLEY_FUNCTIONS(ZPTG_DECLARE_KERNEL_, ZPTG_DECLARE_DISPATCHER_)

/* ---- Walsh-Hadamard transform, orders 1 .. 13 ------------------------ */

/*
 * zptgWHT_<order>_<kind>: N = 2^order points. Orders 1 .. 7 are single
 * straight-line kernels; orders 8 .. 13 take a scratch buffer of the size
 * that zptgWHTGetBufferSize_<kind> reports (null: the kernel allocates one
 * for the call). The dispatcher zptgWHT_<kind> takes the order between dst
 * and flag, and hands the buffer on.
 */
#define ZPTG_WHT_DIRECT_ORDERS(M, a, b) \
    M(a,b,1) M(a,b,2) M(a,b,3) M(a,b,4) M(a,b,5) M(a,b,6) M(a,b,7)
#define ZPTG_WHT_BLOCKED_ORDERS(M, a, b) \
    M(a,b,8) M(a,b,9) M(a,b,10) M(a,b,11) M(a,b,12) M(a,b,13)

/* ZPTG_WHT_FUNCTIONS(K, B, D, Q): K(kind, type, order) for a direct kernel,
   B(kind, type, order) for a blocked one, D(kind, type) for the dispatcher,
   Q(kind) for the buffer-size query. */
#define ZPTG_WHT_FUNCTIONS(K, B, D, Q)                                      \
    ZPTG_WHT_DIRECT_ORDERS(K, 32f, zptg32f) ZPTG_WHT_BLOCKED_ORDERS(B, 32f, zptg32f) \
    D(32f, zptg32f) Q(32f)                                                   \
    ZPTG_WHT_DIRECT_ORDERS(K, 64f, zptg64f) ZPTG_WHT_BLOCKED_ORDERS(B, 64f, zptg64f) \
    D(64f, zptg64f) Q(64f)

#define ZPTG_DECLARE_WHT_DIRECT_(kind, type, order) \
    ZPTG_API zptgStatus zptgWHT_##order##_##kind(const type* src, type* dst, int flag);
#define ZPTG_DECLARE_WHT_BLOCKED_(kind, type, order) \
    ZPTG_API zptgStatus zptgWHT_##order##_##kind(const type* src, type* dst, int flag, \
                                                 type* buffer);
#define ZPTG_DECLARE_WHT_DISPATCHER_(kind, type) \
    ZPTG_API zptgStatus zptgWHT_##kind(const type* src, type* dst, int order, int flag, \
                                       type* buffer);
#define ZPTG_DECLARE_WHT_BUFFER_SIZE_(kind) \
    ZPTG_API zptgStatus zptgWHTGetBufferSize_##kind(int order, int* size);

ZPTG_WHT_FUNCTIONS(ZPTG_DECLARE_WHT_DIRECT_, ZPTG_DECLARE_WHT_BLOCKED_,
                   ZPTG_DECLARE_WHT_DISPATCHER_, ZPTG_DECLARE_WHT_BUFFER_SIZE_)

/* ---- DCT-IV, planned --------------------------------------------------- */

/*
 * X[k] = sum_j x[j] cos(pi/N (j + 1/2)(k + 1/2)), unscaled, for power-of-two
 * N. A context lives in one block: ask zptgDCT4GetSize_<kind> for its size,
 * then build it with zptgDCT4Init_<kind> in your own block or with
 * zptgDCT4InitAlloc_<kind>, run zptgDCT4_<kind> any number of times, and
 * release with zptgDCT4Free_<kind> (which hands the block to zptFree).
 * A context carries scratch: one call at a time per context.
 */
typedef struct zptgDCT4Context_32f zptgDCT4Context_32f;
typedef struct zptgDCT4Context_64f zptgDCT4Context_64f;

/* ZPTG_DCT4_FUNCTIONS(X): X(kind, type, context type) for each kind. */
#define ZPTG_DCT4_FUNCTIONS(X) \
    X(32f, zptg32f, zptgDCT4Context_32f) X(64f, zptg64f, zptgDCT4Context_64f)

#define ZPTG_DECLARE_DCT4_(kind, type, context)                                              \
    ZPTG_API zptgStatus zptgDCT4GetSize_##kind(int length, int* size);                       \
    ZPTG_API zptgStatus zptgDCT4Init_##kind(context** ppContext, int length, void* pBuffer); \
    ZPTG_API zptgStatus zptgDCT4InitAlloc_##kind(context** ppContext, int length);           \
    ZPTG_API zptgStatus zptgDCT4_##kind(const type* src, type* dst, context* pContext);      \
    ZPTG_API zptgStatus zptgDCT4Free_##kind(context* pContext);

ZPTG_DCT4_FUNCTIONS(ZPTG_DECLARE_DCT4_)

#ifdef __cplusplus
}
#endif

#endif /* ZPTGENPX_H */
