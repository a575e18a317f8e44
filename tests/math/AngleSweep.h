// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Angles.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace velk::test
{

/// Of two floats; the second is unused by functions of one.
using AngleFunction = float (*)(float, float);

struct NamedAngleFunction
{
    const char* name;
    AngleFunction call;
};

inline constexpr std::array<NamedAngleFunction, 4> kAngleFunctions = {
    {{"sin", [](float a, float) { return TAL::angles::SinCos(a).sine; }},
     {"cos", [](float a, float) { return TAL::angles::SinCos(a).cosine; }},
     {"acos", [](float x, float) { return TAL::angles::ArcCos(x); }},
     {"atan2", [](float y, float x) { return TAL::angles::ArcTan2(y, x); }}}};

/// A float to go with that of the given bits: any other one in every second case, and else one of about the
/// same size or of opposite sign.
inline float partner(std::uint32_t bits)
{
    const std::uint32_t scrambled = bits * 0x9E3779B1U;
    const std::uint32_t near = bits ^ (scrambled & 0x80FFFFFFU);
    return std::bit_cast<float>((scrambled & 0x40000000U) != 0U ? near : scrambled);
}

/// One number for the bits of the answers to every `step`th float, zeros, subnormals, infinities and NaN
/// included (G. Fowler, L. C. Noll, K.-P. Vo, FNV-1a, of whole words).
inline std::uint64_t hashOfAnswers(AngleFunction function, std::uint32_t step)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (std::uint64_t i = 0; i < std::uint64_t{1} << 32U; i += step) {
        const auto bits = static_cast<std::uint32_t>(i);
        const float answer = function(std::bit_cast<float>(bits), partner(bits));
        // The sign and the payload of a NaN are the processor's.
        const std::uint32_t word = std::isnan(answer) ? 0x7FC00000U : std::bit_cast<std::uint32_t>(answer);
        hash = (hash ^ word) * 0x100000001B3U;
    }
    return hash;
}

} // namespace velk::test
