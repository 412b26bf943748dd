// zptMalloc and zptFree of a test program that links this: they take the place of the core
// library's pair for every call the library makes. Each block ends against an inaccessible page;
// the log tells what happened.
#ifndef ZPTG_TESTS_SUPPORT_ALLOCATOR_H
#define ZPTG_TESTS_SUPPORT_ALLOCATOR_H

#include <cstdint>

namespace zptg::test {

struct AllocationLog {
    int allocations = 0, releases = 0;
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
