// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkDirectionQuantizer.h"
#include "velk_capi/detail/VelkDirectionRecognizer.h"

#include <velk/velk.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <utility>

namespace quantizer = velk::capi::direction_quantizer;
namespace recognizer = velk::capi::direction_recognizer;

namespace
{

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// The level of a value held against +Z.
int levelOf(talpVector3f value, float middleAngle, float farAngle,
            talpVector3f reference = {0.0f, 0.0f, 3.0f})
{
    const auto handle = quantizer::create(&reference, middleAngle, farAngle);
    int level = -7;
    EXPECT_EQ(quantizer::getValue(handle, 0, &level), -1); // before the first update
    EXPECT_EQ(quantizer::update(handle, &value), 0);
    EXPECT_EQ(quantizer::getValue(handle, 1, &level), -1);
    EXPECT_EQ(quantizer::getValue(handle, 0, &level), 0);
    return level;
}

} // namespace

TEST(Quantizer, TakesTheGreatestThresholdReached)
{
    using Generic = velk::detection::Quantizer<float, int, char>;
    Generic::Levels levels;
    const Generic::Thresholds thresholds = {{0, {{'n', -1.0f}, {'a', 2.0f}, {'b', 4.0f}}}, {1, {}}};
    for (const auto& [delta, level] :
         {std::pair{1.9f, 'n'}, {2.0f, 'a'}, {3.9f, 'a'}, {4.0f, 'b'}, {-9.0f, 'n'}, {kNaN, 'n'}}) {
        EXPECT_EQ(Generic::quantize({{0, delta}}, levels, thresholds), 1);
        EXPECT_EQ(levels[0], level) << delta;
    }
    EXPECT_EQ(Generic::quantize({}, levels, thresholds), -4);
    EXPECT_EQ(Generic::quantize({{2, 0.0f}}, levels, thresholds), -2);
    EXPECT_EQ(Generic::quantize({{1, 0.0f}}, levels, thresholds), -3);
}

TEST(Quantizer, ConvertSaysWhatFailedAndHandsOutItsLevelsAllTheSame)
{
    using Generic = velk::detection::Quantizer<float, int, char>;
    Generic::Levels* levels = nullptr;
    Generic withoutLists(
        {}, [](const float& v, Generic::Deltas& deltas) { return deltas.emplace(0, v), v > 0.0f; });
    EXPECT_EQ(Generic({}, {}).convert(1.0f, &levels), -2);
    EXPECT_EQ(withoutLists.convert(1.0f, nullptr), -3);
    EXPECT_EQ(withoutLists.convert(-1.0f, &levels), -4);
    EXPECT_EQ(levels, nullptr);
    EXPECT_EQ(withoutLists.convert(1.0f, &levels), -1);
    EXPECT_EQ(levels, &withoutLists.getKeyQuantValueMap());
}

TEST(DirectionQuantizer, LabelsByTheAngleToTheReference)
{
    const talpVector3f up = {0.0f, 1.0f, 0.0f}; // at 90 degrees
    const talpVector3f aslant = {0.0f, 1.0f, 1.0f};
    EXPECT_EQ(levelOf({0.0f, 0.0f, 5.0f}, 30.0f, 60.0f), VelkDirectionAlignment_Close);
    EXPECT_EQ(levelOf(aslant, 30.0f, 60.0f), VelkDirectionAlignment_Middle);
    EXPECT_EQ(levelOf(up, 30.0f, 90.0f), VelkDirectionAlignment_Far);
    EXPECT_EQ(levelOf(up, 90.0f, 91.0f), VelkDirectionAlignment_Middle);
    EXPECT_EQ(levelOf(up, 91.0f, 92.0f), VelkDirectionAlignment_Close);
    EXPECT_EQ(levelOf({0.0f, kNaN, 1.0f}, 30.0f, 60.0f), VelkDirectionAlignment_None);
    EXPECT_EQ(levelOf({1.0f, 0.0f, 4.0f}, 30.0f, 60.0f, {1.0f, 0.0f, 4.0f}),
              1);                                                        // a cosine that rounds above 1
    EXPECT_EQ(levelOf({}, 90.0f, 91.0f), VelkDirectionAlignment_Middle); // zero measures 90 degrees
    EXPECT_EQ(levelOf(up, 90.0f, 91.0f, {}), VelkDirectionAlignment_Middle);
    EXPECT_EQ(levelOf(aslant, 60.0f, 30.0f), VelkDirectionAlignment_Far); // out of order: no middle
}

TEST(Recognizer, TellsAMissingKeyFromALevelThatDiffers)
{
    velk::detection::Recognizer<int, char> generic;
    EXPECT_EQ(generic.update({{0, 'a'}, {1, 'a'}}, {{0, 'a'}}), -2);
    EXPECT_FALSE(generic.isActive());
    EXPECT_EQ(generic.update({{0, 'a'}}, {{0, 'b'}}), 1);
    EXPECT_FALSE(generic.isActive());
    EXPECT_EQ(generic.update({{0, 'a'}}, {{0, 'a'}}), 1);
    EXPECT_TRUE(generic.isActive());
}

TEST(DirectionRecognizer, IsActiveWhileAllWantedLevelsHold)
{
    const talpVector3f up = {0.0f, 1.0f, 0.0f};
    const auto source = quantizer::create(&up, 30.0f, 60.0f);
    const auto handle = recognizer::create();
    const auto activeFor = [&](std::initializer_list<velk_DetectionParameter> wanted, int32_t code) {
        const velk_DetectionParameterList list = {static_cast<int32_t>(wanted.size()), wanted.begin()};
        bool active = true;
        EXPECT_EQ(recognizer::update(handle, source, &list), code);
        EXPECT_EQ(recognizer::isActive(handle, &active), 0);
        return active;
    };
    EXPECT_FALSE(activeFor({{0, 1}}, -1)); // the quantizer has no levels yet
    EXPECT_TRUE(activeFor({}, 0));
    quantizer::update(source, &up);
    EXPECT_FALSE(activeFor({{0, 2}}, 0));
    EXPECT_FALSE(activeFor({{0, 1}, {0, 2}}, 0));
    EXPECT_FALSE(activeFor({{0, 2}, {1, 1}}, -1)); // the missing key is found behind the mismatch
    EXPECT_TRUE(activeFor({{0, 1}}, 0));
    EXPECT_EQ(recognizer::update(handle, source, nullptr), -1); // changes nothing
    EXPECT_TRUE(recognizer::internal::getRegistry().get(handle)->isActive());
}
