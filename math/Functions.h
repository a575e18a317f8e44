// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstdint>

#if defined(__FAST_MATH__) || defined(__RECIPROCAL_MATH__) || defined(_M_FP_FAST) || __FINITE_MATH_ONLY__ + 0
#error "velk: build without -ffast-math and its like: -Ofast, -funsafe-math-optimizations, /fp:fast"
#endif

namespace TAL
{

/// a * b + c, rounded once, which not every C runtime's fmaf is. The product of two floats is exact in
/// double, but their sum with c is not, and rounding it to nearest twice errs where the first rounding makes
/// a tie for the second. So the sum is rounded to odd: an inexact one gets a last bit of 1, which no tie
/// between floats has (Boldo and Melquiond, "Emulation of a FMA and correctly rounded sums: proved algorithms
/// using rounding to odd", 2008).
inline float FusedMultiplyAdd(float a, float b, float c)
{
    const double product = static_cast<double>(a) * static_cast<double>(b);
    const double addend = static_cast<double>(c);
    const double sum = product + addend;

    // Knuth's two-sum: product + addend == sum + error, exactly. It is NaN if the sum is not finite.
    const double addendPart = sum - product;
    const double error = (product - (sum - addendPart)) + (addend - addendPart);
    const auto bits = std::bit_cast<std::uint64_t>(sum);
    const bool isEven = (bits & 1U) == 0U;
    const bool isInexact = error > 0.0 || error < 0.0;
    const bool isBeyond = (error > 0.0) == (sum > 0.0); // the exact sum is farther from zero
    const std::uint64_t odd = isBeyond ? bits + 1U : bits - 1U;
    return static_cast<float>(std::bit_cast<double>(isInexact && isEven ? odd : bits));
}

} // namespace TAL
