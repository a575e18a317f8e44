// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Angles.h"
#include "math/Math.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#if defined(__AVX__) || defined(__SSE2__)
#include <immintrin.h>
#elif defined(__aarch64__)
#include <arm_neon.h>
#endif

/// Numbers side by side, one in each lane, for arithmetic on many values at once: every operation is that on
/// floats and doubles, lane by lane, and so has the same bits. The lanes are the vectors that g++ and clang
/// have for every processor, in a file that is compiled for as wide ones as it uses. A condition is a mask
/// with all bits of a lane set where it holds. Only NaN may differ from that of numbers alone, by its sign
/// and payload.
namespace TAL::lanes
{

template <typename T, std::size_t size>
struct Register
{
    using Type [[gnu::vector_size(size)]] = T;
};

template <typename T>
T squareRootOf(T x)
{
#if defined(__AVX__)
    if constexpr (sizeof(T) == 32 && sizeof(x[0]) == 4) {
        return _mm256_sqrt_ps(x);
    } else if constexpr (sizeof(T) == 32) {
        return _mm256_sqrt_pd(x);
    } else
#endif
#if defined(__SSE2__)
        if constexpr (sizeof(x[0]) == 4) {
        return _mm_sqrt_ps(x);
    } else {
        return _mm_sqrt_pd(x);
    }
#elif defined(__aarch64__)
    if constexpr (sizeof(x[0]) == 4) {
        return vsqrtq_f32(x);
    } else {
        return vsqrtq_f64(x);
    }
#else
    for (std::size_t i = 0; i < sizeof(x) / sizeof(x[0]); ++i) {
        x[i] = std::sqrt(x[i]);
    }
    return x;
#endif
}

/// As many doubles as there are floats in a register of `size` bytes: two registers of them.
template <std::size_t size>
struct Double
{
    using Lanes = typename Register<double, size>::Type;
    using Bits = typename Register<std::int64_t, size>::Type;
    struct Mask
    {
        Bits low;
        Bits high;
        friend Mask operator&(const Mask& a, const Mask& b) { return {a.low & b.low, a.high & b.high}; }
        friend Mask operator^(const Mask& a, const Mask& b) { return {a.low ^ b.low, a.high ^ b.high}; }
        friend Mask operator|(const Mask& a, const Mask& b) { return {a.low | b.low, a.high | b.high}; }
        friend Mask operator+(const Mask& a, const Mask& b) { return {a.low + b.low, a.high + b.high}; }
    };

    Lanes low;
    Lanes high;

    Double(Lanes inLow, Lanes inHigh)
        : low(inLow)
        , high(inHigh)
    {
    }
    Double(double all)
        : low(all - Lanes{})
        , high(low)
    {
    }

    friend Double operator+(const Double& a, const Double& b) { return {a.low + b.low, a.high + b.high}; }
    friend Double operator-(const Double& a, const Double& b) { return {a.low - b.low, a.high - b.high}; }
    friend Double operator*(const Double& a, const Double& b) { return {a.low * b.low, a.high * b.high}; }
    friend Double operator/(const Double& a, const Double& b) { return {a.low / b.low, a.high / b.high}; }
    friend Mask operator<(const Double& a, const Double& b) { return {a.low < b.low, a.high < b.high}; }
    friend Mask operator>(const Double& a, const Double& b) { return {a.low > b.low, a.high > b.high}; }
    friend Mask operator==(const Double& a, const Double& b) { return {a.low == b.low, a.high == b.high}; }

    friend Double select(const Mask& mask, const Double& yes, const Double& no)
    {
        return {mask.low ? yes.low : no.low, mask.high ? yes.high : no.high};
    }
    friend Double squareRoot(const Double& x) { return {squareRootOf(x.low), squareRootOf(x.high)}; }
    friend Double absolute(const Double& x) { return fromBits(toBits(x) & sameBits(0x7FFF'FFFF'FFFF'FFFF)); }

    static Mask sameBits(std::int64_t all) { return {all - Bits{}, all - Bits{}}; }
    static Double fromBits(const Mask& bits)
    {
        return {std::bit_cast<Lanes>(bits.low), std::bit_cast<Lanes>(bits.high)};
    }
    friend Mask toBits(const Double& x) { return {std::bit_cast<Bits>(x.low), std::bit_cast<Bits>(x.high)}; }
};

/// Floats that fill a register of `size` bytes.
template <std::size_t size>
struct Float
{
    static constexpr std::size_t kCount = size / sizeof(float);
    using Lanes = typename Register<float, size>::Type;
    using Mask = typename Register<std::int32_t, size>::Type;
    using Double = lanes::Double<size>;

    Lanes lanes;

    Float(Lanes inLanes)
        : lanes(inLanes)
    {
    }
    Float(float all)
        : lanes(all - Lanes{})
    {
    }

    friend Float operator+(const Float& a, const Float& b) { return a.lanes + b.lanes; }
    friend Float operator-(const Float& a, const Float& b) { return a.lanes - b.lanes; }
    friend Float operator*(const Float& a, const Float& b) { return a.lanes * b.lanes; }
    friend Float operator/(const Float& a, const Float& b) { return a.lanes / b.lanes; }
    friend Mask operator<(const Float& a, const Float& b) { return a.lanes < b.lanes; }
    friend Mask operator>(const Float& a, const Float& b) { return a.lanes > b.lanes; }
    friend Mask operator>=(const Float& a, const Float& b) { return a.lanes >= b.lanes; }
    friend Mask operator==(const Float& a, const Float& b) { return a.lanes == b.lanes; }
    Float operator-() const { return -lanes; }

    static Float load(const float* from)
    {
        Lanes lanes;
        std::memcpy(&lanes, from, size);
        return lanes;
    }
    void store(float* to) const { std::memcpy(to, &lanes, size); }

    friend Float select(const Mask& mask, const Float& yes, const Float& no)
    {
        return mask ? yes.lanes : no.lanes;
    }
    friend bool isZero(const Float& x)
    {
        const auto words = std::bit_cast<typename Register<std::int64_t, size>::Type>(x == 0.0f);
        std::int64_t all = -1;
        for (std::size_t i = 0; i < size / sizeof(all); ++i) {
            all &= words[i];
        }
        return all == -1;
    }
    friend Float squareRoot(const Float& x) { return squareRootOf(x.lanes); }
    friend Float absolute(const Float& x) { return fromBits(toBits(x) & 0x7FFF'FFFF); }

    static Float fromBits(const Mask& bits) { return std::bit_cast<Lanes>(bits); }
    friend Mask toBits(const Float& x) { return std::bit_cast<Mask>(x.lanes); }

    friend Double toDouble(const Float& x)
    {
        // g++ 12 converts by two and joins them.
#if defined(__AVX__)
        if constexpr (size == 32) {
            return {_mm256_cvtps_pd(_mm256_castps256_ps128(x.lanes)),
                    _mm256_cvtps_pd(_mm256_extractf128_ps(x.lanes, 1))};
        }
#endif
#if defined(__SSE2__)
        if constexpr (size == 16) {
            return {_mm_cvtps_pd(x.lanes), _mm_cvtps_pd(_mm_movehl_ps(x.lanes, x.lanes))};
        }
#endif
        const auto [low, high] = std::bit_cast<Halves>(x.lanes);
        return {__builtin_convertvector(low, typename Double::Lanes),
                __builtin_convertvector(high, typename Double::Lanes)};
    }
    static Float fromDouble(const Double& x)
    {
#if defined(__AVX__)
        if constexpr (size == 32) {
            return _mm256_set_m128(_mm256_cvtpd_ps(x.high), _mm256_cvtpd_ps(x.low));
        }
#endif
#if defined(__SSE2__)
        if constexpr (size == 16) {
            return _mm_movelh_ps(_mm_cvtpd_ps(x.low), _mm_cvtpd_ps(x.high));
        }
#endif
        return std::bit_cast<Lanes>(
            Halves{__builtin_convertvector(x.low, Half), __builtin_convertvector(x.high, Half)});
    }
    /// The last 32 bits of each double.
    static Mask lowBits(const Double& x)
    {
#if defined(__SSE2__)
        if constexpr (size == 16) {
            return std::bit_cast<Mask>(_mm_shuffle_ps(_mm_castpd_ps(x.low), _mm_castpd_ps(x.high), 0x88));
        }
#endif
        using HalfBits = typename Register<std::int32_t, size / 2>::Type;
        struct Both
        {
            HalfBits low;
            HalfBits high;
        };
        const auto bits = toBits(x);
        return std::bit_cast<Mask>(
            Both{__builtin_convertvector(bits.low, HalfBits), __builtin_convertvector(bits.high, HalfBits)});
    }

private:
    using Half = typename Register<float, size / 2>::Type;
    struct Halves
    {
        Half low;
        Half high;
    };
};

} // namespace TAL::lanes

namespace TAL::angles
{

/// SinCos() for angles of less than 2^20 radians: `F` is a type of TAL::lanes, here and below.
template <typename F>
void sinCosOfLanes(const F& angle, F& sine, F& cosine)
{
    using Double = typename F::Double;
    const Double wide = toDouble(angle);
    const Double shifted = shiftedQuarters(wide);
    Double s = wide;
    Double c = wide;
    sinCosOfRest(restOfOrdinary(wide, shifted), s, c);
    const auto sineBits = toBits(F::fromDouble(s));
    const auto cosineBits = toBits(F::fromDouble(c));
    const auto quarters = F::lowBits(shifted);
    const auto swapped = (sineBits ^ cosineBits) & -(quarters & 1);
    sine = F::fromBits(sineBits ^ swapped ^ ((quarters & 2) << 30));
    cosine = F::fromBits(cosineBits ^ swapped ^ (((quarters + 1) & 2) << 30));
}

/// Acos(): what is beyond -1..1 by rounding counts as the end of the range.
template <typename F>
F arcCosOfLanes(const F& x)
{
    const F angle = F::fromDouble(arcCosOf(toDouble(x)));
    return select(x > 1.0f, 0.0f, select(x < -1.0f, TAL::kPi, angle));
}

/// ArcTan2().
template <typename F>
F arcTan2OfLanes(const F& y, const F& x)
{
    const auto wideX = toDouble(x);
    using Double = typename F::Double;
    // A 1 with the sign of x, which may be that of a zero.
    const auto sign = toBits(wideX) & Double::sameBits(std::numeric_limits<std::int64_t>::min());
    const auto isLeft = Double::fromBits(sign | toBits(Double(1.0))) < 0.0;
    return F::fromDouble(arcTan2Of(absolute(toDouble(y)), absolute(wideX), isLeft));
}

} // namespace TAL::angles

namespace TAL
{

/// The one of numbers, side by side.
template <typename F>
F fusedMultiplyAdd(const F& a, const F& b, const F& c)
{
    using Double = typename F::Double;
    const Double product = toDouble(a) * toDouble(b);
    const Double addend = toDouble(c);
    const Double sum = product + addend;
    const Double addendPart = sum - product;
    const Double error = (product - (sum - addendPart)) + (addend - addendPart);
    const auto bits = toBits(sum);
    const auto isEven =
        (bits & Double::sameBits(1)) + Double::sameBits(-1); // all bits for even ones, else none
    const auto isInexact = (error > 0.0) | (error < 0.0);
    const auto isWithin = (error > 0.0) ^ (sum > 0.0);
    // 1 where the exact sum is farther from zero, else -1.
    const auto step = (isWithin + isWithin) + Double::sameBits(1);
    return F::fromDouble(Double::fromBits(bits + (step & isInexact & isEven)));
}

} // namespace TAL
