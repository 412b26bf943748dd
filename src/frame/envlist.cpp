// The environment list over the arena: nodes are drawn and released with the
// node size, items are taken down through their own destructor slot.
#include "frame/envlist.h"

#include "frame/arena.h"

namespace zptg {

EnvList* EnvList___init__(EnvList* self, void* arena)
{
    self->env = nullptr;
    self->next = nullptr;
    self->arena = arena;
    return self;
}

void EnvList___del__(EnvList* self)
{
    EnvList* node = self->next;
    while (node != nullptr) {
        EnvList* const next = node->next;
        zptgArenaFree(self->arena, node, kEnvListNodeSize);
        node = next;
    }
}

void* EnvList_add(EnvList* self, void* env)
{
    EnvList* last = self;
    while (last->next != nullptr) last = last->next;
    if (last->env == nullptr) {
        last->env = env;
        return env;
    }
    EnvList* const node = EnvList___init__(
        static_cast<EnvList*>(zptgArenaMalloc(self->arena, kEnvListNodeSize)), self->arena);
    last->next = node;
    node->env = env;
    return env;
}

int32_t EnvList_add_mem(int32_t count)
{
    return static_cast<int32_t>(static_cast<uint32_t>(zptgAlignSize32Bytes(kEnvListNodeSize)) *
                                static_cast<uint32_t>(count));
}

void EnvList_freeChildren(EnvList* self)
{
    for (EnvList* node = self; node != nullptr; node = node->next) {
        if (node->env == nullptr) continue;
        envBase* const env = static_cast<envBase*>(node->env);
        env->__del__(node->env);
        zptgArenaFree(node->arena, node->env, env->ownSize);
    }
}

void* EnvList_get(EnvList* self, int32_t index)
{
    if (index < 0) return nullptr;
    EnvList* node = self;
    for (int32_t step = 0; step < index; ++step) {
        node = node->next;
        if (node == nullptr) return nullptr;
    }
    return node->env;
}

}  // namespace zptg
