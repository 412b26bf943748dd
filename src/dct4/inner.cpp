// env4, an odd-frequency transform of more than 64 points, split by d2 from
// divisorsIntNonTriv(n/2): env7 makes d2 transforms of length n/d2 into this
// environment's scratch, env6 twists them by envlambda's table and combines
// each row by a DFT of length d2 into the output of the level above.
//
// Planning draws, in this order: env6 and envlambda records, env6's list
// head, a node of `children`, env6's table, then env7 and its subtree, and
// last the scratch of n elements. The rule is set to 1 before anything can
// fail, so a destructor on a partial tree gives back the scratch size too.
#include "dct4/env.h"
#include "dct4/kind.h"
#include "dct4/plan_common.h"
#include "frame/divisors.h"

namespace zptg {

namespace {

template <class T>
env4<T>* init(env4<T>* self, void* arena, int32_t length, int32_t rootLength,
              int32_t rootLength2, int32_t stride, int32_t outerLength, int32_t outerCount)
{
    self->base.ownSize = kOwnSize<env4<T>>;
    self->arena = arena;
    self->length = length;
    self->rootLength = rootLength;
    self->rootLength2 = rootLength2;
    self->stride = stride;
    self->outerLength = outerLength;
    self->outerCount = outerCount;
    init_split_lists(self, arena);
    self->base.__del__ = KindOf<T>::env4_del;
    self->plan = KindOf<T>::env4_plan;
    return self;
}

template <class T>
int32_t mem(int32_t n, int32_t rootLength, int32_t rootLength2, int32_t stride)
{
    constexpr int32_t E = KindOf<T>::E;
    int32_t d2 = 0;
    if (divisorsIntNonTriv(&d2, n / 2) != zptgStatusOk) return zptgStatusBadSize;
    const int32_t table = mul32(mul32(n / (2 * d2), d2 - 1), 2 * E);
    auto first_stage = [=] {
        return KindOf<T>::env7_mem(n / d2, rootLength, rootLength2, mul32(stride, d2), stride, d2,
                                   n, d2);
    };
    return split_mem(table, kOwnSize<env6<T>>, first_stage, mul32(n, E), kOwnSize<env4<T>>,
                     kOwnSize<envlambda<T>>);
}

template <class T>
zptgStatus plan(env4<T>* self)
{
    using K = KindOf<T>;
    self->rule = kEnv4RulePlanned;
    const int32_t n = self->length;
    if (divisorsIntNonTriv(&self->factor, n / 2) != zptgStatusOk) return zptgStatusBadSize;
    const int32_t d2 = self->factor;
    void* const arena = self->arena;

    auto* const row_stage = draw_record<env6<T>>(arena, kOwnSize<env6<T>>);
    auto* const angle = draw_record<envlambda<T>>(arena, kOwnSize<envlambda<T>>);
    K::lambda_init(angle, arena, n, d2);
    EnvList_add(self->children, angle);
    K::env6_init(row_stage, arena, d2, n, 2 * d2, n / (2 * d2), self->outerLength, n / 2, n - 1,
                 self->outerCount, n / d2, angle);
    if (adopt_and_plan(self->children, self->postList, row_stage, K::env6_plan) != zptgStatusOk)
        return zptgStatusBadSize;

    auto* const first_stage = draw_record<env7<T>>(arena, kOwnSize<env7<T>>);
    K::env7_init(first_stage, arena, n / d2, self->rootLength, self->rootLength2,
                 mul32(self->stride, d2), self->stride, d2, n, d2);
    if (adopt_and_plan(self->children, self->preList, first_stage, K::env7_plan) != zptgStatusOk)
        return zptgStatusBadSize;
    return draw_scratch(arena, n, &self->scratch);
}

template <class T>
void del(void* record)
{
    auto* const self = static_cast<env4<T>*>(record);
    void* const arena = self->arena;
    if (self->rule == kEnv4RulePlanned)
        zptgArenaFree(arena, self->scratch, mul32(self->length, KindOf<T>::E));
    release_split_lists(self);
}

}  // namespace

#define ZPTG_DCT4_INNER(K, T)                                                                  \
    env4<T>* owngDCT4_##K##_env4___init__(env4<T>* self, void* arena, int32_t length,          \
                                          int32_t rootLength, int32_t rootLength2,             \
                                          int32_t stride, int32_t outerLength,                 \
                                          int32_t outerCount)                                  \
    {                                                                                          \
        return init(self, arena, length, rootLength, rootLength2, stride, outerLength,         \
                    outerCount);                                                               \
    }                                                                                          \
    int32_t owngDCT4_##K##_env4_mem(int32_t length, int32_t rootLength, int32_t rootLength2,   \
                                    int32_t stride, int32_t, int32_t)                          \
    {                                                                                          \
        return mem<T>(length, rootLength, rootLength2, stride);                                \
    }                                                                                          \
    zptgStatus owngDCT4_##K##_env4_plan(env4<T>* self) { return plan(self); }                  \
    void owngDCT4_##K##_env4___del__(void* self) { del<T>(self); }

ZPTG_DCT4_INNER(32f, float)
ZPTG_DCT4_INNER(64f, double)

}  // namespace zptg
