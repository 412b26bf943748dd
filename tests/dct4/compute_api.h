// A DCT-IV context of either element kind that is released when it goes
// out of scope, built through the exported functions (kind_api.h), for
// tests written once as templates over the element type.
#ifndef ZPTG_TESTS_DCT4_COMPUTE_API_H
#define ZPTG_TESTS_DCT4_COMPUTE_API_H

#include "dct4/kind_api.h"

namespace zptg::test {

template <class T>
using Dct4Api = zptg_test::Api<T>;

template <class T>
constexpr const char* kKindName = sizeof(T) == 4 ? "32f" : "64f";

template <class T>
class Dct4Plan {
public:
    explicit Dct4Plan(int length) : status_(Dct4Api<T>::init_alloc(&context_, length)) {}
    ~Dct4Plan()
    {
        if (status_ == zptgStatusOk) Dct4Api<T>::release(context_);
    }
    Dct4Plan(const Dct4Plan&) = delete;
    Dct4Plan& operator=(const Dct4Plan&) = delete;

    zptgStatus status() const { return status_; }
    zptgStatus run(const T* src, T* dst) const { return Dct4Api<T>::run(src, dst, context_); }

private:
    typename Dct4Api<T>::Context* context_ = nullptr;
    zptgStatus status_;
};

}  // namespace zptg::test

#endif
