// A singly linked list of plan environments, drawn from an arena. A list is
// named by its first node, which its owner draws and releases; further nodes
// are drawn by EnvList_add and given back by EnvList___del__. The first item
// goes into the head itself, so a one-item list costs no node.
//
// Every environment record starts with an envBase: its destructor and its
// own size, which is all EnvList_freeChildren needs to take one down.
#ifndef ZPTG_FRAME_ENVLIST_H
#define ZPTG_FRAME_ENVLIST_H

#include <stdint.h>

namespace zptg {

// The two leading fields of every environment record.
struct envBase {
    void (*__del__)(void* self);  // releases what the environment drew, not the record
    int32_t ownSize;              // the record's size, given back to the arena with it
};

struct EnvList {
    void* env;      // the item of this node; null only in the head of an empty list
    EnvList* next;  // following node, null at the end
    void* arena;    // where further nodes come from and go back to
};

// The size a list node is charged and released with. On the 32-bit target
// this is the node's own size, 12; either way it rounds to 32 bytes.
constexpr int32_t kEnvListNodeSize = static_cast<int32_t>(sizeof(EnvList));

// Clears `env` and `next`, stores `arena`; returns `self`.
EnvList* EnvList___init__(EnvList* self, void* arena);
// Gives back every node behind the head; the head and its `next` stay as they are.
void EnvList___del__(EnvList* self);
// Appends `env` (into the head if the list is empty); returns `env`.
void* EnvList_add(EnvList* self, void* env);
// What a size computation charges for `count` items: one rounded node each.
int32_t EnvList_add_mem(int32_t count);
// Runs each item's destructor and gives its record back; keeps the nodes.
// A null list does nothing.
void EnvList_freeChildren(EnvList* self);
// The item at `index`: null for a negative index or a chain that ends early.
void* EnvList_get(EnvList* self, int32_t index);

}  // namespace zptg

#endif
