// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/math/AngleSweep.h"
#include "tests/support/MathMatchers.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace velk::test
{

/// The C runtime's answer in double, in the order of kAngleFunctions.
static double inDouble(std::size_t function, double a, double b)
{
    const std::array<double, 4> answers = {std::sin(a), std::cos(a), std::acos(a), std::atan2(a, b)};
    return answers[function];
}

// All pairs of zeros, ends of ranges, infinities and NaN, of both signs.
TEST(Angles, SpecialArgumentsGetTheRuntimesAnswers)
{
    const float infinity = std::numeric_limits<float>::infinity();
    const float largest = std::numeric_limits<float>::max();
    std::vector<float> arguments = {
        0.0f, std::numeric_limits<float>::denorm_min(), 1.0f, 1.5f, largest, infinity, kNaN};
    for (std::size_t i = arguments.size(); i-- > 0;) {
        arguments.push_back(-arguments[i]);
    }
    for (const float a : arguments) {
        for (const float b : arguments) {
            for (std::size_t i = 0; i < kAngleFunctions.size(); ++i) {
                const float answer = kAngleFunctions[i].call(a, b);
                const auto expected = static_cast<float>(inDouble(i, a, b));
                const bool isSame =
                    std::bit_cast<std::uint32_t>(answer) == std::bit_cast<std::uint32_t>(expected);
                EXPECT_TRUE(isSame || (std::isnan(answer) && std::isnan(expected)))
                    << kAngleFunctions[i].name << " of " << a << ", " << b << " is " << answer;
            }
        }
    }
}

// Over floats of all sizes. The rounding alone makes up for half a unit in the last place.
TEST(Angles, ErrByLittleMoreThanTheRounding)
{
    for (std::size_t i = 0; i < kAngleFunctions.size(); ++i) {
        double worst = 0.0;
        for (std::uint64_t bits = 0; bits < std::uint64_t{1} << 32U; bits += 40009) {
            const auto a = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
            const float b = partner(static_cast<std::uint32_t>(bits));
            const double exact = inDouble(i, a, b);
            if (std::isfinite(exact) && exact != 0.0) {
                const double unit = std::ldexp(1.0, std::max(std::ilogb(exact), -126) - 23);
                worst = std::max(worst, std::fabs(kAngleFunctions[i].call(a, b) - exact) / unit);
            }
        }
        EXPECT_LT(worst, 0.501) << kAngleFunctions[i].name;
    }
}

// The same with every compiler and on every processor and system.
TEST(Angles, AnswersAreTheKeptBits)
{
    const std::array<std::uint64_t, 4> kept = {0xd723f1e1a3a4968b, 0x258c9734b4ec69f7, 0x0aac869d1fe66ccf,
                                               0x32f60f67f8c942c0};
    for (std::size_t i = 0; i < kept.size(); ++i) {
        EXPECT_EQ(hashOfAnswers(kAngleFunctions[i].call, 40009), kept[i]) << kAngleFunctions[i].name;
    }
}

} // namespace velk::test
