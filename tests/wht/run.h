// Running a kernel of the family on guarded arrays: src and dst each end
// against an inaccessible page, and the scratch buffer, when the caller
// gives one, has exactly the size the family's query reports.
#ifndef ZPTG_TESTS_WHT_RUN_H
#define ZPTG_TESTS_WHT_RUN_H

#include <algorithm>
#include <cstring>
#include <vector>

#include "wht/family.h"
#include "wht/guarded_memory.h"

namespace zptg::test::wht {

enum class Scratch { Given, Null };
enum class Target { Separate, InPlace };

template <class T>
struct Outcome {
    zptgStatus status;
    std::vector<T> dst;
    std::vector<T> src_after;  // src as the call left it
};

template <class T>
Outcome<T> run(int order, const std::vector<T>& x, int flag, Scratch scratch = Scratch::Given,
               Target target = Target::Separate)
{
    const std::size_t n = x.size();
    GuardedArray<T> src(n, Guard::After);
    GuardedArray<T> dst(n, Guard::After);
    GuardedArray<T> buffer(static_cast<std::size_t>(buffer_bytes<T>(order)) / sizeof(T),
                           Guard::After);
    std::copy(x.begin(), x.end(), src.data());
    std::fill(dst.data(), dst.data() + n, T(-7));
    T* out = target == Target::InPlace ? src.data() : dst.data();
    const zptgStatus status = run_kernel<T>(order, src.data(), out, flag,
                                            scratch == Scratch::Given ? buffer.data() : nullptr);
    return {status, std::vector<T>(out, out + n), std::vector<T>(src.data(), src.data() + n)};
}

// Equal bit for bit (so a NaN or the sign of a zero counts as well).
template <class T>
bool same_bits(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](T p, T q) {
               return std::memcmp(&p, &q, sizeof(T)) == 0;
           });
}

}  // namespace zptg::test::wht

#endif
