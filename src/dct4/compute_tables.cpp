// The bodies' literal multipliers as one aligned table per width, defined
// apart from the bodies so that they read them from it (see compute_arith.h).
#include "dct4/compute_arith.h"

namespace zptg::dct4 {

namespace {

template <class T, int N, class Source>
constexpr MultiplierTable<T, N> copy_table(const Source& source)
{
    MultiplierTable<T, N> table{};
    for (int i = 0; i < N; ++i) table.value[i] = static_cast<T>(source[i]);
    return table;
}

}  // namespace

const MultiplierTable<float, 129> kCos128Table_32f = copy_table<float, 129>(kCos128_32f);
const MultiplierTable<double, 129> kCos128Table_64f = copy_table<double, 129>(kCos128_64f);

}  // namespace zptg::dct4
