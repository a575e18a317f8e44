// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/OneEuroHandFilter.h"

#include "math/Aliases.h"
#include "tests/data_sources/hand/HandChain.h"
#include "tests/support/RecordedHand.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace velk::data_source
{
namespace
{

using Chain = HandChain<OneEuroHandFilter>;
using Id = OneEuroHandFilter::AttributeId;
using AttributeResult = OneEuroHandFilter::UpdateAttributeResult;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

// A rotation, or a position with a w of 0.
using Value = TAL::Quat<double>;

// The same filter in double precision, by the formulas of a textbook.
struct NaiveFilter
{
    double minCutoff, beta, dCutoff, rate;
    bool isRotation;
    std::optional<Value> last = {};
    std::optional<Value> speed = {};

    double gain(double cutoff) const { return 1.0 / (1.0 + rate / (2.0 * 3.14159265358979 * cutoff)); }

    Value blend(const Value& a, const Value& b, double t) const
    {
        const double cosine = isRotation ? a.Dot(b) : 1.0;
        const Value nearB = b * std::copysign(1.0, cosine);
        const double angle = std::acos(std::min(1.0, std::fabs(cosine)));
        if (angle < 1e-9) {
            return a * (1.0 - t) + nearB * t;
        }
        return (a * std::sin((1.0 - t) * angle) + nearB * std::sin(t * angle)) * (1.0 / std::sin(angle));
    }
    Value next(const Value& value)
    {
        if (!last) {
            return *(last = value);
        }
        const Value change = isRotation ? value * last->Inverted() : value + *last * -1.0;
        const Value now = isRotation ? blend(Value(), change, rate) : change * rate;
        speed = speed ? blend(*speed, now, gain(dCutoff)) : now;
        const double size =
            isRotation ? 2.0 * std::acos(std::min(1.0, std::fabs(speed->w))) : speed->Length();
        return *(last = blend(*last, value, gain(minCutoff + beta * size)));
    }
    double errorAfter(const Quatf& in, const Quatf& out)
    {
        return (next({in.x, in.y, in.z, in.w}) + Value(out.x, out.y, out.z, out.w) * -1.0).Length();
    }
    double errorAfter(const Vector3f& in, const Vector3f& out)
    {
        return errorAfter(Quatf(in.x, in.y, in.z, 0.0f), Quatf(out.x, out.y, out.z, 0.0f));
    }
};

// The settings in the order of their ids.
using Settings = std::array<float, 10>;
constexpr Settings kDefaults = {10.0f, 2.0f, 3.0f, 2.0f, 2.0f, 1.0f, 50.0f, 1.0f, 1.0f, 1.0f};

double worstError(const std::string& file, const Settings& s)
{
    Chain chain(24);
    for (std::size_t i = 0; i < s.size() && s != kDefaults; ++i) {
        chain.modifier->updateAttribute(static_cast<int>(i) + 1, s[i]);
    }
    NaiveFilter position{s[1], s[0], s[7], s[6], false};
    NaiveFilter rotation{s[3], s[2], s[8], s[6], true};
    std::vector<NaiveFilter> joints(24, {s[5], s[4], s[9], s[6], true});
    double worst = 0.0;
    for (const auto& row : tests::readRecording("motion/joints24/" + file + ".csv", "right")) {
        HandData in(24);
        in.rootPose = row.poses[0];
        for (std::size_t i = 0; i < joints.size(); ++i) {
            in.joints[i] = row.poses[i + 1].rotation * 2.0f; // to be normalised
        }
        const HandData& out = chain.feed(in);
        worst = std::max(worst, position.errorAfter(in.rootPose.translation, out.rootPose.translation));
        worst = std::max(worst, rotation.errorAfter(in.rootPose.rotation, out.rootPose.rotation));
        for (std::size_t i = 0; i < joints.size(); ++i) {
            worst = std::max(worst, joints[i].errorAfter(in.joints[i] * 0.5f, out.joints[i]));
        }
    }
    return worst;
}

TEST(OneEuroHandFilter, AgreesWithANaiveDoublePrecisionVersionOnRecordedMotion)
{
    EXPECT_LT(worstError("pinch_57hz", kDefaults), 1e-4);
    // As if in slow motion: beyond half a turn per second a rotation's speed wraps, and rounding decides how.
    const Settings others = {4.0f, 1.5f, -0.01f, 2.5f, 0.5f, 3.0f, 10.0f, 0.7f, 2.0f, 4.0f};
    EXPECT_LT(worstError("fist_54hz", others), 1e-5);
    EXPECT_LT(worstError("video_landmarks_30hz", others), 1e-5);
}

const std::vector<float> kSteps = {1.0f, 1.5f, 1.25f, 3.0f};

// What comes out for a root that goes through the steps along x, under one setting.
std::vector<float> stepsUnder(Id id, float value)
{
    Chain chain(1);
    chain.modifier->updateAttribute(static_cast<int>(id), value);
    std::vector<float> steps;
    steps.reserve(std::size(kSteps));
    for (const float x : kSteps) {
        steps.push_back(chain.feed(x));
    }
    return steps;
}

TEST(OneEuroHandFilter, FloorsCutoffsAndStopsOnWhatIsNotFinite)
{
    for (const Id cutoff : {Id::RootPositionMinCutoff, Id::RootPositionDCutoff}) {
        for (const float low : {0.0f, -1.0f, -kInfinity, kNaN}) {
            EXPECT_EQ(stepsUnder(cutoff, low), stepsUnder(cutoff, 1e-5f)) << low;
        }
        EXPECT_EQ(stepsUnder(cutoff, kInfinity), kSteps);
    }
    for (const float beta : {kInfinity, -kInfinity, kNaN}) {
        EXPECT_EQ(stepsUnder(Id::RootPositionBeta, beta), kSteps);
    }
    // No rate is a time step so long that next to nothing is smoothed; an infinite one holds the last result,
    // which at first is none.
    for (const float rate : {0.0f, -1.0f, kNaN}) {
        EXPECT_THAT(stepsUnder(Id::UpdateRate, rate), testing::Pointwise(testing::FloatNear(1e-4f), kSteps));
    }
    EXPECT_EQ(stepsUnder(Id::UpdateRate, kInfinity), std::vector<float>(kSteps.size()));
}

TEST(OneEuroHandFilter, TakesFloatsForItsTenIdsOnly)
{
    const auto filter = Chain(1).modifier;
    EXPECT_EQ(filter->updateAttribute(0, 1.0f), AttributeResult::UnknownAttribute);
    EXPECT_EQ(filter->updateAttribute(11, 1.0f), AttributeResult::UnknownAttribute);
    EXPECT_EQ(filter->updateAttribute(11, 1.0), AttributeResult::WrongValueType);
}

TEST(OneEuroHandFilter, GoesOnAfterAFrozenStretchAsIfItHadNotBeen)
{
    const HandData turned = handAt(0.0f, Quatf::FromRotationVector({0.0f, 0.5f, 0.0f}).Normalized());
    Chain frozen(1);
    Chain straight(1);
    frozen.feed(0.0f);
    straight.feed(0.0f);
    HandData broken = turned;
    broken.rootPose.translation = {1.0f, kNaN, 0.0f};
    broken.joints[0].z = kNaN;
    const HandData& shown = frozen.feed(broken);
    EXPECT_EQ(shown.rootPose.translation.x, 1.0f);                   // as it came
    EXPECT_TRUE(std::isnan(shown.joints[0].w));                      // all four, by the normalisation
    EXPECT_LT(shown.rootPose.rotation.y, 0.9f * turned.joints[0].y); // the other groups filter on
    EXPECT_EQ(frozen.modifier->updateData(), Result::Unchanged);     // no news, no step
    EXPECT_EQ(frozen.feed(turned).joints[0].y, straight.feed(turned).joints[0].y);
}

// An infinite component alone becomes NaN by the normalisation, the others 0.
TEST(OneEuroHandFilter, PassesARotationWithOneInfiniteComponentOnAndForgetsIt)
{
    for (const Quatf& broken : {Quatf(kInfinity, 0.0f, 0.0f, 0.0f), Quatf(0.0f, kInfinity, 0.0f, 0.0f),
                                Quatf(0.0f, 0.0f, kInfinity, 0.0f), Quatf(0.0f, 0.0f, 0.0f, kInfinity)}) {
        Chain chain(1);
        chain.feed(handAt(0.0f));
        chain.feed(handAt(0.0f, broken));
        EXPECT_EQ(chain.feed(handAt(0.0f)).rootPose.rotation.w, 1.0f);
    }
}

TEST(OneEuroHandFilter, HasNoJointsWithoutASourceAndFails)
{
    OneEuroHandFilter filter(nullptr, true);
    EXPECT_TRUE(filter.getData().joints.empty());
    EXPECT_EQ(filter.updateData(), Result::Failed);
    EXPECT_EQ(filter.applyModifications(Result::Updated), Result::Failed);
}

TEST(OneEuroHandFilter, SeedsWithTheIdentityWhenUpdatedBeforeTheFirstRecord)
{
    Chain chain(1);
    EXPECT_EQ(chain.modifier->updateData(), Result::Updated);
    EXPECT_LT(chain.feed(0.01f), 0.005f);
}

TEST(OneEuroHandFilter, ChainsOnAnotherAndOutlivesIt)
{
    Chain inner(1);
    Chain once(1);
    Chain twice(1);
    OneEuroHandFilter outer(inner.modifier, true);
    OneEuroHandFilter reader(inner.modifier, false);
    for (const float x : kSteps) {
        inner.source->setData(handAt(x));
        EXPECT_EQ(outer.updateData(), Result::Updated);
        EXPECT_EQ(outer.getData().rootPose.translation.x, twice.feed(once.feed(x)));
    }
    EXPECT_EQ(outer.updateData(), Result::Unchanged); // the news was told
    EXPECT_EQ(reader.updateData(), Result::Updated);  // does not ask for news
    inner.source.reset();
    EXPECT_EQ(outer.updateData(), Result::Unchanged); // the inner one lives, and has none
    inner.modifier.reset();
    EXPECT_EQ(outer.updateData(), Result::Failed);
}

} // namespace
} // namespace velk::data_source
