// The bump allocator that a planned transform builds its tree in. An arena is
// a plain block whose first machine word holds the address of the next free
// byte; that word is the allocator's whole state. Sizes are rounded up to 32
// bytes with wrapping signed 32-bit arithmetic, nothing is ever checked, and
// a release only steps the word back by the rounded size.
#ifndef ZPTG_FRAME_ARENA_H
#define ZPTG_FRAME_ARENA_H

#include <stdint.h>

namespace zptg {

// (size + 31) with the low five bits cleared, wrapping: 0 -> 0, 1 -> 32,
// 44 -> 64, and a size near the top of the positive range turns negative.
constexpr int32_t zptgAlignSize32Bytes(int32_t size)
{
    return static_cast<int32_t>((static_cast<uint32_t>(size) + 31u) & ~31u);
}

// The address held in the arena's first word (the block may be unaligned).
uintptr_t zptgArenaTop(const void* arena);
// Stores `top` as the arena's next free address.
void zptgArenaSetTop(void* arena, uintptr_t top);

// Returns the next free address and moves the word on by the rounded size.
// Never fails and does not clear the memory.
void* zptgArenaMalloc(void* arena, int32_t size);
// Moves the word back by the rounded size; `ptr` is not looked at.
void zptgArenaFree(void* arena, void* ptr, int32_t size);

}  // namespace zptg

#endif
