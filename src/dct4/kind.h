// What differs between the two element kinds of the plan code: the element
// size, the trigonometric functions, and which named function of the kind a
// template calls. The plan code is written once as templates over the
// element type; KindOf<T> maps each step to the 32f or 64f function by name.
#ifndef ZPTG_DCT4_KIND_H
#define ZPTG_DCT4_KIND_H

#include "dct4/env.h"
#include "frame/trig_pi.h"

namespace zptg {

template <class T> struct KindOf;

#define ZPTG_DCT4_KIND_TRAITS(K, T, COS, SIN)                                 \
    template <> struct KindOf<T> {                                            \
        static constexpr int32_t E = static_cast<int32_t>(sizeof(T));         \
        static T cosPi(T x) { return COS(x); }                                \
        static T sinPi(T x) { return SIN(x); }                                \
        static constexpr auto env1_init = &owngDCT4_##K##_env1___init__;      \
        static constexpr auto env1_mem = &owngDCT4_##K##_env1_mem;            \
        static constexpr auto env1_plan = &owngDCT4_##K##_env1_plan;          \
        static constexpr auto env1_del = &owngDCT4_##K##_env1___del__;        \
        static constexpr auto env1_compute = &owngDCT4_##K##_env1_compute;    \
        static constexpr auto env2_init = &owngDCT4_##K##_env2___init__;      \
        static constexpr auto env2_plan = &owngDCT4_##K##_env2_plan;          \
        static constexpr auto env2_del = &owngDCT4_##K##_env2___del__;        \
        static constexpr auto env3_init = &owngDCT4_##K##_env3___init__;      \
        static constexpr auto env3_mem = &owngDCT4_##K##_env3_mem;            \
        static constexpr auto env3_rule = &owngDCT4_##K##_env3__chooseRule;   \
        static constexpr auto env3_plan = &owngDCT4_##K##_env3_plan;          \
        static constexpr auto env3_del = &owngDCT4_##K##_env3___del__;        \
        static constexpr auto env4_init = &owngDCT4_##K##_env4___init__;      \
        static constexpr auto env4_mem = &owngDCT4_##K##_env4_mem;            \
        static constexpr auto env4_plan = &owngDCT4_##K##_env4_plan;          \
        static constexpr auto env4_del = &owngDCT4_##K##_env4___del__;        \
        static constexpr auto env6_init = &owngDCT4_##K##_env6___init__;      \
        static constexpr auto env6_plan = &owngDCT4_##K##_env6_plan;          \
        static constexpr auto env6_del = &owngDCT4_##K##_env6___del__;        \
        static constexpr auto env7_init = &owngDCT4_##K##_env7___init__;      \
        static constexpr auto env7_mem = &owngDCT4_##K##_env7_mem;            \
        static constexpr auto env7_rule = &owngDCT4_##K##_env7__chooseRule;   \
        static constexpr auto env7_plan = &owngDCT4_##K##_env7_plan;          \
        static constexpr auto env7_del = &owngDCT4_##K##_env7___del__;        \
        static constexpr auto lambda_init = &owngDCT4_##K##_envlambda___init__; \
        static constexpr auto lambda_at = &owngDCT4_##K##_envlambda_at;       \
        static constexpr auto lambda_del = &owngDCT4_##K##_envlambda___del__; \
        static constexpr auto compose_init = &owngDCT4_##K##_envfCompose___init__; \
        static constexpr auto compose_at = &owngDCT4_##K##_envfCompose_at;    \
        static constexpr auto compose_del = &owngDCT4_##K##_envfCompose___del__; \
    };

ZPTG_DCT4_KIND_TRAITS(32f, float, zptgCosPi_32f, zptgSinPi_32f)
ZPTG_DCT4_KIND_TRAITS(64f, double, zptgCosPi_64f, zptgSinPi_64f)

#undef ZPTG_DCT4_KIND_TRAITS

}  // namespace zptg

#endif
