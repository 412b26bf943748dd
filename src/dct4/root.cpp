// env1, the root of a plan and the context itself. A length of 2, 4, 8, 16
// or 32 is computed by direct code and needs no child; any other length is
// split by d from divisorsIntNonTriv(N/2): env3 makes d odd-frequency
// transforms of length N/d into the root's scratch, env2 turns that scratch
// into the output with the twiddles of envfCompose.
//
// Planning draws, in this order: env2 and envfCompose records, env2's list
// head, a node of `children`, env2's table, then env3 and its whole subtree,
// and last the root's scratch. The size computation charges the same things
// (and one list node per item, although a list's first item sits in its
// head: 96 bytes of surplus per split).
#include "dct4/env.h"
#include "dct4/kind.h"
#include "dct4/plan_common.h"
#include "frame/divisors.h"

namespace zptg {

namespace {

template <class T>
int32_t choose_rule(int32_t length)
{
    const int32_t rule = rule_by_length(length);
    return rule != 0 ? rule : kEnv1RuleSplit;
}

template <class T>
env1<T>* init(env1<T>* self, void* arena, int32_t length)
{
    self->base.ownSize = kOwnSize<env1<T>>;
    self->arena = arena;
    self->length = length;
    init_split_lists(self, arena);
    self->base.__del__ = KindOf<T>::env1_del;
    self->plan = KindOf<T>::env1_plan;
    return self;
}

// Bytes for the root and everything it will draw; negative for a rejected
// length (the split factor's failure, or an overflow caught at one of the
// tested partial sums).
template <class T>
int32_t mem(int32_t length)
{
    constexpr int32_t E = KindOf<T>::E;
    const int32_t node = zptgAlignSize32Bytes(kEnvListNodeSize);
    const int32_t own = add32(zptgAlignSize32Bytes(0), zptgAlignSize32Bytes(kOwnSize<env1<T>>));
    if (choose_rule<T>(length) != kEnv1RuleSplit) return add32(own, mul32(3, node));

    int32_t d = 0;
    if (divisorsIntNonTriv(&d, length / 2) != zptgStatusOk) return zptgStatusBadSize;
    const int32_t table = mul32(mul32(length / (2 * d), 2 * d), E);
    auto first_stage = [=] {
        return KindOf<T>::env3_mem(length / d, length, sub32(mul32(2, length), 1), 2 * d, d,
                                   length, d);
    };
    return split_mem(table, kOwnSize<env2<T>>, first_stage, mul32(length, E), kOwnSize<env1<T>>,
                     kOwnSize<envfCompose<T>>);
}

template <class T>
zptgStatus plan(env1<T>* self)
{
    using K = KindOf<T>;
    const int32_t n = self->length;
    self->rule = choose_rule<T>(n);
    if (self->rule != kEnv1RuleSplit) {
        self->scratch = nullptr;
        return zptgStatusOk;
    }
    if (divisorsIntNonTriv(&self->factor, n / 2) != zptgStatusOk) return zptgStatusBadSize;
    const int32_t d = self->factor;
    void* const arena = self->arena;

    auto* const row_stage = draw_record<env2<T>>(arena, kOwnSize<env2<T>>);
    auto* const angle = draw_record<envfCompose<T>>(arena, kOwnSize<envfCompose<T>>);
    K::compose_init(angle, arena, 2 * d, mul32(8, n), n / (2 * d), d, 2 * d);
    EnvList_add(self->children, angle);
    K::env2_init(row_stage, arena, d, n, 2 * d, n / (2 * d), n, sub32(mul32(2, n), 1), n / d,
                 angle);
    if (adopt_and_plan(self->children, self->postList, row_stage, K::env2_plan) != zptgStatusOk)
        return zptgStatusBadSize;

    auto* const first_stage = draw_record<env3<T>>(arena, kOwnSize<env3<T>>);
    K::env3_init(first_stage, arena, n / d, n, sub32(mul32(2, n), 1), 2 * d, d, n, d);
    if (adopt_and_plan(self->children, self->preList, first_stage, K::env3_plan) != zptgStatusOk)
        return zptgStatusBadSize;
    return draw_scratch(arena, n, &self->scratch);
}

template <class T>
void del(void* record)
{
    auto* const self = static_cast<env1<T>*>(record);
    void* const arena = self->arena;
    if (self->rule == kEnv1RuleSplit) {
        zptgArenaFree(arena, self->scratch, mul32(self->length, KindOf<T>::E));
    } else if (self->rule >= 1 && self->rule < kEnv1RuleSplit) {
        zptgArenaFree(arena, self->scratch, 0);
    }
    release_split_lists(self);
}

}  // namespace

#define ZPTG_DCT4_ROOT(K, T)                                                                   \
    env1<T>* owngDCT4_##K##_env1___init__(env1<T>* self, void* arena, int32_t length)          \
    {                                                                                          \
        return init(self, arena, length);                                                      \
    }                                                                                          \
    int32_t owngDCT4_##K##_env1_mem(int32_t length) { return mem<T>(length); }                 \
    int32_t owngDCT4_##K##_env1__chooseRule(int32_t length) { return choose_rule<T>(length); } \
    zptgStatus owngDCT4_##K##_env1_plan(env1<T>* self) { return plan(self); }                  \
    void owngDCT4_##K##_env1___del__(void* self) { del<T>(self); }

ZPTG_DCT4_ROOT(32f, float)
ZPTG_DCT4_ROOT(64f, double)

}  // namespace zptg
