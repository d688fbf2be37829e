// The transforms that filters run: what any caller could do, by the exported functions, under one name an element type.
#pragma once

#include "zels/arith.h"
#include "zels/transforms.h"

template <class E>
struct OwnsFirFft;

template <>
struct OwnsFirFft<Zel32f> {
    using Plan = ZelsFftPlan_R_32f;
    static constexpr auto getSize = zelsFFTGetSize_R_32f;
    static constexpr auto init = zelsFFTInit_R_32f;
    static constexpr auto forward = zelsFFTFwd_RToPerm_32f;
    static constexpr auto inverse = zelsFFTInv_PermToR_32f;
    static constexpr auto multiply = zelsMulPerm_32f_I;
};

template <>
struct OwnsFirFft<Zel64f> {
    using Plan = ZelsFftPlan_R_64f;
    static constexpr auto getSize = zelsFFTGetSize_R_64f;
    static constexpr auto init = zelsFFTInit_R_64f;
    static constexpr auto forward = zelsFFTFwd_RToPerm_64f;
    static constexpr auto inverse = zelsFFTInv_PermToR_64f;
    static constexpr auto multiply = zelsMulPerm_64f_I;
};

template <>
struct OwnsFirFft<Zel32fc> {
    using Plan = ZelsFftPlan_C_32fc;
    static constexpr auto getSize = zelsFFTGetSize_C_32fc;
    static constexpr auto init = zelsFFTInit_C_32fc;
    static constexpr auto forward = zelsFFTFwd_CToC_32fc;
    static constexpr auto inverse = zelsFFTInv_CToC_32fc;
    static constexpr auto multiply = zelsMul_32fc_I;
};

template <>
struct OwnsFirFft<Zel64fc> {
    using Plan = ZelsFftPlan_C_64fc;
    static constexpr auto getSize = zelsFFTGetSize_C_64fc;
    static constexpr auto init = zelsFFTInit_C_64fc;
    static constexpr auto forward = zelsFFTFwd_CToC_64fc;
    static constexpr auto inverse = zelsFFTInv_CToC_64fc;
    static constexpr auto multiply = zelsMul_64fc_I;
};
