// env3 and env7, the first stages: d (or d2) odd-frequency transforms of
// decimated sequences. Up to 64 points a transform is a direct body (rules 1
// to 6, lengths 2 to 64); above, rule 7 hands each sequence in turn to one
// env4 child. The two differ only in what they hand that child: env3 sits
// under the root and passes the root's numbers, env7 sits under an env4 and
// passes its inner stride.
#include "dct4/env.h"
#include "dct4/kind.h"
#include "dct4/plan_common.h"

namespace zptg {

namespace {

int32_t choose_rule(int32_t inner)
{
    const int32_t rule = rule_by_length(inner);
    if (rule != 0) return rule;
    return inner == 64 ? 6 : kEnv3RuleChild;
}

// Bytes of a first stage: its record and two list heads, and under rule 7
// the env4 subtree and two list nodes. A negative child result goes up as it is.
template <class T>
int32_t mem(int32_t inner, int32_t own_size, int32_t child)
{
    const int32_t node = zptgAlignSize32Bytes(kEnvListNodeSize);
    const int32_t own = add32(add32(zptgAlignSize32Bytes(0), zptgAlignSize32Bytes(own_size)),
                              mul32(2, node));
    if (choose_rule(inner) != kEnv3RuleChild) return own;
    if (child < 0) return child;
    return add32(add32(child, own), EnvList_add_mem(2));
}

// The last steps of __init__, alike for both stages: nothing planned, the
// two list heads in their order, then the slots.
template <class Stage>
Stage* finish_init(Stage* self, void* arena, void (*del)(void*), zptgStatus (*plan)(Stage*))
{
    self->rule = 0;
    self->table = nullptr;
    self->childList = draw_list_head(arena);
    self->children = draw_list_head(arena);
    self->base.__del__ = del;
    self->plan = plan;
    return self;
}

template <class T>
env3<T>* init3(env3<T>* self, void* arena, int32_t inner, int32_t length, int32_t reflectBase,
               int32_t stride, int32_t count, int32_t outerLength, int32_t outerCount)
{
    self->base.ownSize = kOwnSize<env3<T>>;
    self->arena = arena;
    self->inner = inner;
    self->length = length;
    self->reflectBase = reflectBase;
    self->stride = stride;
    self->count = count;
    self->outerLength = outerLength;
    self->outerCount = outerCount;
    return finish_init(self, arena, KindOf<T>::env3_del, KindOf<T>::env3_plan);
}

template <class T>
env7<T>* init7(env7<T>* self, void* arena, int32_t inner, int32_t rootLength,
               int32_t rootLength2, int32_t innerStride, int32_t stride, int32_t count,
               int32_t outerLength, int32_t outerCount)
{
    self->base.ownSize = kOwnSize<env7<T>>;
    self->arena = arena;
    self->inner = inner;
    self->rootLength = rootLength;
    self->rootLength2 = rootLength2;
    self->innerStride = innerStride;
    self->stride = stride;
    self->count = count;
    self->outerLength = outerLength;
    self->outerCount = outerCount;
    return finish_init(self, arena, KindOf<T>::env7_del, KindOf<T>::env7_plan);
}

// Rule 7: one env4 over the stage's sequences, linked before it is planned.
// It gets the stage's length, the root length twice, the distance between
// elements of one sequence, and the level above it (length, split factor).
template <class T, class Stage>
zptgStatus plan(Stage* self, int32_t rootLength, int32_t rootLength2, int32_t stride)
{
    using K = KindOf<T>;
    self->rule = choose_rule(self->inner);
    if (self->rule < 1 || self->rule > kEnv3RuleChild) return zptgStatusBadSize;
    if (self->rule == kEnv3RuleChild) {
        auto* const child = draw_record<env4<T>>(self->arena, kOwnSize<env4<T>>);
        K::env4_init(child, self->arena, self->inner, rootLength, rootLength2, stride,
                     self->outerLength, self->outerCount);
        if (adopt_and_plan(self->children, self->childList, child, K::env4_plan) != zptgStatusOk)
            return zptgStatusBadSize;
    }
    self->table = nullptr;
    return zptgStatusOk;
}

template <class T, class Stage>
void del(Stage* self)
{
    if (self->rule >= 1 && self->rule <= kEnv3RuleChild) zptgArenaFree(self->arena, self->table, 0);
    release_list(self->childList, self->arena);
    release_owning_list(self->children, self->arena);
}

}  // namespace

#define ZPTG_DCT4_FIRST_STAGE(K, T)                                                             \
    env3<T>* owngDCT4_##K##_env3___init__(env3<T>* self, void* arena, int32_t inner,            \
                                          int32_t length, int32_t reflectBase, int32_t stride,  \
                                          int32_t count, int32_t outerLength,                   \
                                          int32_t outerCount)                                   \
    {                                                                                           \
        return init3(self, arena, inner, length, reflectBase, stride, count, outerLength,       \
                     outerCount);                                                               \
    }                                                                                           \
    int32_t owngDCT4_##K##_env3__chooseRule(int32_t inner, int32_t, int32_t, int32_t, int32_t,  \
                                            int32_t, int32_t)                                   \
    {                                                                                           \
        return choose_rule(inner);                                                              \
    }                                                                                           \
    int32_t owngDCT4_##K##_env3_mem(int32_t inner, int32_t length, int32_t, int32_t stride,     \
                                    int32_t, int32_t outerLength, int32_t outerCount)           \
    {                                                                                           \
        const int32_t child =                                                                   \
            choose_rule(inner) == kEnv3RuleChild                                                \
                ? owngDCT4_##K##_env4_mem(inner, length, length, stride, outerLength,           \
                                          outerCount)                                           \
                : 0;                                                                            \
        return mem<T>(inner, kOwnSize<env3<T>>, child);                                         \
    }                                                                                           \
    zptgStatus owngDCT4_##K##_env3_plan(env3<T>* self)                                          \
    {                                                                                           \
        return plan<T>(self, self->length, self->length, self->stride);                         \
    }                                                                                           \
    void owngDCT4_##K##_env3___del__(void* self) { del<T>(static_cast<env3<T>*>(self)); }       \
                                                                                                \
    env7<T>* owngDCT4_##K##_env7___init__(env7<T>* self, void* arena, int32_t inner,            \
                                          int32_t rootLength, int32_t rootLength2,              \
                                          int32_t innerStride, int32_t stride, int32_t count,   \
                                          int32_t outerLength, int32_t outerCount)              \
    {                                                                                           \
        return init7(self, arena, inner, rootLength, rootLength2, innerStride, stride, count,   \
                     outerLength, outerCount);                                                  \
    }                                                                                           \
    int32_t owngDCT4_##K##_env7__chooseRule(int32_t inner, int32_t, int32_t, int32_t, int32_t,  \
                                            int32_t, int32_t, int32_t)                          \
    {                                                                                           \
        return choose_rule(inner);                                                              \
    }                                                                                           \
    int32_t owngDCT4_##K##_env7_mem(int32_t inner, int32_t rootLength, int32_t rootLength2,     \
                                    int32_t innerStride, int32_t, int32_t, int32_t outerLength, \
                                    int32_t outerCount)                                         \
    {                                                                                           \
        const int32_t child =                                                                   \
            choose_rule(inner) == kEnv7RuleChild                                                \
                ? owngDCT4_##K##_env4_mem(inner, rootLength, rootLength2, innerStride,          \
                                          outerLength, outerCount)                              \
                : 0;                                                                            \
        return mem<T>(inner, kOwnSize<env7<T>>, child);                                         \
    }                                                                                           \
    zptgStatus owngDCT4_##K##_env7_plan(env7<T>* self)                                          \
    {                                                                                           \
        return plan<T>(self, self->rootLength, self->rootLength2, self->innerStride);          \
    }                                                                                           \
    void owngDCT4_##K##_env7___del__(void* self) { del<T>(static_cast<env7<T>*>(self)); }

ZPTG_DCT4_FIRST_STAGE(32f, float)
ZPTG_DCT4_FIRST_STAGE(64f, double)

}  // namespace zptg
