// The test of bad arguments catches planted faults.
#include "support/test.h"

namespace {

ZelStatus correct(const float* pSrc, float* pDst, int len)
{
    if (!pSrc || !pDst)
        return zelErrNullPtr;
    return len < 1 ? zelErrSize : zelStatusOk;
}

ZelStatus correctLong(const float* pSrc, float* pDst, ZelSize len)
{
    if (len < 1)
        return zelErrSize;
    return !pSrc || !pDst ? zelErrNullPtr : zelStatusOk;
}

ZelStatus wrongOrder(const float* pSrc, float* pDst, int len)
{
    return len < 1 ? zelErrSize : correct(pSrc, pDst, len);
}

ZelStatus wrongStatus(const float* pSrc, float* pDst, int len)
{
    return len < 1 && pSrc && pDst ? zelErrBadArg : correct(pSrc, pDst, len);
}

ZelStatus takesZero(const float* pSrc, float* pDst, int len)
{
    return len == 0 && pSrc && pDst ? zelStatusOk : correct(pSrc, pDst, len);
}

ZelStatus refusesAll(const float*, float*, int)
{
    return zelErrNullPtr;
}

ZelStatus cutsLength(const float* pSrc, float* pDst, ZelSize len)
{
    return correctLong(pSrc, pDst, static_cast<int>(len));
}

ZelStatus writesFirst(const float* pSrc, float* pDst, int len)
{
    if (pDst)
        *pDst = 1e9f;
    return correct(pSrc, pDst, len);
}

ZelStatus readsFirst(const float* pSrc, float* pDst, int len)
{
    static_cast<void>(*static_cast<const volatile float*>(pSrc));
    return correct(pSrc, pDst, len);
}

ZelStatus selecting(const float* pSrc, int srcLen, float* pDst, int* pDstLen, int factor, int phase,
                    const void* pWork)
{
    static_cast<void>(pWork);
    if (!pSrc || !pDst || !pDstLen)
        return zelErrNullPtr;
    if (srcLen < 1)
        return zelErrSize;
    if (factor < 1)
        return zelErrSampleFactor;
    return phase < 0 || phase >= factor ? zelErrSamplePhase : zelStatusOk;
}

ZelStatus wrongSelectors(const float* pSrc, int srcLen, float* pDst, int* pDstLen, int factor, int phase,
                         const void* pWork)
{
    if (phase < 0)
        return pSrc && srcLen > 0 && pDst && pDstLen ? zelErrSamplePhase
                                                     : selecting(pSrc, srcLen, pDst, pDstLen, 1, 0, pWork);
    return selecting(pSrc, srcLen, pDst, pDstLen, factor, phase, pWork);
}

template <class F>
std::string selectors(F& function)
{
    return tryBadArguments(function, pointersFirst, array(), length(5), array(), array(sizeof(int)),
                           selector(3, {0, -1}, zelErrSampleFactor), selector(2, {-1, 3}, zelErrSamplePhase),
                           optionalArray());
}

} // namespace

TEST(BadArguments, passesWhatIsRight)
{
    EXPECT_EQ(tryBadArguments(correct, pointersFirst), "");
    EXPECT_EQ(tryBadArguments(correctLong, lengthFirst), "");
    EXPECT_EQ(selectors(selecting), "");
}

TEST(BadArguments, catchesFaults)
{
    EXPECT_NE(tryBadArguments(wrongOrder, pointersFirst), "");
    EXPECT_NE(tryBadArguments(correct, lengthFirst), "");
    EXPECT_NE(tryBadArguments(wrongStatus, pointersFirst), "");
    EXPECT_NE(tryBadArguments(takesZero, pointersFirst), "");
    EXPECT_NE(tryBadArguments(refusesAll, pointersFirst), "");
    EXPECT_NE(tryBadArguments(cutsLength, lengthFirst), "");
    EXPECT_NE(tryBadArguments(writesFirst, pointersFirst), "");
    EXPECT_NE(selectors(wrongSelectors), "");
    EXPECT_DEATH(tryBadArguments(readsFirst, pointersFirst), "argument 1 = null");
}
