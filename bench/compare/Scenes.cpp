// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Scenes.h"

#include "host/Files.h"
#include "host/recording/PoseColumns.h"
#include "tests/support/RecordedHand.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <random>

namespace velk::compare
{

namespace
{

constexpr int kFrames = 4096;
constexpr int kDwell = 200;                // frames from one panel to the next
constexpr float kFrameTime = 1.0f / 90.0f; // seconds
constexpr float kPitch = 0.034f;           // metres from key to key
constexpr float kGolden = 2.399963f;
const int kThumbTip = VelkHandJointId_ThumbTip;

Vector3f toCore(const talpVector3f& v)
{
    return {v.x, v.y, v.z};
}

/// Turns +z to `direction`.
Quatf facing(const Vector3f& direction)
{
    const Vector3f to = direction.Normalized();
    return 1.0f + to.z < 1e-6f ? Quatf(1.0f, 0.0f, 0.0f, 0.0f)
                               : Quatf(-to.y, to.x, 0.0f, 1.0f + to.z).Normalized();
}

/// Panels evenly around `centre`.
std::vector<talpPosef> around(const Vector3f& centre, int count, std::mt19937& random)
{
    std::uniform_real_distribution<float> distance(1.0f, 4.0f);
    std::vector<talpPosef> poses;
    for (int i = 0; i < count; ++i) {
        const float z = 1.0f - 2.0f * (static_cast<float>(i) + 0.5f) / static_cast<float>(count);
        const float angle = kGolden * static_cast<float>(i);
        const float across = std::sqrt(1.0f - z * z);
        const Vector3f way =
            Vector3f(across * std::cos(angle), across * std::sin(angle), z) * distance(random);
        poses.push_back(toC({facing(way * -1.0f), centre + way}));
    }
    return poses;
}

talpVector2f panelSize(int count)
{
    const float half = std::min(0.3f, 1.5f / std::sqrt(static_cast<float>(count)));
    return {half, half};
}

std::vector<tests::RecordedHand> handRows(const std::string& file, const std::string& hand)
{
    return tests::readRecording("motion/joints24/" + file + ".csv", hand);
}

/// The paths of the five fingertips in the recording's space.
std::vector<std::vector<Vector3f>> fingertips(const std::vector<tests::RecordedHand>& rows)
{
    std::vector<std::vector<Vector3f>> tips(5);
    for (const tests::RecordedHand& row : rows) {
        for (std::size_t i = 0; i < tips.size(); ++i) {
            const Vector3f inHand = row.poses[1 + static_cast<std::size_t>(kThumbTip) + i].translation;
            tips[i].push_back(row.poses[0].Transform(inHand));
        }
    }
    return tips;
}

/// There and back, so that no frame is a jump.
Path thereAndBack(Path path)
{
    const std::size_t count = path.size();
    for (std::size_t i = count; i-- > 0;) {
        path.push_back(path[i]);
    }
    return path;
}

const Quatf kFacingUp = Quatf(-1.0f, 0.0f, 0.0f, 1.0f).Normalized();

} // namespace

const std::array<talpVector3f, 16> Scene::kSway = [] {
    std::array<talpVector3f, 16> ways{};
    for (std::size_t i = 0; i < ways.size(); ++i) {
        const float phase = 6.2831853f * static_cast<float>(i) / static_cast<float>(ways.size());
        ways[i] = {0.002f * std::sin(phase), 0.002f * std::cos(phase), 0.001f * std::sin(phase)};
    }
    return ways;
}();

talpPosef toC(const Posef& pose)
{
    const auto& [q, p] = pose;
    return {{q.x, q.y, q.z, q.w}, {p.x, p.y, p.z}};
}

Scene panels(int count, std::size_t movesEvery)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> tremor(-1.0f, 1.0f);
    Scene scene{around({}, count, random), panelSize(std::max(count, 1)), movesEvery, {}, {}};
    Path& path = scene.pointers.emplace_back();
    for (int k = 0; k < kFrames; ++k) {
        Vector3f target(0.0f, 0.0f, -1.0f);
        if (count > 0) {
            const auto at = [&](int dwell) {
                return toCore(scene.poses[static_cast<std::size_t>(dwell % count)].position);
            };
            const float part = static_cast<float>(k % kDwell) / static_cast<float>(kDwell);
            const float swept = std::max(0.0f, 4.0f * (part - 0.75f));
            target = at(k / kDwell) + (at(k / kDwell + 1) - at(k / kDwell)) * swept;
        }
        const auto shake = [&](float by) {
            return Vector3f(by * tremor(random), by * tremor(random), by * tremor(random));
        };
        // A ray points along -z.
        path.push_back(toC({facing((target + shake(0.005f)) * -1.0f), shake(0.001f)}));
    }
    return scene;
}

Scene keys(int count, std::size_t movesEvery, bool presses)
{
    Scene scene{{}, {0.012f, 0.012f}, movesEvery, {}, {}};
    for (int i = 0; i < count; ++i) {
        const int board = i / 200;
        const int key = i % 200;
        const float x = 0.8f * static_cast<float>(board % 10) + kPitch * static_cast<float>(key % 20);
        const float y = 0.5f * static_cast<float>(board / 10) + kPitch * static_cast<float>(key / 20);
        scene.poses.push_back(toC({{}, {x, y, 0.0f}}));
    }
    const int columns = std::clamp(count, 1, 20);
    const int rows = std::clamp((count + 19) / 20, 1, 10);
    Path& path = scene.pointers.emplace_back();
    for (int k = 0; k < kFrames; ++k) {
        const float t = kFrameTime * static_cast<float>(k);
        float x = static_cast<float>(columns - 1) * kPitch * (0.5f + 0.5f * std::sin(1.3f * t));
        float y = static_cast<float>(rows - 1) * kPitch * (0.5f + 0.5f * std::sin(0.9f * t));
        float z = 0.026f + 0.020f * std::sin(5.0f * t);
        if (presses) {
            const int key = static_cast<int>(8.0f * t / 6.2831853f);
            x = static_cast<float>(7 * key % columns) * kPitch;
            y = static_cast<float>(3 * key % rows) * kPitch;
            z = 0.004f + 0.016f * std::sin(8.0f * t);
        }
        path.push_back(toC({{}, {x, y, z}}));
    }
    return scene;
}

Scene keyboard()
{
    constexpr std::array<int, 6> kRows{16, 21, 21, 16, 17, 13};
    constexpr float kKeyPitch = 0.019f;
    Scene scene{{}, {0.0085f, 0.0085f}, 0, {}, {}};
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        for (int column = 0; column < kRows[row]; ++column) {
            const float x = kKeyPitch * (static_cast<float>(column) - 10.0f);
            const float z = kKeyPitch * (static_cast<float>(row) - 5.5f);
            scene.poses.push_back(toC({kFacingUp, {x, 0.19f, z}}));
        }
    }
    for (const std::vector<Vector3f>& tip : fingertips(handRows("tap_110hz", "right"))) {
        Path right;
        Path left;
        for (std::size_t k = 0; k < tip.size(); ++k) {
            const Vector3f other = tip[(k + tip.size() / 2) % tip.size()];
            right.push_back(toC({{}, tip[k] + Vector3f(0.08f, 0.0f, 0.0f)}));
            left.push_back(toC({{}, Vector3f(-0.08f - other.x, other.y, other.z)}));
        }
        scene.pointers.push_back(thereAndBack(right));
        scene.pointers.push_back(thereAndBack(left));
    }
    return scene;
}

Scene controllers()
{
    const std::string file = "controllers/draw.csv";
    Scene scene{{}, panelSize(300), 0, {}, {}};
    Vector3f middle;
    for (const char* side : {"left", "right"}) {
        std::ifstream in = velk_tools::openToRead(VELK_DATA_DIR "/" + file);
        velk_tools::CsvReader table(file, in);
        const velk_tools::PoseColumns columns(table, side);
        Path path;
        while (table.next()) {
            if (!columns.isEmpty(table)) {
                const auto [q, p] = columns.read(table);
                path.push_back({{q.x, q.y, q.z, q.w}, {p.x, p.y, p.z}});
            }
        }
        middle = middle + toCore(path.front().position) * 0.5f;
        scene.pointers.push_back(thereAndBack(path));
    }
    std::mt19937 random(1);
    scene.poses = around(middle, 300, random);
    return scene;
}

Scene heldBoard()
{
    constexpr int kColumns = 10;
    const auto left = handRows("two_hands_49hz", "left");
    const auto tips = fingertips(handRows("two_hands_49hz", "right"));
    const std::size_t frames = std::min(left.size(), tips[1].size());
    Scene scene{{}, {0.012f, 0.012f}, 1, {}, {}};
    const Posef hand = left.front().poses[0];
    const Vector3f middle = tips[1].front() - Vector3f(0.0f, 0.015f, 0.0f);
    for (int i = 0; i < 40; ++i) {
        const Vector3f way(kPitch * (static_cast<float>(i % kColumns) - 4.5f), 0.0f,
                           kPitch * (static_cast<float>(i / kColumns) - 1.5f));
        scene.poses.push_back(toC({kFacingUp, middle + way}));
    }
    for (std::size_t k = 0; k < frames; ++k) {
        const Posef moved = left[k].poses[0];
        Path& poses = scene.board.emplace_back();
        for (const talpPosef& pose : scene.poses) {
            const Quatf turn(pose.orientation.x, pose.orientation.y, pose.orientation.z, pose.orientation.w);
            const Posef inHand(hand.rotation.Inverted() * turn, hand.InverseTransform(toCore(pose.position)));
            poses.push_back(
                toC({(moved.rotation * inHand.rotation).Normalized(), moved.Transform(inHand.translation)}));
        }
    }
    for (std::size_t k = frames; k-- > 0;) {
        scene.board.push_back(scene.board[k]);
    }
    for (const std::vector<Vector3f>& tip : tips) {
        Path path;
        for (std::size_t k = 0; k < frames; ++k) {
            path.push_back(toC({{}, tip[k]}));
        }
        scene.pointers.push_back(thereAndBack(path));
    }
    return scene;
}

Hands recordedHands()
{
    Hands hands;
    for (const tests::RecordedHand& row : handRows("grab_115hz", "right")) {
        velk_HandData& record = hands.records.emplace_back();
        velk_HandPinchData& pinch = hands.pinches.emplace_back();
        velk_HandPalmData& palm = hands.palms.emplace_back();
        record.rootPose = palm.rootPose = toC(row.poses[0]);
        palm.handedness = 1;
        for (std::size_t i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
            palm.jointPoses[i] = toC(row.poses[1 + i]);
            record.joints[i] = palm.jointPoses[i].orientation;
            pinch.jointPositions[i] = palm.jointPoses[i].position;
        }
    }
    return hands;
}

} // namespace velk::compare
