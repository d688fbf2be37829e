// The orders of additions that the float sums promise, replayed with scalars: a lane is an element of an array.
#pragma once

#include "support/test.h"

#include <vector>

/// The distance of an argument of the call behind a multiple of `bytes`.
inline std::size_t behind(std::size_t pointer, std::size_t bytes)
{
    return support::callAddress(pointer) % bytes;
}

/// Elements before a multiple of 16; 0 where the array is not aligned to them.
inline ZelSize elementsBefore16(std::size_t pointer, std::size_t size)
{
    return behind(pointer, size) != 0 ? 0 : static_cast<ZelSize>((16 - behind(pointer, 16)) % 16 / size);
}

/// Two double sums: of real data the lanes of the last accumulator, of complex data the parts.
struct TwoSums {
    double lane[2];
};

/// Parts (of real or complex elements) in double precision, four pairs of lanes.
inline TwoSums accurateSums(const float* x, ZelSize n, bool firstAlone)
{
    double a[4][2] = {};
    ZelSize i = 0;
    if (firstAlone)
        a[0][0] += static_cast<double>(x[i++]);
    for (; n - i >= 8; i += 8)
        for (int k = 0; k < 8; k++)
            a[k / 2][k % 2] += static_cast<double>(x[i + k]);
    for (int k = 0; k < 4; k++)
        a[k / 2][k % 2] += a[2 + k / 2][k % 2];
    if (n - i >= 4) {
        for (int k = 0; k < 4; k++)
            a[k / 2][k % 2] += static_cast<double>(x[i + k]);
        i += 4;
    }
    for (int k = 0; n - i >= 2 && k < 2; k++)
        a[0][k] += static_cast<double>(x[i + k]);
    if ((n - i) % 2 != 0)
        a[0][0] += static_cast<double>(x[n - 1]);
    return {{a[0][0] + a[1][0], a[0][1] + a[1][1]}};
}

/// A block in single precision: sixteen lanes, then four, then two.
inline TwoSums blockSums(const float* x, ZelSize n)
{
    float b[16] = {};
    const ZelSize rounds = n / 16 * 16;
    for (ZelSize i = 0; i < rounds; i++)
        b[i % 16] += x[i];
    for (int k = 0; k < 4; k++)
        b[k] = (b[k] + b[8 + k]) + (b[4 + k] + b[12 + k]);
    ZelSize i = rounds;
    for (; n - i >= 4; i += 4)
        for (int k = 0; k < 4; k++)
            b[k] += x[i + k];
    if (n - i >= 2) {
        b[0] += x[i];
        b[1] += x[i + 1];
        i += 2;
    }
    if (i < n)
        b[0] += x[i];
    return {{b[0] + b[2], b[1] + b[3]}};
}

/// Blocks of 32,768 parts behind `before` elements that are taken singly.
inline TwoSums fastSums(const float* x, ZelSize n, int parts, ZelSize before)
{
    TwoSums total{};
    ZelSize i = 0;
    for (; i < n && i < before * parts; i++)
        total.lane[i % parts] += static_cast<double>(x[i]);
    for (; i < n; i += 32768) {
        const TwoSums block = blockSums(x + i, std::min<ZelSize>(32768, n - i));
        for (int k = 0; k < 2; k++)
            total.lane[k] += block.lane[k];
    }
    return total;
}

/// The sums of single-precision parts by the hint, source at pointer 0.
inline TwoSums sumsByHint(const float* x, ZelSize len, int parts, int hint)
{
    const ZelSize n = len * parts;
    if (hint == zelHintFast)
        return fastSums(x, n, parts, elementsBefore16(0, sizeof(float) * static_cast<std::size_t>(parts)));
    return accurateSums(x, n, parts == 1 && behind(0, 8) == 4);
}

/// Doubles in four pairs of lanes.
inline TwoSums doubleSums(const double* x, ZelSize n, bool firstAlone)
{
    double a[8] = {};
    ZelSize i = 0;
    if (firstAlone)
        a[0] += x[i++];
    for (; n - i >= 8; i += 8)
        for (int k = 0; k < 8; k++)
            a[k] += x[i + k];
    for (int k = 0; k < 2; k++)
        a[k] = (a[k] + a[2 + k]) + (a[4 + k] + a[6 + k]);
    for (; n - i >= 2; i += 2)
        for (int k = 0; k < 2; k++)
            a[k] += x[i + k];
    if (i < n)
        a[0] += x[i];
    return {{a[0], a[1]}};
}
