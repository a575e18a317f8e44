// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#if defined(__FAST_MATH__) || defined(__RECIPROCAL_MATH__) || defined(_M_FP_FAST) || __FINITE_MATH_ONLY__ + 0
#error "velk: build without -ffast-math and its like: -Ofast, -funsafe-math-optimizations, /fp:fast"
#endif

// Every function whose last bit depends on the C library is called here and nowhere else. With
// VELK_PORTABLE_MATH=1 the trigonometric ones are computed in double and rounded once, and the fused
// multiply-add is put together from plain arithmetic, so that results agree between platforms.
#ifndef VELK_PORTABLE_MATH
#define VELK_PORTABLE_MATH 0
#endif

namespace TAL
{

namespace native
{

inline float Sin(float angle)
{
    return std::sin(angle);
}

inline float Cos(float angle)
{
    return std::cos(angle);
}

inline float ArcCos(float x)
{
    return std::acos(x);
}

inline float ArcTan2(float y, float x)
{
    return std::atan2(y, x);
}

/// a * b + c, rounded once.
inline float FusedMultiplyAdd(float a, float b, float c)
{
    return std::fma(a, b, c);
}

} // namespace native

namespace portable
{

inline float Sin(float angle)
{
    return static_cast<float>(std::sin(static_cast<double>(angle)));
}

inline float Cos(float angle)
{
    return static_cast<float>(std::cos(static_cast<double>(angle)));
}

inline float ArcCos(float x)
{
    return static_cast<float>(std::acos(static_cast<double>(x)));
}

inline float ArcTan2(float y, float x)
{
    return static_cast<float>(std::atan2(static_cast<double>(y), static_cast<double>(x)));
}

/// a * b + c, rounded once. The product of two floats is exact in double, but their sum with c is not,
/// and rounding it to nearest twice errs where the first rounding makes a tie for the second. So the
/// sum is rounded to odd: an inexact one gets a last bit of 1, which no tie between floats has (Boldo
/// and Melquiond, "Emulation of a FMA and correctly rounded sums: proved algorithms using rounding to
/// odd", 2008).
inline float FusedMultiplyAdd(float a, float b, float c)
{
    const double product = static_cast<double>(a) * static_cast<double>(b);
    const double addend = static_cast<double>(c);
    double sum = product + addend;
    if (!std::isfinite(sum)) {
        return static_cast<float>(sum);
    }

    // Knuth's two-sum: product + addend == sum + error, exactly.
    const double addendPart = sum - product;
    const double error = (product - (sum - addendPart)) + (addend - addendPart);
    std::uint64_t bits = 0;
    std::memcpy(&bits, &sum, sizeof bits);
    const bool isOdd = (bits & 1U) != 0U;
    if (error != 0.0 && !isOdd) {
        const double infinity = std::numeric_limits<double>::infinity();
        sum = std::nextafter(sum, error > 0.0 ? infinity : -infinity);
    }
    return static_cast<float>(sum);
}

} // namespace portable

#if VELK_PORTABLE_MATH
using portable::ArcCos;
using portable::ArcTan2;
using portable::Cos;
using portable::FusedMultiplyAdd;
using portable::Sin;
#else
using native::ArcCos;
using native::ArcTan2;
using native::Cos;
using native::FusedMultiplyAdd;
using native::Sin;
#endif

} // namespace TAL
