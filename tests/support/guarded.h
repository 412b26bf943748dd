// A block of exactly `bytes` that ends `gap` bytes before an inaccessible page (Guard::After) or
// begins `gap` bytes after one (Guard::Before), with such a page on its other side too: with gap 0
// a single access past either end faults. Zero bytes give a pointer at the guard.
#ifndef ZPTG_TESTS_SUPPORT_GUARDED_H
#define ZPTG_TESTS_SUPPORT_GUARDED_H

#include <cstddef>

namespace zptg::test {

enum class Guard { After, Before };

class GuardedBlock {
public:
    explicit GuardedBlock(std::size_t bytes, Guard side = Guard::After, std::size_t gap = 0);
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;
    unsigned char* data() const { return data_; }

private:
    unsigned char* mapping_ = nullptr;
    std::size_t mapped_ = 0;
    unsigned char* data_ = nullptr;
};

// n elements of T in a guarded block.
template <class T>
class GuardedArray {
public:
    explicit GuardedArray(std::size_t n, Guard side = Guard::After) : block_(n * sizeof(T), side), n_(n) {}
    T* data() const { return reinterpret_cast<T*>(block_.data()); }
    T* begin() const { return data(); }
    T* end() const { return data() + n_; }

private:
    GuardedBlock block_;
    std::size_t n_;
};

}  // namespace zptg::test

#endif
