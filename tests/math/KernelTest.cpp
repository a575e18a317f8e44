// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "math/Functions.h"
#include "math/Math.h"
#include "tests/support/MathMatchers.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

namespace velk::test
{

TEST(Functions, ClampAndArcCosineAtAndBeyondTheirEnds)
{
    EXPECT_EQ(clamp<float>(kNaN, 0.0f, 1.0f), 1.0f);
    EXPECT_EQ(clamp<float>(kNaN, 2.0f, 1.0f), 2.0f);
    EXPECT_EQ(TAL::Acos(1.5f), 0.0f);
    EXPECT_EQ(std::bit_cast<uint32_t>(TAL::Acos(-1.5f)), 0x40490FDBU);
    EXPECT_TRUE(std::isnan(TAL::Acos(kNaN)));
}

// As the C runtime has it, over bit patterns of every kind: subnormals, infinities and NaN among them. In
// every other round c is near the product, where cancellation happens.
TEST(Functions, FusedMultiplyAddIsRoundedOnce)
{
    // The sums pass close by the middle of two floats and of two doubles: rounding twice errs here.
    for (int i = 0; i < 1024; ++i) {
        const float a = std::ldexp(1.0f + static_cast<float>(i) * 0x1p-23f, -24);
        const float b = 1.0f - static_cast<float>(i) * 0x1p-23f;
        const float c = 1.0f + 0x1p-23f;
        EXPECT_EQ(TAL::FusedMultiplyAdd(a, b, c), std::fma(a, b, c)) << i;
    }
    std::mt19937 random(1);
    const auto any = [&random] { return std::bit_cast<float>(static_cast<uint32_t>(random())); };
    for (int i = 0; i < 300000; ++i) {
        const float a = any();
        const float b = any();
        const float c = i % 2 == 0 ? any() : -std::ldexp(a * b, static_cast<int>(random() % 60) - 30);
        const float expected = std::fma(a, b, c);
        const float actual = TAL::FusedMultiplyAdd(a, b, c);
        if (!std::isnan(expected) || !std::isnan(actual)) {
            ASSERT_EQ(std::bit_cast<uint32_t>(actual), std::bit_cast<uint32_t>(expected));
        }
    }
}

TEST(Vector3, DivisionMultipliesByTheReciprocalAndNormalizedHasNoEpsilon)
{
    Vector3f v = axis(0) * 3.0f;
    v /= 7.0f;
    EXPECT_TRUE(isNear(v, axis(0) * (3.0f * (1.0f / 7.0f)))); // one bit from 3 / 7
    EXPECT_TRUE(isNear(Vector3f(0.0f, -1e-15f, 0.0f).Normalized(), -axis(1), kRounding));
    // The square underflows, so the length is exactly 0 and so is the multiplier.
    EXPECT_TRUE(isNear(Vector3f(1e-30f, 0.0f, 0.0f).Normalized(), Vector3f::ZERO));
    EXPECT_TRUE(std::isnan(Vector3f(kNaN, 1.0f, 1.0f).Normalized().y));
}

TEST(Vector3, EqualityIsInclusiveOnEachAxisAndNeverHoldsForNaN)
{
    const Vector3f a(1.0f, 2.0f, 3.0f);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(a.IsEqual(a + axis(i) * 0.25f, 0.25f) && a.IsEqual(a - axis(i) * 0.25f, 0.25f));
        EXPECT_FALSE(a.IsEqual(a + axis(i) * 0.2501f, 0.25f) || a.IsEqual(a - axis(i) * kNaN, 0.25f));
    }
}

TEST(Vector3, MinAndMaxYieldTheSecondOperandOnTiesAndNaN)
{
    const Vector3f a(1.0f, kNaN, -0.0f);
    const Vector3f b(kNaN, 2.0f, 0.0f);
    for (const Vector3f& v : {Vector3f::Min(a, b), Vector3f::Max(a, b)}) {
        EXPECT_TRUE(std::isnan(v.x) && v.y == 2.0f && !std::signbit(v.z));
    }
}

} // namespace velk::test
