// Pieces every environment's construction and teardown shares: drawing a
// record, a list head or a scratch area from the arena, linking and planning
// a child, releasing lists, the size formula of a splitting environment, and
// the rule tables by length and by factor.
#ifndef ZPTG_DCT4_PLAN_COMMON_H
#define ZPTG_DCT4_PLAN_COMMON_H

#include <stdint.h>

#include "dct4/wrap32.h"
#include "zptgenpx.h"
#include "frame/arena.h"
#include "frame/envlist.h"

namespace zptg {

// A record of `size` bytes from the arena, not initialised.
template <class Record>
Record* draw_record(void* arena, int32_t size)
{
    return static_cast<Record*>(zptgArenaMalloc(arena, size));
}

// A fresh, empty list head drawn from the arena.
inline EnvList* draw_list_head(void* arena)
{
    return EnvList___init__(static_cast<EnvList*>(zptgArenaMalloc(arena, kEnvListNodeSize)),
                            arena);
}

// Gives back the list's further nodes, then its head.
inline void release_list(EnvList* list, void* arena)
{
    EnvList___del__(list);
    zptgArenaFree(arena, list, kEnvListNodeSize);
}

// An owning list: its items are taken down first, then the list itself.
inline void release_owning_list(EnvList* list, void* arena)
{
    EnvList_freeChildren(list);
    release_list(list, arena);
}

// Links `env` into its parent's owning list and into the list that selects
// it, fetches it back from the latter (index 0) and plans it. Whatever the
// child reports, a failure comes back as zptgStatusBadSize.
template <class Env>
zptgStatus adopt_and_plan(EnvList* children, EnvList* selector, Env* env,
                          zptgStatus (*plan)(Env*))
{
    EnvList_add(children, env);
    EnvList_add(selector, env);
    if (plan(static_cast<Env*>(EnvList_get(selector, 0))) != zptgStatusOk) return zptgStatusBadSize;
    return zptgStatusOk;
}

// A scratch area of n elements of `element` bytes. A byte count that does
// not fit the arena's arithmetic can only come from a length whose size
// wrapped: no usable plan exists, and nothing is drawn.
template <class T>
zptgStatus draw_scratch(void* arena, int32_t n, T** scratch)
{
    constexpr int32_t element = static_cast<int32_t>(sizeof(T));
    if (product_wraps(n, element, 1)) return zptgStatusBadSize;
    *scratch = static_cast<T*>(zptgArenaMalloc(arena, mul32(n, element)));
    return zptgStatusOk;
}

// The last steps of every splitting environment's __init__ (env1, env4):
// nothing planned yet, and the three list heads in their order.
template <class Env>
void init_split_lists(Env* self, void* arena)
{
    self->factor = 0;
    self->rule = 0;
    self->scratch = nullptr;
    self->postList = draw_list_head(arena);
    self->preList = draw_list_head(arena);
    self->children = draw_list_head(arena);
}

// The list part of a splitting environment's __del__.
template <class Env>
void release_split_lists(Env* self)
{
    release_list(self->postList, self->arena);
    release_list(self->preList, self->arena);
    release_owning_list(self->children, self->arena);
}

// Bytes of a splitting environment (env1 with env2/envfCompose/env3, env4
// with env6/envlambda/env7), all in wrapping signed 32 bits:
//   R(table) + R(row record) + R(node)          tested: negative goes up
//   + first stage                                tested: negative goes up
//   + R(scratch) + R(own record) + 3 R(node)
//   + L(2) + R(value record) + L(1) + L(2)       not tested here
// The first stage's size is asked for only after the first test.
template <class FirstStageMem>
int32_t split_mem(int32_t table, int32_t row_own, FirstStageMem first_stage_mem, int32_t scratch,
                  int32_t own, int32_t value_own)
{
    const int32_t node = zptgAlignSize32Bytes(kEnvListNodeSize);
    const int32_t row_stage =
        add32(add32(zptgAlignSize32Bytes(table), zptgAlignSize32Bytes(row_own)), node);
    if (row_stage < 0) return row_stage;
    const int32_t first_stage = first_stage_mem();
    if (first_stage < 0) return first_stage;

    int32_t total = add32(row_stage, first_stage);
    total = add32(total, zptgAlignSize32Bytes(scratch));
    total = add32(total, zptgAlignSize32Bytes(own));
    total = add32(total, mul32(3, node));
    total = add32(total, EnvList_add_mem(2));
    total = add32(total, zptgAlignSize32Bytes(value_own));
    total = add32(total, EnvList_add_mem(1));
    return add32(total, EnvList_add_mem(2));
}

// Rule by length of the root (default 6) and of env3/env7 (default 7, with
// 64 as 6): one table over length - 2 for 0..30, compared unsigned so that
// anything below 2 falls outside it.
constexpr int32_t kRuleByLength[31] = {
    1, 0, 2, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 4, 0,  // 2 .. 17
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5,     // 18 .. 32
};

inline int32_t rule_by_length(int32_t length)
{
    const uint32_t index = static_cast<uint32_t>(length) - 2u;
    if (index > 30u) return 0;
    return kRuleByLength[index];
}

// Rule of a row stage by its factor: 2^(rule - 1) = factor for env2 (1..32),
// 2^rule = factor for env6 (2..32); 0 for anything else.
inline int32_t rule_by_factor(int32_t factor, int32_t smallest, int32_t last_rule)
{
    int32_t f = smallest;
    for (int32_t rule = 1; rule <= last_rule; ++rule, f *= 2) {
        if (factor == f) return rule;
    }
    return 0;
}

}  // namespace zptg

#endif
