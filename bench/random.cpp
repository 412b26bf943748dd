// Reproducible test data (uniform values in [-1, 1) from a small linear
// congruential generator, so every run and both builds see the same inputs)
// and the run-time look-up of the library's exported functions.
#include <dlfcn.h>

#include "bench.h"

namespace zptg::bench {
namespace {

template <class R>
void fill(R* v, long count, unsigned seed)
{
    unsigned state = seed * 2654435761u + 12345u;
    for (long i = 0; i < count; ++i) {
        state = state * 1664525u + 1013904223u;
        v[i] = R(double(state >> 8) / double(1u << 23) - 1.0);
    }
}

}  // namespace

void fill_random(double* v, long count, unsigned seed) { fill(v, count, seed); }
void fill_random(float* v, long count, unsigned seed) { fill(v, count, seed); }

void* library_symbol(const char* name) { return dlsym(RTLD_DEFAULT, name); }

}  // namespace zptg::bench
