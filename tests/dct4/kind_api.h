// The exported DCT-IV functions of one element kind, by element type, so
// that a test can be written once for 32f and 64f, and a context built
// through them that is released when it goes out of scope.
#ifndef ZPTG_TESTS_DCT4_KIND_API_H
#define ZPTG_TESTS_DCT4_KIND_API_H

#include "zptgenpx.h"

namespace zptg_test {

template <class T> struct Api;

template <> struct Api<float> {
    using Context = zptgDCT4Context_32f;
    static zptgStatus size(int n, int* s) { return zptgDCT4GetSize_32f(n, s); }
    static zptgStatus init(Context** c, int n, void* b) { return zptgDCT4Init_32f(c, n, b); }
    static zptgStatus init_alloc(Context** c, int n) { return zptgDCT4InitAlloc_32f(c, n); }
    static zptgStatus run(const float* s, float* d, Context* c) { return zptgDCT4_32f(s, d, c); }
    static zptgStatus release(Context* c) { return zptgDCT4Free_32f(c); }
};

template <> struct Api<double> {
    using Context = zptgDCT4Context_64f;
    static zptgStatus size(int n, int* s) { return zptgDCT4GetSize_64f(n, s); }
    static zptgStatus init(Context** c, int n, void* b) { return zptgDCT4Init_64f(c, n, b); }
    static zptgStatus init_alloc(Context** c, int n) { return zptgDCT4InitAlloc_64f(c, n); }
    static zptgStatus run(const double* s, double* d, Context* c) { return zptgDCT4_64f(s, d, c); }
    static zptgStatus release(Context* c) { return zptgDCT4Free_64f(c); }
};

template <class T>
constexpr const char* kKindName = sizeof(T) == 4 ? "32f" : "64f";

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

}  // namespace zptg_test

#endif
