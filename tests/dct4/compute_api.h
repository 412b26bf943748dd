// The exported DCT-IV functions of one element kind under one name, for
// tests written once as templates over the element type, and a context
// that is released when it goes out of scope.
#ifndef ZPTG_TESTS_DCT4_COMPUTE_API_H
#define ZPTG_TESTS_DCT4_COMPUTE_API_H

#include "zptgenpx.h"

namespace zptg::test {

template <class T> struct Dct4Api;

template <> struct Dct4Api<float> {
    using Context = zptgDCT4Context_32f;
    static constexpr const char* kind = "32f";
    static zptgStatus init(Context** c, int n) { return zptgDCT4InitAlloc_32f(c, n); }
    static zptgStatus run(const float* s, float* d, Context* c) { return zptgDCT4_32f(s, d, c); }
    static zptgStatus release(Context* c) { return zptgDCT4Free_32f(c); }
};

template <> struct Dct4Api<double> {
    using Context = zptgDCT4Context_64f;
    static constexpr const char* kind = "64f";
    static zptgStatus init(Context** c, int n) { return zptgDCT4InitAlloc_64f(c, n); }
    static zptgStatus run(const double* s, double* d, Context* c) { return zptgDCT4_64f(s, d, c); }
    static zptgStatus release(Context* c) { return zptgDCT4Free_64f(c); }
};

template <class T>
class Dct4Plan {
public:
    explicit Dct4Plan(int length) : status_(Dct4Api<T>::init(&context_, length)) {}
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
