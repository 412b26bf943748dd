// Memory that ends (or begins) exactly at an inaccessible page, so that a
// single read or write past the end (or before the start) faults at once.
#ifndef ZPTG_TESTS_WHT_GUARDED_MEMORY_H
#define ZPTG_TESTS_WHT_GUARDED_MEMORY_H

#include <cstddef>

namespace zptg::test::wht {

enum class Guard { After, Before };

class GuardedBlock {
public:
    // bytes usable bytes, with the guard page right after them or right
    // before them. Zero bytes give a pointer into the guard page itself.
    GuardedBlock(std::size_t bytes, Guard side);
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    void* data() const { return data_; }
    std::size_t bytes() const { return bytes_; }

private:
    char* mapping_ = nullptr;
    std::size_t mapping_bytes_ = 0;
    char* data_ = nullptr;
    std::size_t bytes_ = 0;
};

// n elements of T in a guarded block.
template <class T>
class GuardedArray {
public:
    GuardedArray(std::size_t n, Guard side) : block_(n * sizeof(T), side), size_(n) {}
    T* data() const { return static_cast<T*>(block_.data()); }
    std::size_t size() const { return size_; }
    T& operator[](std::size_t i) const { return data()[i]; }

private:
    GuardedBlock block_;
    std::size_t size_;
};

}  // namespace zptg::test::wht

#endif
