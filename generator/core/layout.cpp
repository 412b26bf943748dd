#include "core/layout.h"

namespace zptg::gen {

Layout identity_layout(int inputs, int outputs)
{
    Layout l;
    for (int k = 0; k < inputs; ++k) l.reads.push_back(k);
    for (int k = 0; k < outputs; ++k) l.stores.push_back({k, false});
    return l;
}

int packed_position(Packing p, int n, int slot)
{
    const int k = slot / 2;
    const bool imaginary = slot % 2 != 0;
    const bool nyquist = n % 2 == 0 && 2 * k == n;
    if (k < 0 || 2 * k > n) return -1;
    if (imaginary && (k == 0 || nyquist)) return -1;
    switch (p) {
    case Packing::CCS: return slot;
    case Packing::Perm:
        if (n % 2 == 0) return nyquist ? 1 : k == 0 ? 0 : slot;
        [[fallthrough]];
    case Packing::Pack:
        if (k == 0) return 0;
        return imaginary ? 2 * k : 2 * k - 1;
    }
    return -1;
}

std::vector<int> packed_zeros(Packing p, int n)
{
    if (p != Packing::CCS) return {};
    if (n % 2 == 0) return {1, n + 1};
    return {1};
}

Layout packed_store_layout(Packing p, int n, bool negate_imaginary)
{
    Layout l;
    for (int k = 0; k < n; ++k) l.reads.push_back(k);
    for (int slot = 0; slot < 2 * (n / 2 + 1); ++slot)
        l.stores.push_back({packed_position(p, n, slot), negate_imaginary && slot % 2 != 0});
    l.zeros = packed_zeros(p, n);
    return l;
}

Layout packed_load_layout(Packing p, int n)
{
    Layout l;
    for (int slot = 0; slot < 2 * (n / 2 + 1); ++slot) l.reads.push_back(packed_position(p, n, slot));
    for (int k = 0; k < n; ++k) l.stores.push_back({k, false});
    return l;
}

}  // namespace zptg::gen
