/**
 * \file zptgenpx.h
 * \brief Public interface of libzptgenpx.so.6.1.
 *
 * Fixed-size linear transforms in the generic ("px") variant: plain scalar
 * code, no vector instructions. Every function returns a ::zptgStatus; there
 * is no other way a failure is reported.
 *
 * Element kinds: 32f and 64f are plain float and double arrays; 32fc and 64fc
 * are complex arrays, interleaved with the real part first. No array needs
 * any alignment beyond that of its element.
 *
 * This header is C89 and C++ compatible. The exported functions are declared
 * through the family lists below (ZPTG_*_FUNCTIONS), which expand one entry
 * per exported name; the same lists serve callers that want to enumerate the
 * interface (\ref lists).
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

/**
 * \defgroup conventions Statuses, scale flags and element types
 * \brief What every family shares: the returned status, the scale flag and
 * the element kinds.
 *
 * \par Statuses
 * Every transform, query and planning function returns a ::zptgStatus.
 * A failed check returns at once: nothing is read from \c src and nothing
 * is written to \c dst. There is no error state, no message and no status
 * text function; the returned value is all there is.
 *
 * \par Order of the checks
 * - A kernel (a function with the size in its name) checks \c src, then
 *   \c dst (::zptgStatusNullPtr), then \c flag (::zptgStatusBadFlag). So a
 *   null pointer together with a bad flag gives ::zptgStatusNullPtr.
 * - A dispatcher (the size as an argument) checks only the size
 *   (::zptgStatusBadSize) and passes everything else unchanged to the kernel
 *   of that size, whose status it returns. So a bad size outranks every
 *   other fault: a null \c src with length 65 and flag 3 gives
 *   ::zptgStatusBadSize, with length 64 ::zptgStatusNullPtr.
 * - Values are not checked: infinities, NaNs and denormals flow through the
 *   arithmetic and are not reported.
 *
 * \par Scale flags
 * The \c flag argument is one whole value, compared for equality; it is
 * not a bit set, so 0, 3, 5, 6, 7, 9, 12, 15, 16 and -1 are all rejected
 * with ::zptgStatusBadFlag. The flag names the direction that carries the
 * division:
 *
 * | flag | value | forward DFT | inverse DFT | Hartley, Walsh-Hadamard (no direction) |
 * |---|---|---|---|---|
 * | ::zptgScaleFwdByN  | 1 | 1/N       | 1         | 1/N       |
 * | ::zptgScaleInvByN  | 2 | 1         | 1/N       | 1/N       |
 * | ::zptgScaleBySqrtN | 4 | 1/sqrt(N) | 1/sqrt(N) | 1/sqrt(N) |
 * | ::zptgScaleNone    | 8 | 1         | 1         | 1         |
 *
 * The same flag given to a forward and an inverse transform of one length
 * makes them exact inverses of each other for flags 1, 2 and 4; with
 * ::zptgScaleNone on both sides the pair returns N times the input. For the
 * Walsh-Hadamard transform N is 2 to the order. Every output value is
 * multiplied exactly once by its factor, also by 1.0, so results under the
 * four flags differ by exactly that one product. The DCT-IV takes no flag:
 * it is unscaled.
 *
 * \par Arrays
 * The caller owns every array; the library keeps no pointer to one after a
 * call. No array needs an alignment beyond its element's. \c dst may be
 * the same array as \c src (the transform then runs in place) for every
 * fixed-size kernel, every Walsh-Hadamard order and the DCT-IV at
 * power-of-two lengths; arrays that overlap in any other way are not
 * supported.
 *
 * \par Threads
 * The library has no global state, no lock and no thread of its own. Any
 * function may be called from any number of threads at once as long as
 * the output arrays differ. Only a Walsh-Hadamard scratch buffer and a
 * DCT-IV context must be used by one call at a time.
 * @{
 */

/** A 32-bit signed status: ::zptgStatusOk or one of the negative codes. */
typedef int zptgStatus;

/** The statuses. */
enum {
    zptgStatusOk = 0,          /**< done */
    zptgStatusNotPlanned = -5, /**< a planned transform reached an unplanned step (a damaged DCT-IV context) */
    zptgStatusBadSize = -6,    /**< a length, order or size is out of range */
    zptgStatusNullPtr = -8,    /**< a required pointer is null */
    zptgStatusBadFlag = -16    /**< flag is not exactly one of the scale flags */
};

/** The scale flags: one whole value, never a bit set. */
enum {
    zptgScaleFwdByN = 1,  /**< the forward transform divides by N */
    zptgScaleInvByN = 2,  /**< the inverse transform divides by N */
    zptgScaleBySqrtN = 4, /**< both directions divide by sqrt(N) */
    zptgScaleNone = 8     /**< no division */
};

/** Element kind 32f: a 32-bit IEEE float. */
typedef float zptg32f;
/** Element kind 64f: a 64-bit IEEE float. */
typedef double zptg64f;
/** Element kind 32fc: a complex value of two 32-bit floats, real part first. */
typedef struct {
    float re; /**< real part */
    float im; /**< imaginary part */
} zptg32fc;
/** Element kind 64fc: a complex value of two 64-bit floats, real part first. */
typedef struct {
    double re; /**< real part */
    double im; /**< imaginary part */
} zptg64fc;

/** @} */

/**
 * \defgroup version Version
 * \brief The library's constant version record.
 * @{
 */

/** The version record: static, one per library, never written. */
typedef struct {
    int versionMajor;          /**< 6 */
    int versionMinor;          /**< 1 */
    int versionBuild;          /**< 137 */
    int versionRevision;       /**< 336 */
    char targetText[4];        /**< "px" and two zero bytes: the generic variant */
    const char* libraryName;   /**< "libzptgenpx.so.6.1", the soname */
    const char* versionText;   /**< "6.1 build 137.56" */
    const char* buildDateText; /**< "Mar 17 2010" */
} zptgLibVersion;

/**
 * Returns the library's constant version record.
 * \return The same pointer at every call, never null. The caller neither
 * writes nor frees the record. May be called at any time: the library needs
 * no start-up.
 */
ZPTG_API const zptgLibVersion* zptgenGetLibVersion(void);

/** @} */

/**
 * \defgroup lists Family lists
 * \brief X-macros that expand one entry per exported function.
 *
 * The header declares the exported functions through these lists, and a
 * caller may use them too, to enumerate the interface: each list takes the
 * macros to apply to each kernel, dispatcher or query. For example, a table
 * of every complex kernel's name:
 * \code
 * #define NAME(stem, kind, type, N) #stem "_" #N "_" #kind,
 * #define NONE(stem, kind, type)
 * static const char* const names[] = { ZPTG_DFT_COMPLEX_FUNCTIONS(NAME, NONE) };
 * \endcode
 * @{
 */

/** ZPTG_LENGTHS_2_64(M, a, b, c) expands M(a, b, c, N) for N = 2 .. 64. */
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

/**
 * A fixed-size family of one stem and kind: K(stem, kind, type, N) for each
 * kernel stem_N_kind(src, dst, flag), N = 2 .. 64, and D(stem, kind, type)
 * for its dispatcher stem_kind(src, dst, N, flag).
 */
#define ZPTG_FIXED_FAMILY(K, D, stem, kind, type) \
    ZPTG_LENGTHS_2_64(K, stem, kind, type) D(stem, kind, type)

/** The complex DFT, forward and inverse, N = 2 .. 64, in both kinds: FAMILY(K, D) as ZPTG_FIXED_FAMILY. */
#define ZPTG_DFT_COMPLEX_FUNCTIONS(K, D)                          \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_CToC, 32fc, zptg32fc)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTFwd_CToC, 64fc, zptg64fc)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_CToC, 32fc, zptg32fc)      \
    ZPTG_FIXED_FAMILY(K, D, zptgDFTInv_CToC, 64fc, zptg64fc)

/**
 * The Walsh-Hadamard family in both kinds: K(kind, type, order) for each
 * direct kernel (orders 1 .. 7), B(kind, type, order) for each blocked one
 * (orders 8 .. 13), D(kind, type) for the dispatcher, Q(kind) for the
 * buffer-size query.
 */
#define ZPTG_WHT_FUNCTIONS(K, B, D, Q)                                      \
    ZPTG_WHT_DIRECT_ORDERS(K, 32f, zptg32f) ZPTG_WHT_BLOCKED_ORDERS(B, 32f, zptg32f) \
    D(32f, zptg32f) Q(32f)                                                   \
    ZPTG_WHT_DIRECT_ORDERS(K, 64f, zptg64f) ZPTG_WHT_BLOCKED_ORDERS(B, 64f, zptg64f) \
    D(64f, zptg64f) Q(64f)
/** ZPTG_WHT_DIRECT_ORDERS(M, a, b) expands M(a, b, order) for the orders 1 .. 7. */
#define ZPTG_WHT_DIRECT_ORDERS(M, a, b) \
    M(a,b,1) M(a,b,2) M(a,b,3) M(a,b,4) M(a,b,5) M(a,b,6) M(a,b,7)
/** ZPTG_WHT_BLOCKED_ORDERS(M, a, b) expands M(a, b, order) for the orders 8 .. 13. */
#define ZPTG_WHT_BLOCKED_ORDERS(M, a, b) \
    M(a,b,8) M(a,b,9) M(a,b,10) M(a,b,11) M(a,b,12) M(a,b,13)

/** The DCT-IV in both kinds: X(kind, type, context type) for each kind. */
#define ZPTG_DCT4_FUNCTIONS(X) \
    X(32f, zptg32f, zptgDCT4Context_32f) X(64f, zptg64f, zptgDCT4Context_64f)

/** The real DFT in the packed layouts CCS, Pack and Perm, N = 2 .. 64. */
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

/** The Hartley transform, N = 2 .. 64. */
#define ZPTG_HARTLEY_FUNCTIONS(K, D)                              \
    ZPTG_FIXED_FAMILY(K, D, zptgHartley, 32f, zptg32f)            \
    ZPTG_FIXED_FAMILY(K, D, zptgHartley, 64f, zptg64f)

/** @} */

/* ---- Declarations ----------------------------------------------------- */

#define ZPTG_DECLARE_KERNEL_(stem, kind, type, N) \
    ZPTG_API zptgStatus stem##_##N##_##kind(const type* src, type* dst, int flag);
#define ZPTG_DECLARE_DISPATCHER_(stem, kind, type) \
    ZPTG_API zptgStatus stem##_##kind(const type* src, type* dst, int len, int flag);

/**
 * \defgroup dft_complex Complex DFT
 * \brief Forward and inverse DFT of complex data, every length 2 to 64,
 * one exported kernel per length.
 *
 * X[k] = s * sum over n = 0 .. N-1 of x[n] e^(-2 pi i kn/N) forward, and
 * with e^(+2 pi i kn/N) inverse, where s is the factor of the flag
 * (\ref conventions).
 *
 * \par Functions
 * 252 kernels, each a straight-line computation of one length and
 * direction, and 4 dispatchers:
 * \code
 * zptgStatus zptgDFTFwd_CToC_<N>_32fc(const zptg32fc* src, zptg32fc* dst, int flag);
 * zptgStatus zptgDFTFwd_CToC_<N>_64fc(const zptg64fc* src, zptg64fc* dst, int flag);
 * zptgStatus zptgDFTInv_CToC_<N>_32fc(const zptg32fc* src, zptg32fc* dst, int flag);
 * zptgStatus zptgDFTInv_CToC_<N>_64fc(const zptg64fc* src, zptg64fc* dst, int flag);
 *
 * zptgStatus zptgDFTFwd_CToC_32fc(const zptg32fc* src, zptg32fc* dst, int len, int flag);
 * zptgStatus zptgDFTFwd_CToC_64fc(const zptg64fc* src, zptg64fc* dst, int len, int flag);
 * zptgStatus zptgDFTInv_CToC_32fc(const zptg32fc* src, zptg32fc* dst, int len, int flag);
 * zptgStatus zptgDFTInv_CToC_64fc(const zptg64fc* src, zptg64fc* dst, int len, int flag);
 * \endcode
 * with N = 2 .. 64 in the kernels' names, for example
 * zptgDFTFwd_CToC_12_64fc(). The dispatchers take the length in third place
 * and call the kernel of that length.
 *
 * \par Arguments and statuses
 * - \c src, \c dst: N complex elements each; \c dst may be \c src.
 * - \c len (dispatchers): 2 .. 64, else ::zptgStatusBadSize, checked first.
 * - \c flag: one of the scale flags, else ::zptgStatusBadFlag; a null
 *   \c src or \c dst gives ::zptgStatusNullPtr (checked before the flag).
 *
 * The kernels allocate nothing, make no system call and call no
 * mathematical function; all their constants are literals. The 32fc
 * kernels compute in double and round once to float on the way out.
 *
 * \par Example
 * \include dft_complex.c
 */
ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_DECLARE_KERNEL_, ZPTG_DECLARE_DISPATCHER_)

/**
 * \defgroup dft_real Real DFT
 * \brief Forward and inverse DFT of real data, every length 2 to 64, with
 * the half spectrum packed as CCS, Pack or Perm; one exported kernel per
 * length, direction and layout.
 *
 * Forward: N reals x to the terms X[0] .. X[N/2] of
 * X[k] = s * sum over n = 0 .. N-1 of x[n] e^(-2 pi i kn/N), stored in the
 * layout of the function's name (\ref packed_layouts). Inverse: the layout
 * back to N reals,
 * x[n] = s * (R0 + 2 sum over k = 1 .. P of (Rk cos(2 pi kn/N) - Ik sin(2 pi kn/N)) + T(n)),
 * with Rk = Re X[k], Ik = Im X[k], P = floor((N-1)/2) and T(n) = (-1)^n R(N/2)
 * for even N, 0 for odd N. s is the factor of the flag (\ref conventions).
 *
 * \par Functions
 * 756 kernels and 12 dispatchers, for layout = CCS, Pack, Perm and
 * kind = 32f (::zptg32f), 64f (::zptg64f):
 * \code
 * zptgStatus zptgDFTFwd_RTo<layout>_<N>_<kind>(const type* src, type* dst, int flag);
 * zptgStatus zptgDFTInv_<layout>ToR_<N>_<kind>(const type* src, type* dst, int flag);
 *
 * zptgStatus zptgDFTFwd_RTo<layout>_<kind>(const type* src, type* dst, int len, int flag);
 * zptgStatus zptgDFTInv_<layout>ToR_<kind>(const type* src, type* dst, int len, int flag);
 * \endcode
 * for example zptgDFTFwd_RToCCS_16_64f() and its dispatcher
 * zptgDFTFwd_RToCCS_64f().
 *
 * \par Arguments and statuses
 * - Forward: \c src holds N reals; \c dst the layout: N + 2 elements in
 *   CCS for even N, N + 1 for odd N, N in Pack and Perm. Every position of
 *   the layout is written once and nothing beyond it; the two zeros of CCS
 *   are stored as +0.0 on every call, whatever the flag and the input.
 * - Inverse: \c src holds the layout, of which exactly N positions are
 *   read: CCS positions 1 and N + 1 never are (a CCS input of N + 1
 *   elements is enough for even N); \c dst holds N reals.
 * - \c dst may be \c src (every value is read before the first store).
 * - Statuses and their order as for every fixed-size family
 *   (\ref conventions).
 *
 * \par Example
 * \include dft_real.c
 */
ZPTG_DFT_REAL_FUNCTIONS(ZPTG_DECLARE_KERNEL_, ZPTG_DECLARE_DISPATCHER_)

/**
 * \defgroup hartley Hartley transform
 * \brief The discrete Hartley transform of N reals to N reals, every length
 * 2 to 64, one exported kernel per length.
 *
 * H[k] = s * sum over n = 0 .. N-1 of x[n] (cos(2 pi kn/N) + sin(2 pi kn/N)),
 * in natural order, with no packed layout: H[k] = Re X[k] - Im X[k] for the
 * spectrum X of the real DFT. The transform has no direction: flags 1 and
 * 2 both divide by N, so one call under flag 1 and one under flag 8 give
 * the input back, as do two calls under flag 4.
 *
 * \par Functions
 * 126 kernels and 2 dispatchers:
 * \code
 * zptgStatus zptgHartley_<N>_32f(const zptg32f* src, zptg32f* dst, int flag);
 * zptgStatus zptgHartley_<N>_64f(const zptg64f* src, zptg64f* dst, int flag);
 *
 * zptgStatus zptgHartley_32f(const zptg32f* src, zptg32f* dst, int len, int flag);
 * zptgStatus zptgHartley_64f(const zptg64f* src, zptg64f* dst, int len, int flag);
 * \endcode
 *
 * \par Arguments and statuses
 * \c src and \c dst hold N elements each and nothing beyond is read or
 * written; \c dst may be \c src. Statuses and their order as for every
 * fixed-size family (\ref conventions).
 *
 * \par Example
 * \include hartley.c
 */
ZPTG_HARTLEY_FUNCTIONS(ZPTG_DECLARE_KERNEL_, ZPTG_DECLARE_DISPATCHER_)

/* ---- Walsh-Hadamard transform, orders 1 .. 13 ------------------------ */

/**
 * \defgroup wht Walsh-Hadamard transform
 * \brief The Walsh-Hadamard transform of 2^order real points, orders 1 to
 * 13, in natural (Hadamard) order.
 *
 * dst[i] = s * sum over j = 0 .. N-1 of (-1)^popcount(i AND j) src[j], with
 * N = 2^order and s the factor of the flag. Row 0 and column 0 are all +1;
 * no reordering (sequency, dyadic, bit reversal) takes place. The transform
 * has no direction: flags 1 and 2 both divide by N, and applying it twice
 * with one of them gives the input back.
 *
 * \par Functions
 * \code
 * zptgStatus zptgWHT_<order>_32f(const zptg32f* src, zptg32f* dst, int flag);                  order 1 .. 7
 * zptgStatus zptgWHT_<order>_32f(const zptg32f* src, zptg32f* dst, int flag, zptg32f* buffer); order 8 .. 13
 * zptgStatus zptgWHT_32f(const zptg32f* src, zptg32f* dst, int order, int flag, zptg32f* buffer);
 * zptgStatus zptgWHTGetBufferSize_32f(int order, int* size);
 * \endcode
 * and the same for 64f with zptg64f. Orders 1 to 7 are straight-line
 * kernels without scratch. Orders 8 to 13 run in passes through a scratch
 * buffer: the caller's, or, if \c buffer is null, one that the call
 * allocates through the core library and releases before it returns. The
 * dispatcher takes the order between \c dst and \c flag and hands
 * \c buffer on (orders 1 to 7 ignore it).
 *
 * \par Buffer sizes
 * zptgWHTGetBufferSize_32f() and zptgWHTGetBufferSize_64f() store the
 * size in bytes through \c size (not checked for null) and return
 * ::zptgStatusOk, or ::zptgStatusBadSize for an order outside 1 .. 13:
 *
 * | order | N | 32f bytes | 64f bytes |
 * |---|---|---|---|
 * | 1 .. 7 | 2 .. 128 | 0 | 0 |
 * | 8  | 256  | 1024  | 2048  |
 * | 9  | 512  | 2048  | 4096  |
 * | 10 | 1024 | 4096  | 8192  |
 * | 11 | 2048 | 8192  | 16384 |
 * | 12 | 4096 | 17408 | 34816 |
 * | 13 | 8192 | 36864 | 73728 |
 *
 * The buffer needs no alignment beyond its element's and no clearing. One
 * buffer serves one call at a time.
 *
 * \par Statuses
 * The dispatcher checks the order first (::zptgStatusBadSize); the kernels
 * check \c src, \c dst, then \c flag, as every kernel does
 * (\ref conventions). A blocked kernel does not test the result of its own
 * allocation.
 *
 * \par Example
 * \include wht.c
 */

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

/**
 * \defgroup dct4 DCT-IV
 * \brief The type-IV discrete cosine transform of power-of-two lengths,
 * through a context planned once.
 *
 * X[k] = sum over j = 0 .. N-1 of x[j] cos(pi/N (j + 1/2)(k + 1/2)), for
 * k = 0 .. N-1. It is unscaled and takes no flag; since its matrix squared
 * is N/2 times the identity, the same call is its own inverse up to the
 * factor 2/N, which is left to the caller.
 *
 * \par Functions
 * \code
 * zptgStatus zptgDCT4GetSize_32f(int length, int* size);
 * zptgStatus zptgDCT4Init_32f(zptgDCT4Context_32f** ppContext, int length, void* pBuffer);
 * zptgStatus zptgDCT4InitAlloc_32f(zptgDCT4Context_32f** ppContext, int length);
 * zptgStatus zptgDCT4_32f(const zptg32f* src, zptg32f* dst, zptgDCT4Context_32f* pContext);
 * zptgStatus zptgDCT4Free_32f(zptgDCT4Context_32f* pContext);
 * \endcode
 * and the same for 64f with zptg64f and ::zptgDCT4Context_64f.
 *
 * \par Life of a context
 * A context lies wholly in one block: its plan tree, its twiddle tables
 * and its scratch. Ask zptgDCT4GetSize_32f() for the block size, then
 * either build the context in your own block of at least that many bytes
 * with zptgDCT4Init_32f(), or let zptgDCT4InitAlloc_32f() allocate the
 * block (through the core library's zptMalloc()) and build it. Run
 * zptgDCT4_32f() any number of times (note the order: data first, context
 * last), and release with zptgDCT4Free_32f(), which always hands the block
 * to zptFree(): call it only on a context whose block came from
 * zptMalloc() (by InitAlloc, or your own zptMalloc() before Init). A
 * context built by Init in any other block is simply forgotten, and its
 * block may be reused for a new Init at any time. A transform writes only
 * the context's scratch, so repeated calls with equal input give equal
 * output; but one context serves one call at a time. Different contexts
 * share nothing.
 *
 * \par Lengths and block sizes
 * | length | status | what it computes |
 * |---|---|---|
 * | 2, 4, 8, 16, 32 | ::zptgStatusOk | the DCT-IV, by direct code |
 * | 2^k, k = 6 .. 27 (32f), k = 6 .. 26 (64f) | ::zptgStatusOk | the DCT-IV, through the plan tree |
 * | 2^k + 1, k = 3 .. 27 (32f), k = 3 .. 26 (64f) | ::zptgStatusOk | not a DCT-IV: see below |
 * | 2^28, 2^29 and their + 1 (32f); 2^27, 2^28 and their + 1 (64f) | ::zptgStatusBadSize | the byte count overflows |
 * | 2^30, 2^30 + 1 (32f); 2^29, 2^30 and their + 1 (64f) | ::zptgStatusOk, with a wrapped, far too small size | no usable context |
 * | every other length, negative, 0 and 1 | ::zptgStatusBadSize | nothing |
 *
 * Sizes are signed 32-bit byte counts: the largest lengths with a truthful
 * size are 2^27 + 1 for 32f (1,107,840,768 bytes) and 2^26 + 1 for 64f
 * (1,107,839,136 bytes). Some sizes, in bytes, on the 32-bit build (the
 * x86-64 build's records hold 8-byte pointers, so its blocks are somewhat
 * larger: 256 bytes for the lengths 2 to 32):
 *
 * | N | 32f | 64f |
 * |---|---|---|
 * | 2, 4, 8, 16, 32 | 224 | 224 |
 * | 64 | 1184 | 1696 |
 * | 128 | 1696 | 2720 |
 * | 256 | 2720 | 4768 |
 * | 512 | 4768 | 8864 |
 * | 1024 | 8864 | 17056 |
 * | 2048 | 17056 | 33440 |
 * | 4096 | 35072 | 68800 |
 * | 8192 | 68864 | 136384 |
 * | 65536 | 541760 | 1082176 |
 * | 1048576 | 8656736 | 17311456 |
 *
 * \par Lengths 2^k + 1
 * These lengths are accepted (9, 17, 33, 65, ...) and the call returns
 * ::zptgStatusOk, but the result is not the DCT-IV of that length: element
 * N of \c src is read and element N of \c dst is written (both arrays must
 * hold N + 1 elements), some elements of \c dst are never written and keep
 * what they held, and some are written twice. Use power-of-two lengths.
 *
 * \par Alignment of the block
 * The context starts on a 32-byte boundary 33 to 64 bytes into the block,
 * and the size from GetSize has room for that. The start is computed from
 * the block's address taken as a signed 32-bit number (on x86-64, its low
 * 32 bits): a caller's block that is not 32-byte aligned and lies at an
 * address of 2^31 or above (on the 32-bit build, the upper half of the
 * address space) gets its context 65 to 95 bytes into the block, so up to
 * 31 bytes are written past a block of exactly the size that GetSize
 * returned. Give Init a 32-byte
 * aligned block, or 32 bytes more than GetSize says. Blocks from
 * zptgDCT4InitAlloc_32f() are the core allocator's.
 *
 * \par Statuses
 * - GetSize: ::zptgStatusBadSize for a rejected length, \c *size then
 *   untouched; \c size is not checked for null.
 * - Init: ::zptgStatusNullPtr for a null \c ppContext or \c pBuffer;
 *   ::zptgStatusBadSize for a rejected length, with \c *ppContext not
 *   written (the block's content is then undefined). The block's size is
 *   not known to Init: it must be at least what GetSize returned.
 * - InitAlloc: ::zptgStatusNullPtr for a null \c ppContext, GetSize's
 *   status for a rejected length (nothing allocated); a failed allocation
 *   shows as ::zptgStatusNullPtr.
 * - The transform: ::zptgStatusNullPtr if \c pContext, \c src or \c dst
 *   is null (checked in that order); ::zptgStatusNotPlanned only for a
 *   damaged context. \c dst may be \c src at power-of-two lengths.
 * - Free: ::zptgStatusNullPtr for a null context, else ::zptgStatusOk.
 *
 * All sines and cosines are evaluated while a context is built; the
 * transform itself calls no library function and allocates nothing.
 *
 * \par Memory a transform uses
 * Besides the context's scratch: on the x86-64 build, from length 2^13 on
 * (power-of-two lengths), a transform with \c dst apart from \c src uses
 * \c dst as working space before it writes the result there; in place it
 * takes that space, up to 32 KiB, from the stack (lengths 2^13 and 2^14)
 * or does without it (longer lengths, which then run slower). Its stack use
 * is at most 64 KiB in all cases (about 40 KiB with GCC 12); it never uses
 * the heap.
 *
 * \par Example
 * \include dct4.c
 * @{
 */

/** A DCT-IV context of 32-bit floats: opaque, lives in the caller's or the library's block. */
typedef struct zptgDCT4Context_32f zptgDCT4Context_32f;
/** A DCT-IV context of 64-bit floats: opaque, lives in the caller's or the library's block. */
typedef struct zptgDCT4Context_64f zptgDCT4Context_64f;

/** @} */

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
