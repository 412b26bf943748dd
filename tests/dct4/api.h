// The exported DCT-IV functions of one element kind by element type, so that a test is written once
// for 32f and 64f; and a context built through them, released when it goes out of scope.
#ifndef ZPTG_TESTS_DCT4_API_H
#define ZPTG_TESTS_DCT4_API_H

#include "zptgenpx.h"

namespace zptg::test {

#define ZPTG_TEST_API_(kind, type, context)                                                                   \
    template <>                                                                                                \
    struct Api<type> {                                                                                         \
        using Context = context;                                                                               \
        static zptgStatus size(int n, int* s) { return zptgDCT4GetSize_##kind(n, s); }                         \
        static zptgStatus init(Context** c, int n, void* b) { return zptgDCT4Init_##kind(c, n, b); }           \
        static zptgStatus init_alloc(Context** c, int n) { return zptgDCT4InitAlloc_##kind(c, n); }            \
        static zptgStatus run(const type* s, type* d, Context* c) { return zptgDCT4_##kind(s, d, c); }         \
        static zptgStatus release(Context* c) { return zptgDCT4Free_##kind(c); }                               \
    };
template <class T>
struct Api;
ZPTG_DCT4_FUNCTIONS(ZPTG_TEST_API_)
#undef ZPTG_TEST_API_

template <class T>
class Dct4Plan {
public:
    explicit Dct4Plan(int length) : status_(Api<T>::init_alloc(&context_, length)) {}
    ~Dct4Plan()
    {
        if (status_ == zptgStatusOk) Api<T>::release(context_);
    }
    Dct4Plan(const Dct4Plan&) = delete;
    Dct4Plan& operator=(const Dct4Plan&) = delete;
    zptgStatus status() const { return status_; }
    zptgStatus run(const T* src, T* dst) const { return Api<T>::run(src, dst, context_); }

private:
    typename Api<T>::Context* context_ = nullptr;
    zptgStatus status_;
};

}  // namespace zptg::test

#endif
