// The records of a DCT-IV plan and every function that works on them.
//
// A plan is a tree of environments drawn from one arena. Each record opens
// with the same four fields: destructor slot and own size (envBase), then
// its `plan` slot (working environments) or `at` slot (the two value
// functions), then the arena of the whole tree. Its own parameters follow in
// a fixed order. The records are templates over the element type; the
// functions of each kind carry the kind in their names (owngDCT4_32f_...,
// owngDCT4_64f_...).
//
// Sizes. On the 32-bit target every field is one 32-bit word and the record
// sizes are fixed: env1 44, env2 60, env3 60, env4 64, env6 68, env7 64,
// envlambda 24, envfCompose 36 (checked below). On x86-64 the records take
// their natural size: env1 80, env2 88, env3 88, env4 96, env6 96, env7 96,
// envlambda 40, envfCompose 56 (list node 24); each is its `ownSize`, and the
// size computation charges these sizes.
//
//   env1         root and context: direct for N up to 32, else env3 then env2
//   env2         row stage of the root: twiddles from envfCompose's table,
//                then a length-2d real output network per row
//   env3         first stage of the root: d odd-frequency transforms of length m
//   env4         odd-frequency transform above 64 points: env7 then env6
//   env6         row stage of env4: twiddles from envlambda, a DFT of length d2
//   env7         first stage of env4: d2 transforms of length n/d2
//   envlambda    value function of env6's table
//   envfCompose  value function of env2's table
#ifndef ZPTG_DCT4_ENV_H
#define ZPTG_DCT4_ENV_H

#include <stdint.h>

#include "frame/envlist.h"
#include "zptgenpx.h"

namespace zptg {

// ---- Rules --------------------------------------------------------------
// env1: 1..5 the direct lengths 2, 4, 8, 16, 32; 6 the split.
constexpr int32_t kEnv1RuleSplit = 6;
// env3, env7: 1..6 direct bodies of length 2..64; 7 one env4 child.
constexpr int32_t kEnv3RuleChild = 7;
constexpr int32_t kEnv7RuleChild = 7;
// env2: 1..6 for d = 1..32; env6: 1..5 for d2 = 2..32; 0 fails planning.
constexpr int32_t kEnv2RuleLast = 6;
constexpr int32_t kEnv6RuleLast = 5;
// env4: 1 once planned.
constexpr int32_t kEnv4RulePlanned = 1;

// ---- Records ------------------------------------------------------------

template <class T> struct envlambda;
template <class T> struct envfCompose;

template <class T>
struct env1 {
    envBase base;
    zptgStatus (*plan)(env1* self);
    void* arena;
    EnvList* children;  // owning: envfCompose, env2, env3
    EnvList* postList;  // the env2
    EnvList* preList;   // the env3
    T* scratch;         // N elements, null for a direct length
    int32_t rule;       // 1..6
    int32_t factor;     // d, set by the split only
    int32_t length;     // N
};

template <class T>
struct env2 {
    envBase base;
    zptgStatus (*plan)(env2* self);
    void* arena;
    EnvList* children;  // owning, stays empty
    T* table;           // rows * 2d twiddles
    int32_t rule;       // 1..6 from factor, 0 before planning
    int32_t factor;     // d
    int32_t length;     // N
    int32_t rowLength;  // 2d
    int32_t rows;       // N/(2d)
    int32_t length2;    // N
    int32_t reflectBase;  // 2N - 1
    int32_t inner;      // m = N/d
    envfCompose<T>* angle;
};

template <class T>
struct env3 {
    envBase base;
    zptgStatus (*plan)(env3* self);
    void* arena;
    EnvList* children;   // owning: the env4, if any
    EnvList* childList;  // the env4
    T* table;            // always null
    int32_t rule;        // 1..7
    int32_t inner;       // m
    int32_t length;      // N
    int32_t reflectBase;  // 2N - 1
    int32_t stride;      // 2d
    int32_t count;       // d
    int32_t outerLength;  // N
    int32_t outerCount;  // d
};

template <class T>
struct env4 {
    envBase base;
    zptgStatus (*plan)(env4* self);
    void* arena;
    EnvList* children;  // owning: envlambda, env6, env7
    EnvList* postList;  // the env6
    EnvList* preList;   // the env7
    T* scratch;         // n elements
    int32_t rule;       // 1 once planned
    int32_t length;     // n
    int32_t factor;     // d2
    int32_t rootLength;   // N
    int32_t rootLength2;  // N
    int32_t stride;       // input distance inside the sequence
    int32_t outerLength;  // length of the level above
    int32_t outerCount;   // split factor of the level above
};

template <class T>
struct env6 {
    envBase base;
    zptgStatus (*plan)(env6* self);
    void* arena;
    EnvList* children;  // owning, stays empty
    T* table;           // twiddles, layout by rule
    int32_t rule;       // 1..5 from factor, 0 before planning
    int32_t factor;     // d2
    int32_t length;     // n
    int32_t rowLength;  // 2 d2
    int32_t rows;       // n/(2 d2)
    int32_t outerLength;
    int32_t halfLength;  // n/2
    int32_t lastIndex;   // n - 1
    int32_t outerCount;
    int32_t inner;       // n/d2
    envlambda<T>* angle;
};

template <class T>
struct env7 {
    envBase base;
    zptgStatus (*plan)(env7* self);
    void* arena;
    EnvList* children;   // owning: the env4, if any
    EnvList* childList;  // the env4
    T* table;            // always null
    int32_t rule;        // 1..7
    int32_t inner;       // n/d2
    int32_t rootLength;   // N
    int32_t rootLength2;  // N
    int32_t innerStride;  // parent stride * d2
    int32_t stride;       // parent stride
    int32_t count;        // d2
    int32_t outerLength;  // n
    int32_t outerCount;   // d2
};

// lambda(row) = (row + 1/2) / (length / factor), not rounded to the element
// width: the caller rounds what it forms from it.
template <class T>
struct envlambda {
    envBase base;
    double (*at)(envlambda* self, int32_t row, int32_t unused);
    void* arena;
    int32_t length;  // n
    int32_t factor;  // d2
};

// The twiddle of env2's table at (row, col).
template <class T>
struct envfCompose {
    envBase base;
    T (*at)(envfCompose* self, int32_t row, int32_t col);
    void* arena;
    int32_t rowLength;   // 2d
    int32_t numerator;   // 8N
    int32_t rows;        // N/(2d)
    int32_t factor;      // d
    int32_t rowLength2;  // 2d
};

// The record sizes that the arena is charged with.
template <class T> constexpr int32_t kOwnSize = static_cast<int32_t>(sizeof(T));

#if defined(__i386__)
static_assert(sizeof(env1<float>) == 44 && sizeof(env1<double>) == 44);
static_assert(sizeof(env2<float>) == 60 && sizeof(env2<double>) == 60);
static_assert(sizeof(env3<float>) == 60 && sizeof(env3<double>) == 60);
static_assert(sizeof(env4<float>) == 64 && sizeof(env4<double>) == 64);
static_assert(sizeof(env6<float>) == 68 && sizeof(env6<double>) == 68);
static_assert(sizeof(env7<float>) == 64 && sizeof(env7<double>) == 64);
static_assert(sizeof(envlambda<float>) == 24 && sizeof(envlambda<double>) == 24);
static_assert(sizeof(envfCompose<float>) == 36 && sizeof(envfCompose<double>) == 36);
static_assert(sizeof(EnvList) == 12);
#elif defined(__x86_64__)
static_assert(sizeof(env1<float>) == 80 && sizeof(env2<float>) == 88 &&
              sizeof(env3<float>) == 88 && sizeof(env4<float>) == 96 &&
              sizeof(env6<float>) == 96 && sizeof(env7<float>) == 96 &&
              sizeof(envlambda<float>) == 40 && sizeof(envfCompose<float>) == 56 &&
              sizeof(EnvList) == 24);
#endif

// ---- Functions, one set per element kind ---------------------------------
// __init__ takes the record (drawn by the parent), the arena and the
// parameters in field order, draws its list heads and never fails. _mem
// takes the same parameters and gives the bytes the subtree needs, or a
// negative value. _chooseRule reads only its first parameter. __del__ gives
// back what the rule says was drawn, then its lists, but not the record.
// compute returns zptgStatusOk, or zptgStatusNotPlanned for a rule out of range.

#define ZPTG_DCT4_DECLARE_KIND(K, T)                                                            \
    env1<T>* owngDCT4_##K##_env1___init__(env1<T>* self, void* arena, int32_t length);          \
    int32_t owngDCT4_##K##_env1_mem(int32_t length);                                            \
    int32_t owngDCT4_##K##_env1__chooseRule(int32_t length);                                    \
    zptgStatus owngDCT4_##K##_env1_plan(env1<T>* self);                                         \
    void owngDCT4_##K##_env1___del__(void* self);                                               \
    zptgStatus owngDCT4_##K##_env1_compute(env1<T>* self, T* dst, const T* src);                \
                                                                                                \
    env2<T>* owngDCT4_##K##_env2___init__(env2<T>* self, void* arena, int32_t factor,           \
                                          int32_t length, int32_t rowLength, int32_t rows,      \
                                          int32_t length2, int32_t reflectBase, int32_t inner,  \
                                          envfCompose<T>* angle);                               \
    zptgStatus owngDCT4_##K##_env2_plan(env2<T>* self);                                         \
    void owngDCT4_##K##_env2___del__(void* self);                                               \
    zptgStatus owngDCT4_##K##_env2_compute(env2<T>* self, T* dst, const T* in);                 \
                                                                                                \
    env3<T>* owngDCT4_##K##_env3___init__(env3<T>* self, void* arena, int32_t inner,            \
                                          int32_t length, int32_t reflectBase, int32_t stride,  \
                                          int32_t count, int32_t outerLength,                   \
                                          int32_t outerCount);                                  \
    int32_t owngDCT4_##K##_env3_mem(int32_t inner, int32_t length, int32_t reflectBase,         \
                                    int32_t stride, int32_t count, int32_t outerLength,         \
                                    int32_t outerCount);                                        \
    int32_t owngDCT4_##K##_env3__chooseRule(int32_t inner, int32_t length,                      \
                                            int32_t reflectBase, int32_t stride,                \
                                            int32_t count, int32_t outerLength,                 \
                                            int32_t outerCount);                                \
    zptgStatus owngDCT4_##K##_env3_plan(env3<T>* self);                                         \
    void owngDCT4_##K##_env3___del__(void* self);                                               \
    zptgStatus owngDCT4_##K##_env3_compute(env3<T>* self, T* out, const T* in);                 \
                                                                                                \
    env4<T>* owngDCT4_##K##_env4___init__(env4<T>* self, void* arena, int32_t length,           \
                                          int32_t rootLength, int32_t rootLength2,              \
                                          int32_t stride, int32_t outerLength,                  \
                                          int32_t outerCount);                                  \
    int32_t owngDCT4_##K##_env4_mem(int32_t length, int32_t rootLength, int32_t rootLength2,    \
                                    int32_t stride, int32_t outerLength, int32_t outerCount);   \
    zptgStatus owngDCT4_##K##_env4_plan(env4<T>* self);                                         \
    void owngDCT4_##K##_env4___del__(void* self);                                               \
    zptgStatus owngDCT4_##K##_env4_compute(env4<T>* self, T* out, const T* in, int32_t first,   \
                                           int32_t reflect, int32_t column);                    \
                                                                                                \
    env6<T>* owngDCT4_##K##_env6___init__(env6<T>* self, void* arena, int32_t factor,           \
                                          int32_t length, int32_t rowLength, int32_t rows,      \
                                          int32_t outerLength, int32_t halfLength,              \
                                          int32_t lastIndex, int32_t outerCount,                \
                                          int32_t inner, envlambda<T>* angle);                  \
    zptgStatus owngDCT4_##K##_env6_plan(env6<T>* self);                                         \
    void owngDCT4_##K##_env6___del__(void* self);                                               \
    zptgStatus owngDCT4_##K##_env6_compute(env6<T>* self, T* out, const T* in, int32_t column); \
                                                                                                \
    env7<T>* owngDCT4_##K##_env7___init__(env7<T>* self, void* arena, int32_t inner,            \
                                          int32_t rootLength, int32_t rootLength2,              \
                                          int32_t innerStride, int32_t stride, int32_t count,   \
                                          int32_t outerLength, int32_t outerCount);             \
    int32_t owngDCT4_##K##_env7_mem(int32_t inner, int32_t rootLength, int32_t rootLength2,     \
                                    int32_t innerStride, int32_t stride, int32_t count,         \
                                    int32_t outerLength, int32_t outerCount);                   \
    int32_t owngDCT4_##K##_env7__chooseRule(int32_t inner, int32_t rootLength,                  \
                                            int32_t rootLength2, int32_t innerStride,           \
                                            int32_t stride, int32_t count,                      \
                                            int32_t outerLength, int32_t outerCount);           \
    zptgStatus owngDCT4_##K##_env7_plan(env7<T>* self);                                         \
    void owngDCT4_##K##_env7___del__(void* self);                                               \
    zptgStatus owngDCT4_##K##_env7_compute(env7<T>* self, T* out, const T* in, int32_t first,   \
                                           int32_t reflect);                                    \
                                                                                                \
    envlambda<T>* owngDCT4_##K##_envlambda___init__(envlambda<T>* self, void* arena,            \
                                                    int32_t length, int32_t factor);            \
    double owngDCT4_##K##_envlambda_at(envlambda<T>* self, int32_t row, int32_t unused);        \
    void owngDCT4_##K##_envlambda___del__(void* self);                                          \
                                                                                                \
    envfCompose<T>* owngDCT4_##K##_envfCompose___init__(                                        \
        envfCompose<T>* self, void* arena, int32_t rowLength, int32_t numerator, int32_t rows,  \
        int32_t factor, int32_t rowLength2);                                                    \
    T owngDCT4_##K##_envfCompose_at(envfCompose<T>* self, int32_t row, int32_t col);            \
    void owngDCT4_##K##_envfCompose___del__(void* self);

ZPTG_DCT4_DECLARE_KIND(32f, float)
ZPTG_DCT4_DECLARE_KIND(64f, double)

#undef ZPTG_DCT4_DECLARE_KIND

}  // namespace zptg

#endif
