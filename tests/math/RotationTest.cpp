// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "math/LookRotation.h"
#include "tests/support/MathMatchers.h"

#include <cmath>
#include <vector>

namespace velk::test
{

static const Vector3f kProbe(0.3f, -1.7f, 2.2f);

/// About the axes and all diagonals, up to half a turn and beyond: every branch of the way from a
/// matrix to a quaternion is among them.
static std::vector<Quatf> rotations()
{
    std::vector<Quatf> all;
    for (int i = 0; i < 135; ++i) {
        const Vector3f about(static_cast<float>(i % 3 - 1), static_cast<float>(i / 3 % 3 - 1),
                             static_cast<float>(i / 9 % 3 - 1));
        const float angles[] = {0.1f, 1.5f, 3.0f, TAL::kPi, 4.0f};
        all.push_back(turn(about, angles[i / 27]));
    }
    return all;
}

TEST(Quatf, RotatesLikeRodriguesFormulaAndIsNeverNormalisedUnasked)
{
    for (const Quatf& q : rotations()) {
        const float angle = q.ToRotationVector().Length();
        const Vector3f about = q.ToRotationVector().Normalized();
        const Vector3f along = about * about.Dot(kProbe);
        const Vector3f across = (kProbe - along) * std::cos(angle) + about.Cross(kProbe) * std::sin(angle);
        EXPECT_TRUE(isNear((q * 2.0f).Rotate(kProbe), (along + across) * 4.0f, 4.0f * kRounding));
        EXPECT_NEAR(q.Angle(), angle, 1e-3f); // the shorter way, at most pi
    }
}

TEST(Quatf, InterpolationTakesTheShorterWayAndSlerpGoesOnBeyondItsEnds)
{
    const Quatf from = turn(Vector3f(1.0f, 1.0f, 0.0f), 0.4f);
    const Quatf step = turn(Vector3f(0.0f, 1.0f, 2.0f), 0.3f);
    for (const float sign : {1.0f, -1.0f}) {
        EXPECT_TRUE(
            isNear(from.Slerp(step * from * sign, 2.0f) * kProbe, step * step * from * kProbe, kRounding));
        const Quatf halfway = turn(Vector3f(0.0f, 1.0f, 2.0f), 0.15f);
        EXPECT_TRUE(isNear(Quatf().Lerp(step * sign, 0.5f) * kProbe, halfway * kProbe, kRounding));
    }
}

TEST(Quatf, LookRotationTurnsMinusZOntoForwardAndYTowardUp)
{
    using math::quaternion::lookRotationSafe;
    for (const Quatf& q : rotations()) {
        const Quatf look = Quatf::LookRotation(q * axis(2) * -3.0f, q * Vector3f(0.0f, 1.0f, -1.0f));
        EXPECT_TRUE(isNear(look * kProbe, q * kProbe, 1e-4f));
    }
    for (int i = 0; i < 6; ++i) { // a zero up and a parallel one
        const Vector3f forward = i % 2 == 0 ? axis(i / 2) : -axis(i / 2);
        EXPECT_TRUE(isNear(lookRotationSafe<float>(forward) * -axis(2), forward, kRounding));
        EXPECT_TRUE(isNear(lookRotationSafe<float>(forward, axis(i / 2)) * -axis(2), forward, kRounding));
    }
    EXPECT_TRUE(isNear(lookRotationSafe<float>(axis(1)) * axis(1), axis(0), kRounding));
}

TEST(Posef, ComposesAndInvertsAsMatricesDo)
{
    const Posef parent(turn(Vector3f(1.0f, -1.0f, 0.5f), 2.0f), Vector3f(1.0f, 2.0f, 3.0f));
    for (const Quatf& q : rotations()) {
        const Posef child(q, Vector3f(-0.5f, 0.0f, 4.0f));
        const Vector3f expected = parent.Apply(child.Apply(kProbe));
        Matrix4f m(parent);
        m *= Matrix4f(child);
        EXPECT_TRUE(isNear(m.Transform(kProbe), expected, kRounding));
        EXPECT_TRUE(isNear((parent * child).Apply(kProbe), expected, kRounding));
        EXPECT_TRUE(isNear((parent * child).Inverted().Apply(expected), kProbe, kRounding));
        EXPECT_TRUE(isNear(child.InverseTransform(parent.InverseTransform(expected)), kProbe, kRounding));
        EXPECT_TRUE(isNear(Quatf(Matrix4f(q)) * kProbe, q * kProbe, kRounding));
    }
}

// A matrix without any structure, where a transposed index or a lost sign shows.
TEST(Matrix4, InverseAndTransformOfAGeneralMatrix)
{
    const Matrix4f m(2.0f, -1.0f, 0.0f, 3.0f, 4.0f, 1.0f, 5.0f, -2.0f, 0.5f, 6.0f, -3.0f, 1.0f, 1.0f, 0.0f,
                     2.0f, 7.0f);
    EXPECT_NEAR(m.Determinant(), -668.5f, 1e-3f);
    EXPECT_TRUE(isNear(m.Transform(Vector3f(1.0f, 1.0f, 1.0f)), Vector3f(0.4f, 0.8f, 0.45f), kRounding));
    EXPECT_TRUE(isNear(m.Inverted().Transform(m.Transform(kProbe)), kProbe, kRounding));
}

} // namespace velk::test
