// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/SyntheticHand.h"

#include "velk_core/core/TimeProvider.h"

#include <utility>

namespace velk::data_source
{

namespace
{

using data::HandData;
using utility::ProgressCurve;

constexpr float kTransitionDuration = 0.1f; // seconds

ProgressCurve makeDefaultCurve()
{
    return ProgressCurve(kTransitionDuration, core::TimeProvider::defaultTimeProvider());
}

void updateProgressCurve(ProgressCurve& lockCurve, ProgressCurve& unlockCurve, bool isLocked,
                         bool skipAnimation)
{
    ProgressCurve& curve = isLocked ? lockCurve : unlockCurve;
    if (skipAnimation) {
        curve.end();
    } else {
        curve.start();
    }
}

} // namespace

SyntheticHand::Config::Config()
    : Config(makeDefaultCurve(), makeDefaultCurve(), makeDefaultCurve(), makeDefaultCurve())
{
}

SyntheticHand::Config::Config(ProgressCurve positionLock, ProgressCurve positionUnlock,
                              ProgressCurve rotationLock, ProgressCurve rotationUnlock)
    : wristPositionLockCurve(std::move(positionLock))
    , wristPositionUnlockCurve(std::move(positionUnlock))
    , wristRotationLockCurve(std::move(rotationLock))
    , wristRotationUnlockCurve(std::move(rotationUnlock))
{
}

SyntheticHand::SyntheticHand(std::shared_ptr<IDataSource<HandData>> source, bool updateSource, Config config)
    : DataModifier(std::move(source), updateSource)
    , config_(std::move(config))
{
}

SyntheticHand::UpdateDataResult SyntheticHand::applyModifications(UpdateDataResult sourceResult)
{
    if (!isNews(sourceResult)) {
        return UpdateDataResult::Unchanged;
    }
    const auto source = source_.lock();
    if (!source) {
        return UpdateDataResult::Failed;
    }
    data_ = source->getData();
    updateRootPose(data_.rootPose);
    return UpdateDataResult::Updated;
}

void SyntheticHand::updateRootPose(Posef& root)
{
    ProgressCurve& positionCurve =
        wristPositionLocked_ ? config_.wristPositionLockCurve : config_.wristPositionUnlockCurve;
    const float positionProgress = positionCurve.progress();
    const Vector3f position =
        root.translation.Lerp(lockedWristPose_.translation, wristPositionOverrideFactor_);
    root.translation = wristPoseFrom_.translation.Lerp(position, positionProgress);

    // The position's flag selects the rotation's curve too, so a rotation that is locked alone reads its
    // unlock curve, which that lock doesn't start.
    ProgressCurve& rotationCurve =
        wristPositionLocked_ ? config_.wristRotationLockCurve : config_.wristRotationUnlockCurve;
    const float rotationProgress = rotationCurve.progress();
    const Quatf rotation = root.rotation.Lerp(lockedWristPose_.rotation, wristRotationOverrideFactor_);
    root.rotation = wristPoseFrom_.rotation.Lerp(rotation, rotationProgress);

    lastWristPose_ = root;
}

void SyntheticHand::lockWristPose(const Posef& pose, float overrideFactor, WristLockMode mode,
                                  bool skipAnimation)
{
    if (isFlagSet(mode, WristLockMode::Position)) {
        lockWristPosition(pose.translation, overrideFactor, skipAnimation);
    }
    if (isFlagSet(mode, WristLockMode::Rotation)) {
        lockWristRotation(pose.rotation, overrideFactor, skipAnimation);
    }
}

void SyntheticHand::lockWristPosition(const Vector3f& position, float overrideFactor, bool skipAnimation)
{
    wristPositionOverrideFactor_ = overrideFactor;
    lockedWristPose_.translation = position;
    if (wristPositionLocked_) {
        return;
    }
    wristPositionLocked_ = true;
    syntheticWristLockChangedState(WristLockMode::Position, skipAnimation);
}

void SyntheticHand::lockWristRotation(const Quatf& rotation, float overrideFactor, bool skipAnimation)
{
    wristRotationOverrideFactor_ = overrideFactor;
    lockedWristPose_.rotation = rotation;
    if (wristRotationLocked_) {
        return;
    }
    wristRotationLocked_ = true;
    syntheticWristLockChangedState(WristLockMode::Rotation, skipAnimation);
}

void SyntheticHand::freeWrist(WristLockMode mode)
{
    if (isFlagSet(mode, WristLockMode::Position) && wristPositionLocked_) {
        wristPositionOverrideFactor_ = 0.0f;
        wristPositionLocked_ = false;
        syntheticWristLockChangedState(WristLockMode::Position, false);
    }
    if (isFlagSet(mode, WristLockMode::Rotation) && wristRotationLocked_) {
        wristRotationOverrideFactor_ = 0.0f;
        wristRotationLocked_ = false;
        syntheticWristLockChangedState(WristLockMode::Rotation, false);
    }
}

bool SyntheticHand::isFlagSet(WristLockMode mode, WristLockMode flag)
{
    return (static_cast<int32_t>(mode) & static_cast<int32_t>(flag)) != 0;
}

void SyntheticHand::syntheticWristLockChangedState(WristLockMode mode, bool skipAnimation)
{
    if (isFlagSet(mode, WristLockMode::Position)) {
        updateProgressCurve(config_.wristPositionLockCurve, config_.wristPositionUnlockCurve,
                            wristPositionLocked_, skipAnimation);
        wristPoseFrom_.translation = lastWristPose_.translation;
    }
    if (isFlagSet(mode, WristLockMode::Rotation)) {
        updateProgressCurve(config_.wristRotationLockCurve, config_.wristRotationUnlockCurve,
                            wristRotationLocked_, skipAnimation);
        wristPoseFrom_.rotation = lastWristPose_.rotation;
    }
}

} // namespace velk::data_source
