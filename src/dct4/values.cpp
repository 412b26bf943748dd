// The two value functions of planning. They hold only the integers of their
// formula and are called through their `at` slot while a table is filled;
// nothing is drawn for them beyond their record, and their destructors have
// nothing to give back.
//
// envfCompose: with p = rowLength2 * row + col, h = p/2, q = h / factor and
// s = h rem factor, the fraction 2(2q+1)(2s+1) / numerator, rounded to the
// element width, goes to cos (even p) or sin (odd p) of pi times it. With
// numerator 8N and col < 2d that is cos(pi (2row+1)(col+1) / 4N) for an
// even col and sin(pi (2row+1) col / 4N) for an odd one.
//
// envlambda: (row + 1/2) / (length / factor), the quotient of the lengths
// truncating; left in double for the caller to round what it forms.
#include "dct4/env.h"
#include "dct4/kind.h"

namespace zptg {

namespace {

template <class T>
envlambda<T>* lambda_init(envlambda<T>* self, void* arena, int32_t length, int32_t factor)
{
    self->base.ownSize = kOwnSize<envlambda<T>>;
    self->arena = arena;
    self->length = length;
    self->factor = factor;
    self->base.__del__ = KindOf<T>::lambda_del;
    self->at = KindOf<T>::lambda_at;
    return self;
}

template <class T>
double lambda_at(const envlambda<T>* self, int32_t row)
{
    const int32_t inner = self->length / self->factor;
    // Stored once so that an x87 build hands back a double, not the wider
    // quotient the division leaves in its register.
    volatile double lambda = (static_cast<double>(row) + 0.5) / static_cast<double>(inner);
    return lambda;
}

template <class T>
envfCompose<T>* compose_init(envfCompose<T>* self, void* arena, int32_t rowLength,
                             int32_t numerator, int32_t rows, int32_t factor, int32_t rowLength2)
{
    self->base.ownSize = kOwnSize<envfCompose<T>>;
    self->arena = arena;
    self->rowLength = rowLength;
    self->numerator = numerator;
    self->rows = rows;
    self->factor = factor;
    self->rowLength2 = rowLength2;
    self->base.__del__ = KindOf<T>::compose_del;
    self->at = KindOf<T>::compose_at;
    return self;
}

template <class T>
T compose_at(const envfCompose<T>* self, int32_t row, int32_t col)
{
    const int64_t p = static_cast<int64_t>(self->rowLength2) * row + col;
    const int64_t h = p / 2;
    const int64_t q = h / self->factor;
    const int64_t s = h % self->factor;
    // Both factors and the numerator are exact in double; one division, then
    // the one rounding to the element width.
    const double fraction = 2.0 * static_cast<double>(2 * q + 1) * static_cast<double>(2 * s + 1) /
                            static_cast<double>(self->numerator);
    const T x = static_cast<T>(fraction);
    return p % 2 == 0 ? KindOf<T>::cosPi(x) : KindOf<T>::sinPi(x);
}

}  // namespace

#define ZPTG_DCT4_VALUES(K, T)                                                                  \
    envlambda<T>* owngDCT4_##K##_envlambda___init__(envlambda<T>* self, void* arena,           \
                                                    int32_t length, int32_t factor)            \
    {                                                                                           \
        return lambda_init(self, arena, length, factor);                                        \
    }                                                                                           \
    double owngDCT4_##K##_envlambda_at(envlambda<T>* self, int32_t row, int32_t)               \
    {                                                                                           \
        return lambda_at(self, row);                                                            \
    }                                                                                           \
    void owngDCT4_##K##_envlambda___del__(void*) {}                                             \
    envfCompose<T>* owngDCT4_##K##_envfCompose___init__(envfCompose<T>* self, void* arena,     \
                                                        int32_t rowLength, int32_t numerator,  \
                                                        int32_t rows, int32_t factor,          \
                                                        int32_t rowLength2)                    \
    {                                                                                           \
        return compose_init(self, arena, rowLength, numerator, rows, factor, rowLength2);       \
    }                                                                                           \
    T owngDCT4_##K##_envfCompose_at(envfCompose<T>* self, int32_t row, int32_t col)            \
    {                                                                                           \
        return compose_at(self, row, col);                                                      \
    }                                                                                           \
    void owngDCT4_##K##_envfCompose___del__(void*) {}

ZPTG_DCT4_VALUES(32f, float)
ZPTG_DCT4_VALUES(64f, double)

}  // namespace zptg
