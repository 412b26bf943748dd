// The split factor of a planned transform: the largest power of two, up to a
// cap set by the size of n, that divides n.
#ifndef ZPTG_FRAME_DIVISORS_H
#define ZPTG_FRAME_DIVISORS_H

#include <stdint.h>

#include "zptgenpx.h"

namespace zptg {

// Caps by n (signed): 512 and up 32, 128 up 16, 32 up 8, 16 up 4, 4 up 2,
// below 4 none. From the cap down in halves to 2, the first candidate that
// divides n goes to *out with zptgStatusOk; if none does, zptgStatusBadSize
// and *out is left alone. The factor 1 is never given.
zptgStatus divisorsIntNonTriv(int32_t* out, int32_t n);

}  // namespace zptg

#endif
