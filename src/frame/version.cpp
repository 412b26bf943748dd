// The library's version record: one constant, never changed.
#include "zptgenpx.h"

namespace {
const zptgLibVersion kVersion = {
    6, 1, 137, 336, {'p', 'x', '\0', '\0'},
    "libzptgenpx.so.6.1", "6.1 build 137.56", "Mar 17 2010",
};
}  // namespace

extern "C" const zptgLibVersion* zptgenGetLibVersion(void)
{
    return &kVersion;
}
