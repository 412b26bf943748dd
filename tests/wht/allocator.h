// The test program's own zptMalloc and zptFree. Being defined in the
// executable, they take the place of the core library's pair for every call
// the library makes, so tests can count allocations and releases and see
// their sizes and pointers. Each block ends against a guard page.
#ifndef ZPTG_TESTS_WHT_ALLOCATOR_H
#define ZPTG_TESTS_WHT_ALLOCATOR_H

namespace zptg::test::wht {

struct AllocationLog {
    int allocations = 0;
    int releases = 0;
    int last_length = 0;            // argument of the last zptMalloc
    void* last_block = nullptr;     // its result
    void* last_released = nullptr;  // argument of the last zptFree
    int unknown_releases = 0;       // zptFree of a pointer that zptMalloc never gave
    int live_blocks = 0;
};

// What has happened since the last reset.
const AllocationLog& allocation_log();
void reset_allocation_log();

}  // namespace zptg::test::wht

#endif
