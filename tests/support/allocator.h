// The test program's own zptMalloc and zptFree. Defined in the executable,
// they take the place of the core library's pair for every call the library
// makes: each block is guarded (it ends against an inaccessible page), and
// the log shows how often, how much and what was allocated and released.
#ifndef ZPTG_TESTS_SUPPORT_ALLOCATOR_H
#define ZPTG_TESTS_SUPPORT_ALLOCATOR_H

#include <cstdint>

namespace zptg::test {

struct AllocationLog {
    int allocations = 0;
    int releases = 0;
    int last_length = 0;            // argument of the last zptMalloc
    void* last_block = nullptr;     // its result
    void* last_released = nullptr;  // argument of the last zptFree
    uintptr_t word_at_release = 0;  // the first word of that block when it came back
    int unknown_releases = 0;       // zptFree of a pointer that zptMalloc never gave
    int live_blocks = 0;
    bool fail = false;              // set: zptMalloc returns null
};

// What has happened since the last reset (which keeps live_blocks).
AllocationLog& allocation_log();
void reset_allocation_log();

}  // namespace zptg::test

#endif
