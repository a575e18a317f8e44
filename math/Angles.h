// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

// The angle functions, out of operations that IEEE 754 rounds alike everywhere: + - * / and square roots of
// doubles, comparisons, choices between two values, and operations on bits. So their answers are the same
// bits with every compiler and on every processor and system, which those of the C runtime are not. The
// double arithmetic inside errs by less than 2^-37 of the answer; what is left is the rounding to float. NaN,
// infinities, zeros and the ends of the ranges give what ISO C, annex F, asks for. Short cuts and the
// reduction of large angles aside nothing branches, so that vector lanes can do the same; short cuts change
// no bit. What lanes share is a template: its `Double` is a double, or lanes of them.
//
// The errors are in units in the last place, as `scripts/angles accuracy` measures them: over all floats, and
// for the arc tangent over all quotients that are floats and 142 million points. `scripts/angles fit`
// computes the coefficients.
namespace TAL::angles
{

inline constexpr double kPi = 0x1.921fb54442d18p+1;
inline constexpr double kHalfPi = 0x1.921fb54442d18p+0;
inline constexpr double kQuarterPi = 0x1.921fb54442d18p-1;

inline double absolute(double x)
{
    return std::fabs(x);
}

inline double squareRoot(double x)
{
    return std::sqrt(x);
}

inline double select(bool condition, double yes, double no)
{
    return condition ? yes : no;
}

/// An angle of `rest` radians, at most pi/4 either way, and `quarters` quarter turns, of which the last two
/// bits count.
struct ReducedAngle
{
    double rest;
    std::uint32_t quarters;
};

// Added to it, a number is rounded to a whole one, whose last bits are then the last bits of the sum.
inline constexpr double kRounder = 0x1.8p52;

/// The quarter turns of an angle, rounded to a whole number, on top of kRounder.
template <typename Double>
Double shiftedQuarters(Double angle)
{
    constexpr double kQuartersPerRadian = 0x1.45f306dc9c883p-1;
    return angle * kQuartersPerRadian + kRounder;
}

/// What is left of an angle of less than 2^20 quarter turns: pi/2 in two parts, the first of which takes a
/// whole number of 20 bits exactly (W. J. Cody, W. Waite, "Software Manual for the Elementary Functions",
/// 1980).
template <typename Double>
Double restOfOrdinary(Double angle, Double shifted)
{
    constexpr double kHalfPiHead = 0x1.921fb544p+0; // 33 bits
    constexpr double kHalfPiTail = 0x1.0b4611a626331p-34;
    const Double count = shifted - kRounder;
    return (angle - count * kHalfPiHead) - count * kHalfPiTail;
}

inline ReducedAngle reduceOrdinary(double angle)
{
    const double shifted = shiftedQuarters(angle);
    return {restOfOrdinary(angle, shifted),
            static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(shifted))};
}

/// For finite angles from 2^20 on: of 2/pi only those 96 bits are multiplied that count in a quotient modulo
/// four (M. Payne, R. Hanek, "Radian Reduction for Trigonometric Functions", 1983).
inline ReducedAngle reduceLarge(float angle)
{
    static constexpr std::uint32_t kTwoOverPi[] = {0x00000000, 0xA2F9836E, 0x4E441529, 0xFC2757D1,
                                                   0xF534DDC0, 0xDB629599, 0x3C439041, 0xFE5163AB};
    constexpr double kRadiansPerUnit = 0x1.921fb54442d18p-62;
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(angle);
    const std::uint64_t mantissa = (bits & 0x7FFFFFU) | 0x800000U;
    // The angle is mantissa * 2^(exponent - 150), and the first bit of the table weighs 2^31. The bit that
    // makes a product of weight 2 is the first that counts.
    const std::uint32_t exponent = (bits >> 23U) & 0xFFU;
    const std::uint32_t first = exponent - 120U;
    const auto word = [first](std::uint32_t i) {
        const std::uint32_t at = first / 32U + i;
        const std::uint64_t pair = (std::uint64_t{kTwoOverPi[at]} << 32U) | kTwoOverPi[at + 1U];
        return (pair << (first % 32U)) >> 32U;
    };
    // In units of 2^-62 quarter turns.
    const std::uint64_t turned =
        ((mantissa * word(0)) << 32U) + mantissa * word(1) + ((mantissa * word(2)) >> 32U);
    const std::uint64_t nearest = (turned + (std::uint64_t{1} << 61U)) >> 62U;
    const auto units = static_cast<std::int64_t>(turned - (nearest << 62U));
    const auto quarters = static_cast<std::uint32_t>(nearest);
    const double rest = static_cast<double>(units) * kRadiansPerUnit;
    return angle < 0.0f ? ReducedAngle{-rest, 0U - quarters} : ReducedAngle{rest, quarters};
}

inline constexpr float kLarge = 0x1p20f; // radians

inline ReducedAngle reduce(float angle)
{
    const float size = std::fabs(angle);
    const bool isLarge = size >= kLarge && size <= std::numeric_limits<float>::max();
    return isLarge ? reduceLarge(angle) : reduceOrdinary(static_cast<double>(angle));
}

struct SineAndCosine
{
    float sine;
    float cosine;
};

/// Of at most pi/4 either way. The polynomials err by 2^-37.5 and 2^-43.6.
template <typename Double>
void sinCosOfRest(Double r, Double& sine, Double& cosine)
{
    const Double z = r * r;
    const Double zz = z * z;
    const Double s = (-0x1.5555554c71cbap-3 + z * 0x1.1111086a5d40fp-7) +
                     zz * (-0x1.a00f7f2566994p-13 + z * 0x1.6cd1f1e107de7p-19);
    const Double c =
        (-0x1.ffffffffe98aep-2 + z * 0x1.55555545c50b3p-5) +
        zz * ((-0x1.6c16b348b5961p-10 + z * 0x1.a00eb9abbccb3p-16) + zz * -0x1.23c97dbf24f19p-22);
    sine = r * (1.0 + z * s);
    cosine = 1.0 + z * c;
}

inline SineAndCosine sinCosOfRest(double r)
{
    double sine = 0.0;
    double cosine = 0.0;
    sinCosOfRest(r, sine, cosine);
    return {static_cast<float>(sine), static_cast<float>(cosine)};
}

/// Of an angle in radians. Both err by up to 0.50008 units.
inline SineAndCosine SinCos(float angle)
{
    // A short cut: no quarter turn is taken off so small an angle.
    if (std::fabs(angle) < 0.75f) {
        return sinCosOfRest(static_cast<double>(angle));
    }
    const ReducedAngle reduced = reduce(angle);
    const SineAndCosine ofRest = sinCosOfRest(reduced.rest);
    const auto sine = std::bit_cast<std::uint32_t>(ofRest.sine);
    const auto cosine = std::bit_cast<std::uint32_t>(ofRest.cosine);

    // An odd number of quarter turns swaps the two. The sine is negative after two and three, the cosine
    // after one and two.
    const std::uint32_t swapped = (sine ^ cosine) & (0U - (reduced.quarters & 1U));
    const std::uint32_t sineSign = (reduced.quarters & 2U) << 30U;
    const std::uint32_t cosineSign = ((reduced.quarters + 1U) & 2U) << 30U;
    return {std::bit_cast<float>(sine ^ swapped ^ sineSign),
            std::bit_cast<float>(cosine ^ swapped ^ cosineSign)};
}

template <typename Double>
Double arcCosOf(Double x)
{
    const Double size = absolute(x);
    // Near the ends, half of the angle has the sine sqrt((1 - size) / 2).
    const auto isNearEnd = size > 0.5;
    const Double z = select(isNearEnd, 0.5 - 0.5 * size, size * size);
    const Double s = select(isNearEnd, squareRoot(z), size);
    const Double zz = z * z;
    // The arc sine, up to pi/6. It errs by 2^-39.9.
    const Double p = ((0x1.55555547de741p-3 + z * 0x1.3333408753c87p-4) +
                      zz * (0x1.6db25ce71bad3p-5 + z * 0x1.f2819ea690ae4p-6)) +
                     (zz * zz) * ((0x1.6643de02af026p-6 + z * 0x1.522e99e9b40bcp-6) +
                                  zz * (0x1.05465861eca78p-9 + z * 0x1.0d7ce4957d1cbp-5));
    const Double arc = s * (1.0 + z * p);
    const Double angle = select(isNearEnd, 2.0 * arc, kHalfPi - arc);
    return select(x < 0.0, kPi - angle, angle);
}

/// The angle in radians, from 0 to pi, whose cosine is x; NaN beyond -1..1. Errs by up to 0.50002 units.
inline float ArcCos(float x)
{
    return static_cast<float>(arcCosOf(static_cast<double>(x)));
}

inline constexpr double kTanOfHalfQuarter = 0x1.a827999fcef32p-2; // tan(pi/8)

/// Of at most tan(pi/8) either way. The polynomial errs by 2^-40.2.
template <typename Double>
Double arcTanOfSmall(Double t)
{
    const Double z = t * t;
    const Double zz = z * z;
    const Double p =
        ((-0x1.5555554edf7ep-2 + z * 0x1.999991fc4b778p-3) +
         zz * (-0x1.2490c30c4e7bap-3 + z * 0x1.c6d1ec97baedbp-4)) +
        (zz * zz) * ((-0x1.7082c0f2e082bp-4 + z * 0x1.1e5c76bc1ddd7p-4) + zz * -0x1.36adf3bebd17ap-5);
    return t * (1.0 + z * p);
}

/// The size of the angle of a point so far from the axes; `isLeft` where its x has a minus sign.
template <typename Double, typename Condition>
Double arcTan2Of(Double ySize, Double xSize, Condition isLeft)
{
    // What is infinite is far longer than any float, and as long as what else is infinite.
    constexpr double kInfinite = 0x1p400;
    const Double width = select(xSize > kInfinite, kInfinite, xSize);
    const Double height = select(ySize > kInfinite, kInfinite, ySize);
    const auto isSteep = height > width;
    const Double longer = select(isSteep, height, width);
    const Double shorter = select(isSteep, width, height);

    // tan(a - pi/4) = (tan(a) - 1) / (tan(a) + 1), so the tangent stays within tan(pi/8) either way.
    const auto isDiagonal = shorter > longer * kTanOfHalfQuarter;
    const Double numerator = select(isDiagonal, shorter - longer, shorter);
    const Double denominator = select(isDiagonal, shorter + longer, longer);
    const Double small = arcTanOfSmall(numerator / select(denominator == 0.0, 1.0, denominator));
    const Double arc = small + select(isDiagonal, kQuarterPi, 0.0);
    const Double upright = select(isSteep, kHalfPi - arc, arc);
    return select(isLeft, kPi - upright, upright);
}

/// The angle in radians, from -pi to pi, of the point (x, y) about the origin, from the axis of x toward that
/// of y. Errs by up to 0.50002 units.
inline float ArcTan2(float y, float x)
{
    const double xSize = std::fabs(static_cast<double>(x));
    const double ySize = std::fabs(static_cast<double>(y));
    // A short cut: what follows would only divide, for a point so near the axis.
    const bool isFinite = ySize <= static_cast<double>(std::numeric_limits<float>::max());
    if (x > 0.0f && isFinite && ySize < xSize * kTanOfHalfQuarter) {
        return static_cast<float>(arcTanOfSmall(static_cast<double>(y) / static_cast<double>(x)));
    }
    const double angle = arcTan2Of(ySize, xSize, std::signbit(x));
    return std::copysign(static_cast<float>(angle), y);
}

} // namespace TAL::angles
