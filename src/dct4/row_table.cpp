// env2, the root's row stage: its record and its twiddle table. The table
// has one row of 2d elements for each output row of the root; a row holds,
// for every class i, the cosine and sine of pi (2i+1)(2row+1) / 4N, taken
// from envfCompose as a(col) = at(row, col), with classes i and d-1-i side
// by side in groups of four:
//
//   d = 1:         a(0), a(1)
//   d = 2 .. 16:   for j = 0, 2, .., d-2: a(j), a(j+1), a(2d-2-j), a(2d-1-j)
//   d = 32:        the same groups with j = 2a + 8b + 32c, c the fastest
//                  digit, then b, then a: j = 0, 32, 8, 40, .., 26, 58,
//                  which is the order the rule-6 row code reads.
#include "dct4/env.h"
#include "dct4/kind.h"
#include "dct4/plan_common.h"

namespace zptg {

namespace {

// The group order of the d = 32 rows.
constexpr int32_t kRule6Groups[16] = {0, 32, 8, 40, 16, 48, 24, 56, 2, 34, 10, 42, 18, 50, 26, 58};

template <class T>
env2<T>* init(env2<T>* self, void* arena, int32_t factor, int32_t length, int32_t rowLength,
              int32_t rows, int32_t length2, int32_t reflectBase, int32_t inner,
              envfCompose<T>* angle)
{
    self->base.ownSize = kOwnSize<env2<T>>;
    self->arena = arena;
    self->factor = factor;
    self->length = length;
    self->rowLength = rowLength;
    self->rows = rows;
    self->length2 = length2;
    self->reflectBase = reflectBase;
    self->inner = inner;
    self->angle = angle;
    self->rule = 0;
    self->table = nullptr;
    self->children = draw_list_head(arena);
    self->base.__del__ = KindOf<T>::env2_del;
    self->plan = KindOf<T>::env2_plan;
    return self;
}

// One group of four: the pair of class j/2 and the pair of class d-1-j/2.
template <class T>
T* put_group(T* out, envfCompose<T>* a, int32_t row, int32_t j, int32_t d)
{
    *out++ = a->at(a, row, j);
    *out++ = a->at(a, row, j + 1);
    *out++ = a->at(a, row, 2 * d - 2 - j);
    *out++ = a->at(a, row, 2 * d - 1 - j);
    return out;
}

template <class T>
zptgStatus plan(env2<T>* self)
{
    constexpr int32_t E = KindOf<T>::E;
    self->rule = rule_by_factor(self->factor, 1, kEnv2RuleLast);
    if (self->rule == 0) return zptgStatusBadSize;
    const int32_t d = self->factor;
    if (product_wraps(self->rows, 2 * d, E)) return zptgStatusBadSize;
    self->table = static_cast<T*>(zptgArenaMalloc(self->arena, mul32(mul32(self->rows, 2 * d), E)));
    if (self->rows <= 0) return zptgStatusOk;

    envfCompose<T>* const a = self->angle;
    T* out = self->table;
    for (int32_t row = 0; row < self->rows; ++row) {
        if (self->rule == 1) {
            *out++ = a->at(a, row, 0);
            *out++ = a->at(a, row, 1);
        } else if (self->rule == kEnv2RuleLast) {
            for (const int32_t j : kRule6Groups) out = put_group(out, a, row, j, d);
        } else {
            for (int32_t j = 0; j < d; j += 2) out = put_group(out, a, row, j, d);
        }
    }
    return zptgStatusOk;
}

// Releases the table by the size its rule implies: 2^rule * E bytes a row.
template <class T>
void del(void* record)
{
    auto* const self = static_cast<env2<T>*>(record);
    if (self->rule >= 1 && self->rule <= kEnv2RuleLast) {
        const int32_t row_bytes = mul32(2 << (self->rule - 1), KindOf<T>::E);
        zptgArenaFree(self->arena, self->table, mul32(self->rows, row_bytes));
    }
    release_owning_list(self->children, self->arena);
}

}  // namespace

#define ZPTG_DCT4_ROW_TABLE(K, T)                                                              \
    env2<T>* owngDCT4_##K##_env2___init__(env2<T>* self, void* arena, int32_t factor,          \
                                          int32_t length, int32_t rowLength, int32_t rows,     \
                                          int32_t length2, int32_t reflectBase, int32_t inner, \
                                          envfCompose<T>* angle)                               \
    {                                                                                          \
        return init(self, arena, factor, length, rowLength, rows, length2, reflectBase, inner, \
                    angle);                                                                    \
    }                                                                                          \
    zptgStatus owngDCT4_##K##_env2_plan(env2<T>* self) { return plan(self); }                  \
    void owngDCT4_##K##_env2___del__(void* self) { del<T>(self); }

ZPTG_DCT4_ROW_TABLE(32f, float)
ZPTG_DCT4_ROW_TABLE(64f, double)

}  // namespace zptg
