// Signed 32-bit arithmetic that wraps like the machine's, for the sizes and
// parameters of planning: a sum or product past the top of the range comes
// out negative or small, never as undefined behaviour.
#ifndef ZPTG_DCT4_WRAP32_H
#define ZPTG_DCT4_WRAP32_H

#include <stdint.h>

namespace zptg {

constexpr int32_t add32(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

constexpr int32_t sub32(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

constexpr int32_t mul32(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

// True if a * b * c as whole numbers lies outside the signed 32-bit range.
constexpr bool product_wraps(int32_t a, int32_t b, int32_t c)
{
    const int64_t p = static_cast<int64_t>(a) * b * c;
    return p != static_cast<int64_t>(mul32(mul32(a, b), c));
}

}  // namespace zptg

#endif
