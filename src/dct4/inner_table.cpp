// env6, the row stage of an env4: its record and its twiddle table. Every
// entry is a pair cos(pi f), sin(pi f) for a multiple f of the row's
// L = lambda(r) = (r + 1/2) / n2, with L fetched from envlambda for each
// element and f rounded to the element width before the call. Per row r:
//
//   d2 = 2:   L
//   d2 = 4:   L/2, L, 3L/2
//   d2 = 8:   L/4, L/2, .., 7L/4
//   d2 = 16:  first all rows' L/2, L, 3L/2; then, per row, for u = 0..3 and
//             w = L + u: w/8, w/4, 3w/8
//   d2 = 32:  two parts, "fine" (per row, u = 0..7, w = L + u: w/16, w/8,
//             3w/16) and "coarse" (per row, L/4 .. 7L/4): 32f puts the fine
//             part first, 64f the coarse part; each kind's row code reads
//             its own order.
//
// The multipliers are exact binary fractions, so f is L scaled exactly.
#include "dct4/env.h"
#include "dct4/kind.h"
#include "dct4/plan_common.h"

namespace zptg {

namespace {

template <class T>
env6<T>* init(env6<T>* self, void* arena, int32_t factor, int32_t length, int32_t rowLength,
              int32_t rows, int32_t outerLength, int32_t halfLength, int32_t lastIndex,
              int32_t outerCount, int32_t inner, envlambda<T>* angle)
{
    self->base.ownSize = kOwnSize<env6<T>>;
    self->arena = arena;
    self->factor = factor;
    self->length = length;
    self->rowLength = rowLength;
    self->rows = rows;
    self->outerLength = outerLength;
    self->halfLength = halfLength;
    self->lastIndex = lastIndex;
    self->outerCount = outerCount;
    self->inner = inner;
    self->angle = angle;
    self->rule = 0;
    self->table = nullptr;
    self->children = draw_list_head(arena);
    self->base.__del__ = KindOf<T>::env6_del;
    self->plan = KindOf<T>::env6_plan;
    return self;
}

// Writes the table of one env6 in its order, one element at a time.
template <class T>
class TableWriter {
public:
    TableWriter(env6<T>* env, T* out) : env_(env), out_(out) {}

    // The pair of f = (lambda(row) + u) * scale.
    void pair(int32_t row, double u, double scale)
    {
        out_[0] = KindOf<T>::cosPi(value(row, u, scale));
        out_[1] = KindOf<T>::sinPi(value(row, u, scale));
        out_ += 2;
    }

    // The pairs of (lambda(row) + u) * k / den for k = 1 .. count.
    void run(int32_t row, double u, int32_t count, double den)
    {
        for (int32_t k = 1; k <= count; ++k) pair(row, u, k / den);
    }

    // Per row, for u = 0 .. blocks-1: the three pairs of (L + u) times 1, 2, 3 / den.
    void fine_part(int32_t blocks, double den)
    {
        for (int32_t row = 0; row < env_->rows; ++row)
            for (int32_t u = 0; u < blocks; ++u) run(row, u, 3, den);
    }

    // Per row: the pairs of L times 1 .. count over den.
    void coarse_part(int32_t count, double den)
    {
        for (int32_t row = 0; row < env_->rows; ++row) run(row, 0, count, den);
    }

private:
    T value(int32_t row, double u, double scale)
    {
        envlambda<T>* const a = env_->angle;
        return static_cast<T>((a->at(a, row, 0) + u) * scale);
    }

    env6<T>* env_;
    T* out_;
};

template <class T>
zptgStatus plan(env6<T>* self)
{
    constexpr int32_t E = KindOf<T>::E;
    self->rule = rule_by_factor(self->factor, 2, kEnv6RuleLast);
    if (self->rule == 0) return zptgStatusBadSize;
    const int32_t d2 = self->factor;
    if (product_wraps(self->rows, d2 - 1, 2 * E)) return zptgStatusBadSize;
    self->table =
        static_cast<T*>(zptgArenaMalloc(self->arena, mul32(mul32(self->rows, d2 - 1), 2 * E)));
    if (self->rows <= 0) return zptgStatusOk;

    TableWriter<T> out(self, self->table);
    switch (self->rule) {
    case 1: out.coarse_part(1, 1.0); break;
    case 2: out.coarse_part(3, 2.0); break;
    case 3: out.coarse_part(7, 4.0); break;
    case 4:
        out.coarse_part(3, 2.0);
        out.fine_part(4, 8.0);
        break;
    default:
        if constexpr (E == 4) {
            out.fine_part(8, 16.0);
            out.coarse_part(7, 4.0);
        } else {
            out.coarse_part(7, 4.0);
            out.fine_part(8, 16.0);
        }
        break;
    }
    return zptgStatusOk;
}

// Releases the table by the size its rule implies (d2 = 2^rule).
template <class T>
void del(void* record)
{
    auto* const self = static_cast<env6<T>*>(record);
    if (self->rule >= 1 && self->rule <= kEnv6RuleLast) {
        const int32_t d2 = 1 << self->rule;
        zptgArenaFree(self->arena, self->table,
                      mul32(mul32(self->rows, d2 - 1), 2 * KindOf<T>::E));
    }
    release_owning_list(self->children, self->arena);
}

}  // namespace

#define ZPTG_DCT4_INNER_TABLE(K, T)                                                            \
    env6<T>* owngDCT4_##K##_env6___init__(env6<T>* self, void* arena, int32_t factor,          \
                                          int32_t length, int32_t rowLength, int32_t rows,     \
                                          int32_t outerLength, int32_t halfLength,             \
                                          int32_t lastIndex, int32_t outerCount,               \
                                          int32_t inner, envlambda<T>* angle)                  \
    {                                                                                          \
        return init(self, arena, factor, length, rowLength, rows, outerLength, halfLength,     \
                    lastIndex, outerCount, inner, angle);                                      \
    }                                                                                          \
    zptgStatus owngDCT4_##K##_env6_plan(env6<T>* self) { return plan(self); }                  \
    void owngDCT4_##K##_env6___del__(void* self) { del<T>(self); }

ZPTG_DCT4_INNER_TABLE(32f, float)
ZPTG_DCT4_INNER_TABLE(64f, double)

}  // namespace zptg
