// Replacement by values: LTVal, GTVal and LTValGTVal.
#include "arith/threshold.h"
#include "zels.h"

namespace {

/// Real elements stay if they stand on the right side of the level, or on it; a NaN does not.
template <OwnsSide side, class T>
struct Replace {
    OwnsVec<T> level, value;

    Replace(T theLevel, T theValue) : level(ownsSplat(theLevel)), value(ownsSplat(theValue)) {}
    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        x = ownsHeld(x);
        return ownsChosen(side == OwnsSide::below ? ownsNotUpTo(level, x) : ownsNotUpTo(x, level), value, x);
    }
};

/// Complex floats, by their sums of squares in both parts.
template <OwnsSide side, class C>
requires ownsIsComplex<C>
struct Replace<side, C> {
    using V = OwnsVec<C>;
    V square, value;

    Replace(OwnsPart<C> level, C theValue) : square(ownsSplat(level * level)), value(ownsSplat(theValue)) {}
    V operator()(V x) const
    {
        const V squares = x * x;
        const V m = squares + ownsSwapped(squares);
        return ownsChosen(side == OwnsSide::below ? ownsNotUpTo(square, m) : ownsNotUpTo(m, square), value,
                          x);
    }
};

template <OwnsSide side>
struct Replace<side, Zel16sc> {
    OwnsBeyond16<side> isBeyond;
    OwnsVec<Zel16s> value;

    Replace(Zel16s level, Zel16sc theValue) : isBeyond{level}, value(ownsSplat(theValue)) {}
    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> x) const
    {
        return ownsChosen(isBeyond(ownsSquares4(x)), value, x);
    }
};

template <OwnsSide side, class T>
ZelStatus replace(const T* pSrc, T* pDst, int len, OwnsPart<T> level, T value)
{
    using P = OwnsPart<T>;
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if constexpr (ownsIsComplex<T>) {
        if (level < 0)
            return zelErrThreshNegLevel;
        if constexpr (std::is_floating_point_v<P>) {
            if (!ownsIsOrdinaryLevel(level)) [[unlikely]] {
                ownsOneByOne(pSrc, pDst, len, [=](T x) {
                    return ownsStays<side, typename OwnsMagnitudes<P>::Wide>(x, level) ? x : value;
                });
                return zelStatusOk;
            }
        }
    }
    ownsMap<ownsShapeOf<T>>(Replace<side, T>(level, value), pDst, len, pSrc);
    return zelStatusOk;
}

/// The two ranges do not meet, and a NaN is in neither.
template <class T>
ZelStatus replaceBoth(const T* pSrc, T* pDst, int len, T levelLT, T valueLT, T levelGT, T valueGT)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (levelLT > levelGT)
        return zelErrThreshold;
    const OwnsVec<T> low = ownsSplat(levelLT), forLow = ownsSplat(valueLT);
    const OwnsVec<T> high = ownsSplat(levelGT), forHigh = ownsSplat(valueGT);
    ownsMap<ownsShapeOf<T>>(
        [=](OwnsVec<T> x) {
            const OwnsVec<T> raised = x < low ? forLow : x;
            return x > high ? forHigh : raised;
        },
        pDst, len, pSrc);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsThreshold_LTVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level, Zel16s value)
{
    return replace<OwnsSide::below>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_16s_I(Zel16s* pSrcDst, int len, Zel16s level, Zel16s value)
{
    return zelsThreshold_LTVal_16s(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level, Zel16sc value)
{
    return replace<OwnsSide::below>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level, Zel16sc value)
{
    return zelsThreshold_LTVal_16sc(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level, Zel32f value)
{
    return replace<OwnsSide::below>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_32f_I(Zel32f* pSrcDst, int len, Zel32f level, Zel32f value)
{
    return zelsThreshold_LTVal_32f(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level, Zel32fc value)
{
    return replace<OwnsSide::below>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level, Zel32fc value)
{
    return zelsThreshold_LTVal_32fc(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level, Zel64f value)
{
    return replace<OwnsSide::below>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_64f_I(Zel64f* pSrcDst, int len, Zel64f level, Zel64f value)
{
    return zelsThreshold_LTVal_64f(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level, Zel64fc value)
{
    return replace<OwnsSide::below>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTVal_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level, Zel64fc value)
{
    return zelsThreshold_LTVal_64fc(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level, Zel16s value)
{
    return replace<OwnsSide::above>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_16s_I(Zel16s* pSrcDst, int len, Zel16s level, Zel16s value)
{
    return zelsThreshold_GTVal_16s(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level, Zel16sc value)
{
    return replace<OwnsSide::above>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level, Zel16sc value)
{
    return zelsThreshold_GTVal_16sc(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level, Zel32f value)
{
    return replace<OwnsSide::above>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_32f_I(Zel32f* pSrcDst, int len, Zel32f level, Zel32f value)
{
    return zelsThreshold_GTVal_32f(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level, Zel32fc value)
{
    return replace<OwnsSide::above>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level, Zel32fc value)
{
    return zelsThreshold_GTVal_32fc(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level, Zel64f value)
{
    return replace<OwnsSide::above>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_64f_I(Zel64f* pSrcDst, int len, Zel64f level, Zel64f value)
{
    return zelsThreshold_GTVal_64f(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level, Zel64fc value)
{
    return replace<OwnsSide::above>(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_GTVal_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level, Zel64fc value)
{
    return zelsThreshold_GTVal_64fc(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTValGTVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s levelLT,
                                       Zel16s valueLT, Zel16s levelGT, Zel16s valueGT)
{
    return replaceBoth(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_16s_I(Zel16s* pSrcDst, int len, Zel16s levelLT, Zel16s valueLT,
                                         Zel16s levelGT, Zel16s valueGT)
{
    return zelsThreshold_LTValGTVal_16s(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s levelLT,
                                       Zel32s valueLT, Zel32s levelGT, Zel32s valueGT)
{
    return replaceBoth(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_32s_I(Zel32s* pSrcDst, int len, Zel32s levelLT, Zel32s valueLT,
                                         Zel32s levelGT, Zel32s valueGT)
{
    return zelsThreshold_LTValGTVal_32s(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f levelLT,
                                       Zel32f valueLT, Zel32f levelGT, Zel32f valueGT)
{
    return replaceBoth(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_32f_I(Zel32f* pSrcDst, int len, Zel32f levelLT, Zel32f valueLT,
                                         Zel32f levelGT, Zel32f valueGT)
{
    return zelsThreshold_LTValGTVal_32f(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f levelLT,
                                       Zel64f valueLT, Zel64f levelGT, Zel64f valueGT)
{
    return replaceBoth(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT);
}

ZelStatus zelsThreshold_LTValGTVal_64f_I(Zel64f* pSrcDst, int len, Zel64f levelLT, Zel64f valueLT,
                                         Zel64f levelGT, Zel64f valueGT)
{
    return zelsThreshold_LTValGTVal_64f(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT);
}
