// Fills the member tables from ZPTG_DFT_COMPLEX_FUNCTIONS: one entry per
// exported kernel and dispatcher; the stem tells the direction.
#include "dft_complex/complex_members.h"

#include <cstdlib>
#include <cstring>

namespace zptg::test {
namespace {

template <class E>
Member<E> members[2];

template <class E>
Member<E>& slot(const char* stem)
{
    if (std::strcmp(stem, "zptgDFTFwd_CToC") == 0) return members<E>[0];
    if (std::strcmp(stem, "zptgDFTInv_CToC") == 0) return members<E>[1];
    std::abort();  // a stem this table does not know
}

template <class E>
void add_kernel(const char* stem, int n, Kernel<E> k, const char* name)
{
    slot<E>(stem).kernel[n] = k;
    slot<E>(stem).kernel_name[n] = name;
}

template <class E>
void add_dispatcher(const char* stem, Dispatcher<E> d, const char* name)
{
    slot<E>(stem).dispatcher = d;
    slot<E>(stem).dispatcher_name = name;
}

bool fill()
{
    members<zptg32fc>[1].dir = members<zptg64fc>[1].dir = Dir::Inverse;
#define ZPTG_TEST_KERNEL_(stem, kind, type, N) \
    add_kernel<type>(#stem, N, &stem##_##N##_##kind, #stem "_" #N "_" #kind);
#define ZPTG_TEST_DISPATCHER_(stem, kind, type) \
    add_dispatcher<type>(#stem, &stem##_##kind, #stem "_" #kind);
    ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_TEST_KERNEL_, ZPTG_TEST_DISPATCHER_)
#undef ZPTG_TEST_KERNEL_
#undef ZPTG_TEST_DISPATCHER_
    return true;
}

}  // namespace

template <class E>
const Member<E>& member(Dir d)
{
    static const bool filled = fill();
    (void)filled;
    return members<E>[d == Dir::Forward ? 0 : 1];
}

template const Member<zptg32fc>& member<zptg32fc>(Dir);
template const Member<zptg64fc>& member<zptg64fc>(Dir);

}  // namespace zptg::test
