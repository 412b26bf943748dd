// The split factor's thresholds are not one formula: the upper three are half
// the square of their cap (512, 128, 32), the lower two the square (16, 4).
// They are kept as a table, in that shape, on purpose.
#include "frame/divisors.h"

namespace zptg {

namespace {

struct Cap {
    int32_t from;  // smallest n that has this cap
    int32_t cap;
};

constexpr Cap kCaps[] = {{512, 32}, {128, 16}, {32, 8}, {16, 4}, {4, 2}};

}  // namespace

zptgStatus divisorsIntNonTriv(int32_t* out, int32_t n)
{
    int32_t cap = 0;
    for (const Cap& c : kCaps) {
        if (n >= c.from) {
            cap = c.cap;
            break;
        }
    }
    for (int32_t candidate = cap; candidate >= 2; candidate /= 2) {
        if (n % candidate == 0) {
            *out = candidate;
            return zptgStatusOk;
        }
    }
    return zptgStatusBadSize;
}

}  // namespace zptg
