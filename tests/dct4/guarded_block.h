// Memory that ends at an inaccessible page: a region is mapped, its last page
// is made inaccessible, and a block of the asked size is placed so that it
// ends at most `slack` bytes before that page. Any access past the block's
// end by a whole 32-byte unit or more faults.
#ifndef ZPTG_TESTS_DCT4_GUARDED_BLOCK_H
#define ZPTG_TESTS_DCT4_GUARDED_BLOCK_H

#include <cstddef>
#include <cstdint>

namespace zptg_test {

class GuardedBlock {
public:
    // `bytes` usable bytes ending `slack` bytes before the guard page.
    GuardedBlock(size_t bytes, size_t slack);
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    unsigned char* data() const { return data_; }

private:
    unsigned char* region_ = nullptr;
    size_t mapped_ = 0;
    size_t usable_ = 0;
    unsigned char* data_ = nullptr;
};

}  // namespace zptg_test

#endif
