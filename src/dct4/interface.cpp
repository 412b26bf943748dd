// The exported functions of the planned DCT-IV: size query, build in a
// caller's block or in one allocated block, transform (data first, context
// last), release.
//
// A context is the root env1 inside its block. The block's first word is the
// arena's bump pointer; the tree starts at S = B + 64 - (B rem 32), with the
// remainder of the base address taken as a signed 32-bit number (33 to 64
// bytes above an ordinary base, up to 95 when the low word of the address has
// its top bit set). Everything a context owns is drawn from there on.
#include "dct4/env.h"
#include "dct4/kind.h"
#include "dct4/plan_common.h"
#include "zptcore.h"
#include "zptgenpx.h"

namespace zptg {

namespace {

// Room for the arena word and the alignment gap in front of the tree.
constexpr int32_t kArenaHead = 2 * zptgAlignSize32Bytes(1);

template <class T>
zptgStatus get_size(int32_t length, int* size)
{
    const int32_t tree = KindOf<T>::env1_mem(length);
    if (tree < 0) return zptgStatusBadSize;
    const int32_t total = add32(tree, kArenaHead);
    if (total < 0) return zptgStatusBadSize;
    *size = total;
    return zptgStatusOk;
}

// Where the tree starts in a block at `base`.
inline uintptr_t tree_start(const void* base)
{
    const int32_t align = zptgAlignSize32Bytes(1);
    const int32_t low = static_cast<int32_t>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(base)));
    const int32_t gap = 2 * align - low % align;
    return reinterpret_cast<uintptr_t>(base) + static_cast<uintptr_t>(static_cast<intptr_t>(gap));
}

template <class T, class Context>
zptgStatus init(Context** ppContext, int32_t length, void* pBuffer)
{
    using K = KindOf<T>;
    if (ppContext == nullptr) return zptgStatusNullPtr;
    if (pBuffer == nullptr) return zptgStatusNullPtr;
    // The length is checked by planning alone. A rejected length fails part
    // way, after drawing whatever the levels above the failing one drew.
    zptgArenaSetTop(pBuffer, tree_start(pBuffer));
    auto* const root = draw_record<env1<T>>(pBuffer, kOwnSize<env1<T>>);
    K::env1_init(root, pBuffer, length);
    if (K::env1_plan(root) != zptgStatusOk) {
        // Undo the partial tree once, from the top; the block is not used
        // again. The destructors give back what each level's rule implies,
        // drawn or not, so the word may end below the start.
        K::env1_del(root);
        zptgArenaFree(pBuffer, root, kOwnSize<env1<T>>);
        return zptgStatusBadSize;
    }
    *ppContext = reinterpret_cast<Context*>(root);
    return zptgStatusOk;
}

template <class T, class Context>
zptgStatus init_alloc(Context** ppContext, int32_t length)
{
    if (ppContext == nullptr) return zptgStatusNullPtr;
    int size = 0;
    const zptgStatus sized = get_size<T>(length, &size);
    if (sized != zptgStatusOk) return sized;
    void* const block = zptMalloc(size);
    const zptgStatus built = init<T>(ppContext, length, block);
    if (built != zptgStatusOk) zptFree(block);
    return built;
}

template <class T, class Context>
zptgStatus transform(const T* src, T* dst, Context* pContext)
{
    if (pContext == nullptr) return zptgStatusNullPtr;
    if (src == nullptr) return zptgStatusNullPtr;
    if (dst == nullptr) return zptgStatusNullPtr;
    return KindOf<T>::env1_compute(reinterpret_cast<env1<T>*>(pContext), dst, src);
}

template <class T, class Context>
zptgStatus release(Context* pContext)
{
    if (pContext == nullptr) return zptgStatusNullPtr;
    auto* const root = reinterpret_cast<env1<T>*>(pContext);
    void* const block = root->arena;
    KindOf<T>::env1_del(root);
    zptgArenaFree(block, root, kOwnSize<env1<T>>);
    zptFree(block);
    return zptgStatusOk;
}

}  // namespace

}  // namespace zptg

#define ZPTG_DCT4_INTERFACE(K, T, Context)                                                    \
    extern "C" zptgStatus zptgDCT4GetSize_##K(int length, int* size)                          \
    {                                                                                         \
        return zptg::get_size<T>(length, size);                                               \
    }                                                                                         \
    extern "C" zptgStatus zptgDCT4Init_##K(Context** ppContext, int length, void* pBuffer)    \
    {                                                                                         \
        return zptg::init<T>(ppContext, length, pBuffer);                                     \
    }                                                                                         \
    extern "C" zptgStatus zptgDCT4InitAlloc_##K(Context** ppContext, int length)              \
    {                                                                                         \
        return zptg::init_alloc<T>(ppContext, length);                                        \
    }                                                                                         \
    extern "C" zptgStatus zptgDCT4_##K(const T* src, T* dst, Context* pContext)               \
    {                                                                                         \
        return zptg::transform(src, dst, pContext);                                           \
    }                                                                                         \
    extern "C" zptgStatus zptgDCT4Free_##K(Context* pContext)                                 \
    {                                                                                         \
        return zptg::release<T>(pContext);                                                    \
    }

ZPTG_DCT4_INTERFACE(32f, float, zptgDCT4Context_32f)
ZPTG_DCT4_INTERFACE(64f, double, zptgDCT4Context_64f)
