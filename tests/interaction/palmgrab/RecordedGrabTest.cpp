// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "examples/openxr_joints.h"
#include "math/Aliases.h"
#include "tests/support/RecordedHand.h"
#include "velk_core/interaction/palmgrab/FingerPalmGrabAPI.h"
#include "velk_core/interaction/pinchgrab/FingerPinchGrabAPI.h"

#include <velk/velk.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <string>

using namespace velk::interaction::grab;
using velk::Posef;
using velk::Vector3f;
using velk::tests::readRecording;
using velk::tests::RecordedHand;

namespace
{

struct Grips
{
    FingerPinchGrabAPI pinch;
    FingerPalmGrabAPI palm;

    void update(const RecordedHand& row, bool goodView)
    {
        constexpr Vector3f view(0.0f, 0.0f, 1.0f);
        velk::data::HandPalmData poses;
        velk::data::HandPinchData positions;
        for (std::size_t i = 0; i < poses.jointPoses.size(); ++i) {
            poses.jointPoses[i] = row.poses.at(i + 1);
            positions.jointPositions[i] = poses.jointPoses[i].translation;
        }
        pinch.update(&positions, goodView ? &view : nullptr, &view);
        palm.Update(&poses);
    }
};

/// Every change in a recording: "pinch1+0.659 " where the index finger began to pinch, "palm4-1.519 " where
/// the little finger's grip ended.
std::string traceOf(const std::string& file, const char* hand, bool goodView)
{
    Grips grips;
    std::string trace;
    for (const RecordedHand& row : readRecording("motion/joints24/" + file + ".csv", hand)) {
        grips.update(row, goodView);
        for (int i = 0; i < 10; ++i) {
            const auto finger = static_cast<HandFinger>(i / 2);
            const bool state = i % 2 == 0;
            const std::string change = std::to_string(i / 2) + (state ? "+" : "-") + row.label + " ";
            trace += grips.pinch.getFingerIsGrabbingChanged(finger, state) ? "pinch" + change : "";
            trace += grips.palm.GetFingerIsGrabbingChanged(finger, state) ? "palm" + change : "";
        }
    }
    return trace;
}

} // namespace

TEST(RecordedGrab, FingersGripWhenTheyTouchedOrClosed)
{
    EXPECT_EQ(traceOf("pinch_57hz", "right", false),
              "pinch0+0.606973 pinch1+0.659082 pinch0-1.847156 pinch1-1.847156 ");
    EXPECT_EQ(traceOf("pinch_57hz", "right", true),
              "pinch0+0.606973 pinch1+0.693765 pinch1-1.673831 pinch0-1.847156 ");
    EXPECT_EQ(traceOf("pinch_115hz", "right", false),
              "pinch0+0.589399 pinch1+0.919034 pinch0-1.716944 pinch1-1.786357 ");
    EXPECT_EQ(traceOf("pinch_115hz", "right", true), "pinch0+0.589399 pinch0-1.716944 ");
    EXPECT_EQ(traceOf("grab_115hz", "right", true),
              "pinch0+0.45974 pinch0-1.109986 pinch0+2.176763 pinch1+2.679837 pinch0-2.99189 "
              "pinch1-2.99189 ");
    EXPECT_EQ(traceOf("fist_54hz", "right", false),
              "palm1+0.235 palm2+0.235 palm3+0.235 palm4+0.235 palm1-1.518501 palm2-1.518501 "
              "palm3-1.518501 palm4-1.518501 ");
    EXPECT_EQ(traceOf("two_hands_49hz", "left", false),
              "palm4+0.190703 palm3+0.234103 palm2+0.26032 palm1+0.303422 palm1-0.979923 palm2-0.979923 "
              "palm3-0.979923 palm4-0.979923 ");
    EXPECT_EQ(traceOf("point_110hz", "right", false), "palm4+0.289303 palm3+0.41574 palm2+0.424862 ");
    EXPECT_EQ(traceOf("video_landmarks_30hz", "right", true),
              "palm0+0.433333 palm0-1.1 palm2+3.5 palm2-4.233333 pinch0+8.4 pinch1+8.466667 "
              "palm4+8.466667 palm2+8.533333 palm3+8.533333 palm1+8.566667 palm0+8.7 palm0-9.333333 "
              "pinch0-9.366667 pinch1-9.366667 palm1-9.4 palm2-9.4 palm3-9.4 palm4-9.4 pinch0+10.3 "
              "pinch0-11.133333 pinch4+15.1 pinch4-15.866667 pinch3+17.066667 pinch4+17.133333 "
              "pinch3-17.166667 pinch4-17.366667 pinch0+20.2 pinch1+20.2 palm4+20.2 palm2+20.233333 "
              "palm3+20.233333 palm1+20.266667 ");
}

TEST(RecordedGrab, CapturedPosesReadAsTheyWereHeld)
{
    // Fingers 1 to 4 that pinch, then those that grip.
    const std::map<std::string, std::string> held = {
        {"flat", "|"},   {"pinch", "1|234"}, {"asl_f", "1|"},    {"asl_9", "1|"},   {"asl_8", "2|"},
        {"asl_7", "3|"}, {"asl_6", "4|"},    {"asl_s", "|1234"}, {"asl_1", "|234"}, {"asl_5", "|"}};
    for (const char* hand : {"left", "right"}) {
        for (const RecordedHand& row : readRecording("poses/joints24/poses_mm.csv", hand)) {
            Grips grips;
            grips.update(row, true);
            std::string pinches;
            std::string closes;
            for (const auto i : {1, 2, 3, 4}) {
                const auto finger = static_cast<HandFinger>(i);
                pinches += grips.pinch.getFingerIsGrabbing(finger) ? std::to_string(i) : "";
                closes += grips.palm.GetFingerIsGrabbing(finger) ? std::to_string(i) : "";
            }
            if (held.contains(row.label)) {
                EXPECT_EQ(pinches + "|" + closes, held.at(row.label)) << hand << " " << row.label;
            }
        }
    }
}

// The captures have the joints of OpenXR but its palm, in the same order and frames.
TEST(OpenXrJoints, CapturesComeOutAsTheirRecords)
{
    for (const char* hand : {"left", "right"}) {
        const auto sources = readRecording("poses/source/poses_rot.csv", hand);
        const auto records = readRecording("poses/joints24/poses_rot.csv", hand);
        for (std::size_t row = 0; row < sources.size(); ++row) {
            talpPosef joints[OPENXR_JOINT_COUNT] = {};
            for (std::size_t i = 0; i < sources[row].poses.size(); ++i) {
                const auto& [q, p] = sources[row].poses[i];
                joints[i + 1] = {{q.x, q.y, q.z, q.w}, {p.x, p.y, p.z}};
            }
            velk_HandPalmData palm = {};
            openxr_toPalmData(joints, hand == std::string("right"), &palm);
            for (std::size_t i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
                const auto& [q, p] = palm.jointPoses[i];
                const Posef& record = records[row].poses[i + 1]; // rounded to 0.1 mm
                EXPECT_LT(record.translation.Distance({p.x, p.y, p.z}), 1e-4f) << records[row].label << i;
                EXPECT_GT(std::fabs(record.rotation.Dot({q.x, q.y, q.z, q.w})), 0.99999f) << i;
            }
        }
    }
}
