// The arena's three operations. The first word is read and written with
// memcpy since a caller's block need not be aligned for a pointer, and the
// address is moved as an integer: a release may step it below where it
// started, which is harmless as long as nothing is drawn afterwards.
#include "frame/arena.h"

#include <string.h>

namespace zptg {

uintptr_t zptgArenaTop(const void* arena)
{
    void* top;
    memcpy(&top, arena, sizeof top);
    return reinterpret_cast<uintptr_t>(top);
}

void zptgArenaSetTop(void* arena, uintptr_t top)
{
    void* const word = reinterpret_cast<void*>(top);
    memcpy(arena, &word, sizeof word);
}

void* zptgArenaMalloc(void* arena, int32_t size)
{
    const uintptr_t top = zptgArenaTop(arena);
    // The rounded size is signed: a wrapped negative size moves the word down.
    zptgArenaSetTop(arena, top + static_cast<uintptr_t>(static_cast<intptr_t>(zptgAlignSize32Bytes(size))));
    return reinterpret_cast<void*>(top);
}

void zptgArenaFree(void* arena, void* /*ptr*/, int32_t size)
{
    const uintptr_t top = zptgArenaTop(arena);
    zptgArenaSetTop(arena, top - static_cast<uintptr_t>(static_cast<intptr_t>(zptgAlignSize32Bytes(size))));
}

}  // namespace zptg
