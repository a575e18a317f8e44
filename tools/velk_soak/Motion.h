// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Account.h"
#include "host/recording/RecordingReader.h"

#include <array>
#include <string>
#include <vector>

namespace velk_soak
{

/// A recorded right hand as the library's records want it, row by row, again and again.
class Motion
{
public:
    struct Row
    {
        velk_HandData hand;
        velk_HandPinchData pinch;
        velk_HandPalmData palm;
        std::array<talpPosef, 4> tips; // in the recording's space
    };

    explicit Motion(const std::string& file)
    {
        const std::string path = VELK_DATA_DIR "/motion/joints24/" + file;
        for (const velk_tools::Frame& frame : velk_tools::loadRecording(path, "").frames) {
            if (const auto* hand = frame.hand(velk_tools::Side::Right)) {
                rows_.push_back(makeRow(*hand));
            }
        }
    }

    const Row& now() const { return rows_[static_cast<std::size_t>(frameNumber) % rows_.size()]; }

private:
    static Row makeRow(const velk_tools::HandSample& hand)
    {
        Row row{};
        row.hand.rootPose = row.palm.rootPose = hand.root;
        row.palm.handedness = hand.handedness;
        for (std::size_t i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
            row.palm.jointPoses[i] = hand.joints[i];
            row.hand.joints[i] = hand.joints[i].orientation;
            row.pinch.jointPositions[i] = hand.joints[i].position;
        }
        for (std::size_t i = 0; i < row.tips.size(); ++i) {
            row.tips[i] = hand.joint(VelkHandJointId_IndexTip + i);
        }
        return row;
    }

    std::vector<Row> rows_;
};

} // namespace velk_soak
