// The compute functions of the plan environments, for both element kinds:
// the rule dispatch of each environment and the rolled loops that run one
// fixed body per column or row. The bodies themselves are in compute_*.h;
// the loops only move pointers. Nothing here allocates or evaluates a
// trigonometric function: the multipliers are literals of the bodies or are
// read from the env2 and env6 tables.
#include "dct4/compute_direct.h"
#include "dct4/compute_network.h"
#include "dct4/compute_oddfreq.h"
#include "dct4/compute_rowdft.h"
#include "dct4/env.h"

namespace zptg {
namespace {

using dct4::Cplx;

// The kind's named functions, by element type.
inline zptgStatus env3_compute(env3<float>* e, float* out, const float* in)
{
    return owngDCT4_32f_env3_compute(e, out, in);
}
inline zptgStatus env3_compute(env3<double>* e, double* out, const double* in)
{
    return owngDCT4_64f_env3_compute(e, out, in);
}
inline zptgStatus env2_compute(env2<float>* e, float* dst, const float* in)
{
    return owngDCT4_32f_env2_compute(e, dst, in);
}
inline zptgStatus env2_compute(env2<double>* e, double* dst, const double* in)
{
    return owngDCT4_64f_env2_compute(e, dst, in);
}
inline zptgStatus env4_compute(env4<float>* e, float* out, const float* in, int32_t first,
                               int32_t reflect, int32_t column)
{
    return owngDCT4_32f_env4_compute(e, out, in, first, reflect, column);
}
inline zptgStatus env4_compute(env4<double>* e, double* out, const double* in, int32_t first,
                               int32_t reflect, int32_t column)
{
    return owngDCT4_64f_env4_compute(e, out, in, first, reflect, column);
}
inline zptgStatus env6_compute(env6<float>* e, float* out, const float* in, int32_t column)
{
    return owngDCT4_32f_env6_compute(e, out, in, column);
}
inline zptgStatus env6_compute(env6<double>* e, double* out, const double* in, int32_t column)
{
    return owngDCT4_64f_env6_compute(e, out, in, column);
}
inline zptgStatus env7_compute(env7<float>* e, float* out, const float* in, int32_t first,
                               int32_t reflect)
{
    return owngDCT4_32f_env7_compute(e, out, in, first, reflect);
}
inline zptgStatus env7_compute(env7<double>* e, double* out, const double* in, int32_t first,
                               int32_t reflect)
{
    return owngDCT4_64f_env7_compute(e, out, in, first, reflect);
}

template <class E>
E* first_item(EnvList* list)
{
    return static_cast<E*>(EnvList_get(list, 0));
}

// ---- Loops around the bodies ----------------------------------------------

// `count` odd-frequency transforms of length M: sequence t reads forward
// from fwd + t stride (step innerStride) and mirrored from rev - t stride,
// and fills column t of rows of 2 outerCount elements.
template <int M, class T>
[[gnu::flatten]] void oddfreq_columns(const T* fwd, const T* rev, int32_t stride,
                                      int32_t innerStride, int32_t count, int32_t outerCount,
                                      T* out)
{
    const int32_t rowStride = 2 * outerCount;
    for (int32_t t = 0; t < count; ++t) {
        dct4::oddfreq_column<M>(fwd, rev, innerStride, out, rowStride, outerCount);
        fwd += stride;
        rev -= stride;
        out += 1;
    }
}

template <class T>
zptgStatus oddfreq_by_rule(int32_t rule, const T* fwd, const T* rev, int32_t stride,
                           int32_t innerStride, int32_t count, int32_t outerCount, T* out)
{
    switch (rule) {
    case 1: oddfreq_columns<2>(fwd, rev, stride, innerStride, count, outerCount, out); break;
    case 2: oddfreq_columns<4>(fwd, rev, stride, innerStride, count, outerCount, out); break;
    case 3: oddfreq_columns<8>(fwd, rev, stride, innerStride, count, outerCount, out); break;
    case 4: oddfreq_columns<16>(fwd, rev, stride, innerStride, count, outerCount, out); break;
    case 5: oddfreq_columns<32>(fwd, rev, stride, innerStride, count, outerCount, out); break;
    case 6: oddfreq_columns<64>(fwd, rev, stride, innerStride, count, outerCount, out); break;
    default: return zptgStatusNotPlanned;
    }
    return zptgStatusOk;
}

// `rows` output rows of the root: row k reads 2D values at in + 2D k and
// 2D table entries, and stores forward from dst + k and mirrored from
// dst + reflectBase - K - k, K = D m.
template <int D, class T>
[[gnu::flatten]] void network_rows(const T* in, const T* table, int32_t rows, int32_t m,
                                   int32_t reflectBase, T* dst)
{
    T* fwd = dst;
    T* rev = dst + (reflectBase - D * m);
    for (int32_t k = 0; k < rows; ++k) {
        dct4::twist_network_row<D>(in, table, fwd, rev, m);
        in += 2 * D;
        table += 2 * D;
        fwd += 1;
        rev -= 1;
    }
}

// `rows` rows of the inner split: row k reads 2 D2 values at in + 2 D2 k
// and its twiddles at a + aStep k and b + bStep k; V(s) goes to row
// k + n2 s, the conjugated V(D2 - s) to row n2 s - k - 1 of the output.
template <int D2, int AStep, int BStep, class T>
[[gnu::flatten]] void dft_rows(const T* in, const T* a, const T* b, int32_t rows, int32_t n2,
                               int32_t outerCount, int32_t column, T* out)
{
    const int32_t rowStep = 2 * outerCount;
    const int32_t step = rowStep * n2;
    T* fwd = out + column;
    T* rev = out + column + rowStep * (n2 - 1);
    for (int32_t k = 0; k < rows; ++k) {
        dct4::row_dft_store<D2>(in, a, b, fwd, rev, step, outerCount);
        in += 2 * D2;
        a += AStep;
        b += BStep;
        fwd += rowStep;
        rev -= rowStep;
    }
}

// Where the two sections of the 32-column table lie: the eight triples of
// a row and its seven pairs. The 32f table has the triples first, the 64f
// table the pairs first.
template <class T>
void rule5_sections(const T* table, int32_t rows, const T** triples, const T** pairs)
{
    if constexpr (sizeof(T) == 4) {
        *triples = table;
        *pairs = table + 48 * rows;
    } else {
        *pairs = table;
        *triples = table + 14 * rows;
    }
}

// ---- The environments ---------------------------------------------------

template <class T>
zptgStatus compute_env1(env1<T>* self, T* dst, const T* src)
{
    switch (self->rule) {
    case 1: dct4::dct4_direct<2, T>(src, dst); return zptgStatusOk;
    case 2: dct4::dct4_direct<4, T>(src, dst); return zptgStatusOk;
    case 3: dct4::dct4_direct<8, T>(src, dst); return zptgStatusOk;
    case 4: dct4::dct4_direct<16, T>(src, dst); return zptgStatusOk;
    case 5: dct4::dct4_direct<32, T>(src, dst); return zptgStatusOk;
    case kEnv1RuleSplit: {
        T* scratch = self->scratch;
        env3_compute(first_item<env3<T>>(self->preList), scratch, src);
        env2_compute(first_item<env2<T>>(self->postList), dst, scratch);
        return zptgStatusOk;
    }
    default: return zptgStatusNotPlanned;
    }
}

template <class T>
zptgStatus compute_env3(env3<T>* self, T* out, const T* in)
{
    const int32_t rule = self->rule;
    const int32_t reflectBase = self->reflectBase;
    const int32_t stride = self->stride;
    const int32_t count = self->count;
    if (rule == kEnv3RuleChild) {
        for (int32_t i = 0; i < count; ++i) {
            env4_compute(first_item<env4<T>>(self->childList), out, in, i, reflectBase - 2 * i,
                         i);
        }
        return zptgStatusOk;
    }
    // Column i: forward from in + i, mirrored from in + reflectBase - i.
    return oddfreq_by_rule(rule, in, in + reflectBase, 1, stride, count, self->outerCount, out);
}

template <class T>
zptgStatus compute_env2(env2<T>* self, T* dst, const T* in)
{
    const T* table = self->table;
    const int32_t rows = self->rows;
    const int32_t m = self->inner;
    const int32_t reflectBase = self->reflectBase;
    switch (self->rule) {
    case 1: network_rows<1>(in, table, rows, m, reflectBase, dst); break;
    case 2: network_rows<2>(in, table, rows, m, reflectBase, dst); break;
    case 3: network_rows<4>(in, table, rows, m, reflectBase, dst); break;
    case 4: network_rows<8>(in, table, rows, m, reflectBase, dst); break;
    case 5: network_rows<16>(in, table, rows, m, reflectBase, dst); break;
    case 6: network_rows<32>(in, table, rows, m, reflectBase, dst); break;
    default: return zptgStatusNotPlanned;
    }
    return zptgStatusOk;
}

// The root's rows store their 2D values m apart. With m a power of two
// they fall into a few cache sets and evict each other, and the next row
// writes the neighbouring elements of the same lines: from a distance of
// 2 KiB on (two first-level sets for a row's forward values) nearly every
// store of the stage misses. So the rows may go in blocks of B, one cache
// line of outputs. A block is the row stage of a transform of length
// N' = 2DB: compute_env2 runs on a copy of the record with rows B, inner
// m' = 2B and reflectBase 2N' - 1, from the block's rows of input and table
// into a buffer laid out like dst, and each run of B values then goes out
// whole. The loop and bodies are those of every other call, so each value is
// formed by the same code. Only for N = K: for N = K + 1 two rows write some
// elements alike, and the row order decides which value stands.
//
// Where it pays, by the distance between a row's values in bytes (measured,
// root rows alone): with SSE arithmetic from 2 KiB (N = 2^14 32f, 2^13 64f:
// the stage takes 0.55 to 0.6 of the time) to 128 KiB; past that (N = 2^20
// 64f) the buffer's line bursts cost more than they save. With x87
// arithmetic the rows are slow enough to hide their misses, and the blocks
// are faster at no length (slower by 10 to 20 % in 64f, and in 32f from
// N = 2^17 on): not used.
struct BlockedRows {
    int32_t fromBytes;
    int32_t toBytes;
};
#if defined(__SSE2_MATH__)
constexpr BlockedRows kBlockedRows = {2048, 131072};
#else
constexpr BlockedRows kBlockedRows = {0, -1};
#endif

template <class T>
zptgStatus compute_env2_blocked(env2<T>* self, T* dst, const T* in)
{
    constexpr int32_t B = 64 / sizeof(T);
    const int32_t rule = self->rule;
    const int32_t m = self->inner;
    const int32_t rows = self->rows;
    const int32_t D = rule >= 1 && rule <= kEnv2RuleLast ? 1 << (rule - 1) : 0;
    const int64_t distance = int64_t(m) * int64_t(sizeof(T));
    if (D == 0 || distance < kBlockedRows.fromBytes || distance > kBlockedRows.toBytes ||
        self->reflectBase != 2 * D * m - 1 || rows % B != 0)
        return compute_env2(self, dst, in);
    // Chunk c of the buffer: forward value c of rows k0 .. k0+B-1, then
    // mirrored value D-1-c of rows k0+B-1 .. k0, as they stand in dst.
    T buf[2 * 32 * B];
    env2<T> block = *self;
    block.rows = B;
    block.inner = 2 * B;
    block.reflectBase = 4 * D * B - 1;
    T* const mirror = dst + (self->reflectBase - D * m) - (B - 1);
    for (int32_t k0 = 0; k0 < rows; k0 += B) {
        block.table = self->table + 2 * D * k0;
        compute_env2(&block, buf, in + 2 * D * k0);
        for (int32_t c = 0; c < D; ++c) {
            __builtin_memcpy(dst + k0 + c * m, buf + 2 * B * c, sizeof(T) * B);
            __builtin_memcpy(mirror - k0 - (D - 1 - c) * m, buf + 2 * B * c + B, sizeof(T) * B);
        }
    }
    return zptgStatusOk;
}

template <class T>
zptgStatus compute_env4(env4<T>* self, T* out, const T* in, int32_t first, int32_t reflect,
                        int32_t column)
{
    if (self->rule != kEnv4RulePlanned) return zptgStatusNotPlanned;
    T* scratch = self->scratch;
    env7_compute(first_item<env7<T>>(self->preList), scratch, in, first, reflect);
    env6_compute(first_item<env6<T>>(self->postList), out, scratch, column);
    return zptgStatusOk;
}

template <class T>
zptgStatus compute_env7(env7<T>* self, T* out, const T* in, int32_t first, int32_t reflect)
{
    const int32_t rule = self->rule;
    const int32_t stride = self->stride;
    const int32_t count = self->count;
    if (rule == kEnv7RuleChild) {
        for (int32_t t = 0; t < count; ++t) {
            env4_compute(first_item<env4<T>>(self->childList), out, in, first + stride * t,
                         reflect - 2 * stride * t, t);
        }
        return zptgStatusOk;
    }
    // Sub-sequence t: forward from in + first + stride t, mirrored from
    // in + first + reflect - stride t, elements innerStride apart.
    return oddfreq_by_rule(rule, in + first, in + first + reflect, stride, self->innerStride,
                           count, self->outerCount, out);
}

template <class T>
zptgStatus compute_env6(env6<T>* self, T* out, const T* in, int32_t column)
{
    const T* table = self->table;
    const int32_t rows = self->rows;
    const int32_t n2 = self->inner;
    const int32_t outerCount = self->outerCount;
    switch (self->rule) {
    case 1: dft_rows<2, 2, 0>(in, table, table, rows, n2, outerCount, column, out); break;
    case 2: dft_rows<4, 6, 0>(in, table, table, rows, n2, outerCount, column, out); break;
    case 3: dft_rows<8, 14, 0>(in, table, table, rows, n2, outerCount, column, out); break;
    case 4:
        dft_rows<16, 6, 24>(in, table, table + 6 * rows, rows, n2, outerCount, column, out);
        break;
    case 5: {
        const T* triples;
        const T* pairs;
        rule5_sections(table, rows, &triples, &pairs);
        dft_rows<32, 48, 14>(in, triples, pairs, rows, n2, outerCount, column, out);
        break;
    }
    default: return zptgStatusNotPlanned;
    }
    return zptgStatusOk;
}

}  // namespace

#define ZPTG_DCT4_DEFINE_COMPUTE(K, T)                                                      \
    zptgStatus owngDCT4_##K##_env1_compute(env1<T>* self, T* dst, const T* src)             \
    {                                                                                       \
        return compute_env1(self, dst, src);                                                \
    }                                                                                       \
    zptgStatus owngDCT4_##K##_env2_compute(env2<T>* self, T* dst, const T* in)              \
    {                                                                                       \
        return compute_env2_blocked(self, dst, in);                                         \
    }                                                                                       \
    zptgStatus owngDCT4_##K##_env3_compute(env3<T>* self, T* out, const T* in)              \
    {                                                                                       \
        return compute_env3(self, out, in);                                                 \
    }                                                                                       \
    zptgStatus owngDCT4_##K##_env4_compute(env4<T>* self, T* out, const T* in,              \
                                           int32_t first, int32_t reflect, int32_t column)  \
    {                                                                                       \
        return compute_env4(self, out, in, first, reflect, column);                         \
    }                                                                                       \
    zptgStatus owngDCT4_##K##_env6_compute(env6<T>* self, T* out, const T* in,              \
                                           int32_t column)                                  \
    {                                                                                       \
        return compute_env6(self, out, in, column);                                         \
    }                                                                                       \
    zptgStatus owngDCT4_##K##_env7_compute(env7<T>* self, T* out, const T* in,              \
                                           int32_t first, int32_t reflect)                  \
    {                                                                                       \
        return compute_env7(self, out, in, first, reflect);                                 \
    }

ZPTG_DCT4_DEFINE_COMPUTE(32f, float)
ZPTG_DCT4_DEFINE_COMPUTE(64f, double)

#undef ZPTG_DCT4_DEFINE_COMPUTE

}  // namespace zptg
