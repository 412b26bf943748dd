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
[[gnu::flatten, gnu::noinline]] void oddfreq_columns(const T* fwd, const T* rev, int32_t stride,
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

// Runs body.template operator()<M>() for a rule 1 to 6 of env3 or env7, M
// the length of its direct body; false for any other rule.
template <class Body>
bool by_length_rule(int32_t rule, Body&& body)
{
    switch (rule) {
    case 1: body.template operator()<2>(); return true;
    case 2: body.template operator()<4>(); return true;
    case 3: body.template operator()<8>(); return true;
    case 4: body.template operator()<16>(); return true;
    case 5: body.template operator()<32>(); return true;
    case 6: body.template operator()<64>(); return true;
    default: return false;
    }
}

template <class T>
zptgStatus oddfreq_by_rule(int32_t rule, const T* fwd, const T* rev, int32_t stride,
                           int32_t innerStride, int32_t count, int32_t outerCount, T* out)
{
    const bool planned = by_length_rule(rule, [&]<int M>() {
        oddfreq_columns<M>(fwd, rev, stride, innerStride, count, outerCount, out);
    });
    return planned ? zptgStatusOk : zptgStatusNotPlanned;
}

// Elements of one cache line (also the size of a group of root columns,
// further down).
template <class T>
constexpr int32_t kLine = 64 / static_cast<int32_t>(sizeof(T));

// The root's rows read their input and their table in order, 2D values of
// each per row, and the stage runs at the rate these arrive once they come
// from beyond the second-level cache. With SSE arithmetic each row asks for
// the lines kRowsPrefetchBytes ahead in both: on an AMD EPYC (family 25,
// 1 MiB second-level cache) the 64f transform took 0.86-0.95 of its time
// at N = 2^17..2^20 with 2 KiB (1 KiB: 0.96-0.98; 4 KiB: 0.92-0.95), the
// same below and in 32f. With x87 arithmetic the rows are slow enough to
// wait for nothing, and the requests only add to the traffic (2-8 % slower
// from 2^17): none there.
#if defined(__SSE2_MATH__)
constexpr int32_t kRowsPrefetchBytes = 2048;
#else
constexpr int32_t kRowsPrefetchBytes = 0;
#endif

// `rows` output rows of the root: row k reads 2D values at in + 2D k and
// 2D table entries, and stores forward from dst + k and mirrored from
// dst + reflectBase - K - k, K = D m.
template <int D, class T>
[[gnu::flatten]] void network_rows(const T* in, const T* table, int32_t rows, int32_t m,
                                   int32_t reflectBase, T* dst)
{
    constexpr int32_t ahead = kRowsPrefetchBytes / int32_t(sizeof(T));
    T* fwd = dst;
    T* rev = dst + (reflectBase - D * m);
    for (int32_t k = 0; k < rows; ++k) {
        if constexpr (ahead > 0) {
            // Requests never fault, also past the arrays' ends.
            for (int32_t p = 0; p < 2 * D; p += kLine<T>) {
                __builtin_prefetch(in + ahead + p);
                __builtin_prefetch(table + ahead + p);
            }
        }
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
// store of the stage misses. So the rows may go in blocks of B, four cache
// lines of outputs (on an AMD EPYC of family 25: one line took 3 to 10 %
// longer than two from N = 2^19 on, two took 2 to 4 % longer than four
// from 2^15 on, eight 2 to 6 % longer than four). A block is the row stage
// of a transform of length N' = 2DB: compute_env2 runs on a copy of the
// record with rows B, inner m' = 2B and reflectBase 2N' - 1, from the
// block's rows of input and table into a buffer laid out like dst
// (16 KiB), and each run of B values then goes out whole. The loop and
// bodies are those of every other call, so each value is formed by the
// same code. Only for N = K: for N = K + 1 two rows write some elements
// alike, and the row order decides which value stands.
//
// Where it pays, by the distance between a row's values in bytes (measured,
// root rows alone): with SSE arithmetic from 2 KiB on (N = 2^14 32f, 2^13
// 64f: the stage takes 0.55 to 0.6 of the time on an Intel Xeon). Far
// distances, where every row's values lie in as many pages: on an AMD EPYC
// (family 25) the blocks take 0.6 of the plain loop's time at 256 and 512
// KiB (N = 2^20 64f, 2^21 32f; 2^21 64f 0.75), while an earlier run on the
// Xeon found them slower at 256 KiB. With x87 arithmetic the rows are slow
// enough to hide most of their misses, and the vendors disagree: on the
// Xeon the blocks were slower (by 10 to 20 % in 64f, and in 32f from
// N = 2^17 on), on the EPYC they are faster from 32 KiB (by 3 to 18 % at
// N = 2^17..2^20). Not used until one distance serves both.
#if defined(__SSE2_MATH__)
constexpr int64_t kBlockedRowsFromBytes = 2048;
#else
constexpr int64_t kBlockedRowsFromBytes = INT64_MAX;
#endif

template <class T>
zptgStatus compute_env2_blocked(env2<T>* self, T* dst, const T* in)
{
    constexpr int32_t B = 256 / sizeof(T);
    const int32_t rule = self->rule;
    const int32_t m = self->inner;
    const int32_t rows = self->rows;
    const int32_t D = rule >= 1 && rule <= kEnv2RuleLast ? 1 << (rule - 1) : 0;
    const int64_t distance = int64_t(m) * int64_t(sizeof(T));
    if (D == 0 || distance < kBlockedRowsFromBytes ||
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

// Runs rows.template operator()<D2, AStep, BStep>(a, b) for the rule of an
// env6: the DFT length and where each row's twiddles lie (see dft_rows).
// False for a rule out of range.
template <class T, class Rows>
bool by_env6_rule(const env6<T>* self, Rows&& rows)
{
    const T* table = self->table;
    switch (self->rule) {
    case 1: rows.template operator()<2, 2, 0>(table, table); return true;
    case 2: rows.template operator()<4, 6, 0>(table, table); return true;
    case 3: rows.template operator()<8, 14, 0>(table, table); return true;
    case 4: rows.template operator()<16, 6, 24>(table, table + 6 * self->rows); return true;
    case 5: {
        const T* triples;
        const T* pairs;
        rule5_sections(table, self->rows, &triples, &pairs);
        rows.template operator()<32, 48, 14>(triples, pairs);
        return true;
    }
    default: return false;
    }
}

template <class T>
zptgStatus compute_env6(env6<T>* self, T* out, const T* in, int32_t column)
{
    const int32_t rows = self->rows;
    const int32_t n2 = self->inner;
    const int32_t outerCount = self->outerCount;
    const bool planned =
        by_env6_rule(self, [&]<int D2, int AStep, int BStep>(const T* a, const T* b) {
            dft_rows<D2, AStep, BStep>(in, a, b, rows, n2, outerCount, column, out);
        });
    return planned ? zptgStatusOk : zptgStatusNotPlanned;
}

// ---- The root's columns in groups ---------------------------------------
//
// Under rule 7 of env3, root column i reads the source at i + 2d j and
// 2N - 1 - i - 2d j, and its env4 writes the root's scratch at 2d k + i and
// 2d k + d + i: one element of each cache line it touches, the rest of the
// line belonging to its neighbours (d = 32: a line holds 8 columns' elements
// in 64f, 16 in 32f). Column after column, each of them fetches the line
// again unless it stayed in cache for a whole column: two lines of every 2d
// elements of the source and two of the scratch, 128 N / d bytes (4 N with
// d = 32: a quarter of the source and of the scratch in 64f, a half in 32f).
// Inside a column, power-of-two strides put the lines that one body reads or
// writes into few cache sets.
//
// So the root may run the G columns of one line side by side, a group of G
// members: member c is the column i0 + c. At every level of the tree, each
// step runs for all members before the next step: the leaves' sub-sequence
// t, then t + 1; an env6's row k, then k + 1. Each member has its own env4
// scratch at every level; a group's scratches are interleaved, element p of
// member c at work[G p + c], so that what the members make at one place
// fills one line. A leaf step copies the G-element runs of its M input
// lines into a small buffer, runs the M-point body of each member on it,
// and copies the results out line by line; a row step runs each member's
// row body on its G-interleaved row into a small buffer, which likewise goes
// out line by line. Every value is formed by the same body from the same
// operands as in the plain path: the same bits.
//
// With x87 arithmetic the columns keep the plain path: the wider registers
// make a result's last bits depend on how the compiler spills, which is not
// the same in both paths (and that build has not been timed with groups).
//
// The scratches take G (m + m/d2 + ...) elements, less than N: they lie in
// dst, which only the root's rows write, after the last column, when dst
// lies apart from src; otherwise on the stack if they fit kGroupStackBytes.
// The stack also holds the copy buffers of one level at a time (two of at
// most 4 KiB for the leaves, one for the rows): with the scratches about
// 39 KiB at most (GCC 12), and the root rows' own buffer (16 KiB) later.
//
// The groups' copies cost about as much as they save while a column's lines
// fit the first-level data cache (N = 2^12: the same time either way on an
// AMD EPYC of family 25, 32 KiB per core); the columns go in groups from
// kGroupFromBytes of a column's lines on (N = 2^13, both kinds).

// Scratches of an in-place transform on the stack: at most this many bytes.
constexpr int32_t kGroupStackBytes = 32768;

// The lines a column of the plain path touches, from which groups are used.
constexpr int64_t kGroupFromBytes = 32768;

#if defined(__SSE2_MATH__)
constexpr bool kGroupedColumns = true;
#else
constexpr bool kGroupedColumns = false;
#endif

// Where the members' outputs go: element p of member c at out[scale p + c].
// The scratch of an env4 above is interleaved (scale G); the root's scratch
// is not, its columns being the members (scale 1, the column in p).
template <class T>
struct GroupOut {
    T* out;
    int32_t scale;
};

// Leaves of one env7 under rule 1 to 6 for the whole group: M-point bodies,
// sub-sequence t of member c forward from fwd + c + stride t and mirrored
// from rev - c - stride t (elements innerStride apart), C(k) and S(k) to
// places 2 outerCount k + t and 2 outerCount k + outerCount + t.
template <int M, class T>
[[gnu::flatten]] void group_leaves(const T* fwd, const T* rev, int32_t stride,
                                   int32_t innerStride, int32_t count, int32_t outerCount,
                                   GroupOut<T> to)
{
    constexpr int32_t G = kLine<T>;
    // Mirrored input line j (j >= M/2) at in + G (M - 1 - j), forward line j
    // (j < M/2) at in + G (M/2 + j), each in the order of its addresses, so
    // that both of a member's start pointers lie inside `in`; results of
    // member c: C(k) at res[2 G k + c], S(k) at res[2 G k + G + c].
    T in[M * G];
    T res[M * G];
    for (int32_t t = 0; t < count; ++t) {
        for (int32_t j = 0; j < M / 2; ++j)
            __builtin_memcpy(in + G * (M / 2 + j), fwd + innerStride * j, sizeof in / M);
        for (int32_t j = M / 2; j < M; ++j)
            __builtin_memcpy(in + G * (M - 1 - j), rev - innerStride * j - (G - 1),
                             sizeof in / M);
        // The next sub-sequence's lines, far apart in memory for long N,
        // are asked for while this one computes.
        for (int32_t j = 0; j < M / 2; ++j) {
            __builtin_prefetch(fwd + stride + innerStride * j);
            __builtin_prefetch(rev - stride - innerStride * (j + M / 2) - (G - 1));
        }
        for (int32_t c = 0; c < G; ++c)
            dct4::oddfreq_column<M>(in + G * (M / 2) + c, in + G * M - 1 - c, G, res + c, 2 * G, G);
        for (int32_t k = 0; k < M / 2; ++k) {
            const int32_t p = 2 * outerCount * k + t;
            __builtin_memcpy(to.out + to.scale * p, res + 2 * G * k, sizeof res / M);
            __builtin_memcpy(to.out + to.scale * (p + outerCount), res + 2 * G * k + G,
                             sizeof res / M);
        }
        fwd += stride;
        rev -= stride;
    }
}

// Rows of one env6 for the whole group: the members' rows are interleaved
// in `in` (row k of member c at in + G 2 D2 k + c, its values G apart);
// V(s) of row k goes to the places of dft_rows.
template <int D2, int AStep, int BStep, class T>
[[gnu::flatten]] void group_rows(const T* in, const T* a, const T* b, int32_t rows, int32_t n2,
                                 int32_t outerCount, int32_t column, GroupOut<T> to)
{
    constexpr int32_t G = kLine<T>;
    const int32_t rowStep = 2 * outerCount;
    const int32_t step = rowStep * n2;
    // Forward V(s) of member c: real part at res[2 G s + c], imaginary part
    // G further; the mirrored ones likewise from res + 2 G (D2/2).
    T res[2 * D2 * G];
    int32_t fwd = column;
    int32_t rev = column + rowStep * (n2 - 1);
    for (int32_t k = 0; k < rows; ++k) {
        for (int32_t c = 0; c < G; ++c)
            dct4::row_dft_store<D2, G>(in + c, a, b, res + c, res + G * D2 + c, 2 * G, G);
        for (int32_t s = 0; s < D2 / 2; ++s) {
            constexpr auto line = sizeof res / (2 * D2);
            __builtin_memcpy(to.out + to.scale * (fwd + step * s), res + 2 * G * s, line);
            __builtin_memcpy(to.out + to.scale * (fwd + step * s + outerCount),
                             res + 2 * G * s + G, line);
            __builtin_memcpy(to.out + to.scale * (rev + step * s), res + G * D2 + 2 * G * s,
                             line);
            __builtin_memcpy(to.out + to.scale * (rev + step * s + outerCount),
                             res + G * D2 + 2 * G * s + G, line);
        }
        in += 2 * D2 * G;
        a += AStep;
        b += BStep;
        fwd += rowStep;
        rev -= rowStep;
    }
}

template <class T>
void group_env4(env4<T>* self, GroupOut<T> to, const T* in, int32_t first, int32_t reflect,
                int32_t column, T* work);

// env7 for the group, its members' sub-transforms into `to`; an env4 below
// takes its scratches from `work`.
template <class T>
void group_env7(env7<T>* self, GroupOut<T> to, const T* in, int32_t first, int32_t reflect,
                T* work)
{
    const int32_t stride = self->stride;
    if (self->rule == kEnv7RuleChild) {
        for (int32_t t = 0; t < self->count; ++t) {
            group_env4(first_item<env4<T>>(self->childList), to, in, first + stride * t,
                       reflect - 2 * stride * t, t, work);
        }
        return;
    }
    by_length_rule(self->rule, [&]<int M>() {
        group_leaves<M>(in + first, in + first + reflect, stride, self->innerStride, self->count,
                        self->outerCount, to);
    });
}

template <class T>
void group_env6(env6<T>* self, GroupOut<T> to, const T* in, int32_t column)
{
    const int32_t rows = self->rows;
    const int32_t n2 = self->inner;
    const int32_t outerCount = self->outerCount;
    by_env6_rule(self, [&]<int D2, int AStep, int BStep>(const T* a, const T* b) {
        group_rows<D2, AStep, BStep>(in, a, b, rows, n2, outerCount, column, to);
    });
}

// env4 for the group: members are the sequences at first + c, reflect - 2c;
// their scratches, interleaved, at `work`.
template <class T>
void group_env4(env4<T>* self, GroupOut<T> to, const T* in, int32_t first, int32_t reflect,
                int32_t column, T* work)
{
    if (self->rule != kEnv4RulePlanned) return;
    const GroupOut<T> scratch = {work, kLine<T>};
    group_env7(first_item<env7<T>>(self->preList), scratch, in, first, reflect,
               work + kLine<T> * self->length);
    group_env6(first_item<env6<T>>(self->postList), to, work, column);
}

// Elements of the interleaved scratches of a group below env3; 0 where the
// columns do not go in groups (not rule 7, N = K + 1, d not a multiple of G,
// or fewer than kGroupFromBytes of a column's lines).
template <class T>
int64_t group_work(const env3<T>* stage)
{
    constexpr int32_t G = kLine<T>;
    const int64_t d = stage->count;
    if (!kGroupedColumns || stage->rule != kEnv3RuleChild || d % G != 0 ||
        stage->reflectBase != d * stage->inner * 2 - 1 ||
        128 * int64_t(stage->length) / d < kGroupFromBytes)
        return 0;
    int64_t elements = 0;
    const env4<T>* level = first_item<env4<T>>(stage->childList);
    while (true) {
        elements += int64_t(G) * level->length;
        const env7<T>* const below = first_item<env7<T>>(level->preList);
        if (below->rule != kEnv7RuleChild) return elements;
        level = first_item<env4<T>>(below->childList);
    }
}

template <class T>
void compute_env3_grouped(env3<T>* self, T* out, const T* in, T* work)
{
    constexpr int32_t G = kLine<T>;
    for (int32_t i0 = 0; i0 < self->count; i0 += G) {
        group_env4(first_item<env4<T>>(self->childList), GroupOut<T>{out, 1}, in, i0,
                   self->reflectBase - 2 * i0, i0, work);
    }
}

template <class T>
[[gnu::noinline]] void compute_env3_grouped_on_stack(env3<T>* self, T* out, const T* in)
{
    T work[kGroupStackBytes / sizeof(T)];
    compute_env3_grouped(self, out, in, work);
}

// Where the group's scratches go: dst if it lies apart from src, else the
// stack if they fit there, else none (the plain path).
template <class T>
zptgStatus compute_env1_split(env1<T>* self, T* dst, const T* src)
{
    T* const scratch = self->scratch;
    env3<T>* const stage = first_item<env3<T>>(self->preList);
    env2<T>* const rows = first_item<env2<T>>(self->postList);
    const int64_t work = group_work(stage);
    const uintptr_t bytes = uintptr_t(self->length) * sizeof(T);
    const uintptr_t to = reinterpret_cast<uintptr_t>(dst);
    const uintptr_t from = reinterpret_cast<uintptr_t>(src);
    if (work > 0 && (to < from ? from - to >= bytes : to - from >= bytes)) {
        compute_env3_grouped(stage, scratch, src, dst);
    } else if (work > 0 && work * int64_t(sizeof(T)) <= kGroupStackBytes) {
        compute_env3_grouped_on_stack(stage, scratch, src);
    } else {
        env3_compute(stage, scratch, src);
    }
    env2_compute(rows, dst, scratch);
    return zptgStatusOk;
}

template <class T>
zptgStatus compute_env1(env1<T>* self, T* dst, const T* src)
{
    switch (self->rule) {
    case 1: dct4::dct4_direct<2, T>(src, dst); return zptgStatusOk;
    case 2: dct4::dct4_direct<4, T>(src, dst); return zptgStatusOk;
    case 3: dct4::dct4_direct<8, T>(src, dst); return zptgStatusOk;
    case 4: dct4::dct4_direct<16, T>(src, dst); return zptgStatusOk;
    case 5: dct4::dct4_direct<32, T>(src, dst); return zptgStatusOk;
    case kEnv1RuleSplit: return compute_env1_split(self, dst, src);
    default: return zptgStatusNotPlanned;
    }
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
