// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandData.h"
#include "velk_core/data_sources/DataModifier.h"
#include "velk_core/utility/ProgressCurve.h"

#include <cstdint>
#include <memory>

namespace velk::data_source
{

/// A hand whose wrist can be held. Position and rotation are locked and freed each on its own; either change
/// eases in from the wrist pose that was shown last, so that none jumps. Joint rotations pass untouched.
class SyntheticHand : public DataModifier<data::HandData>
{
public:
    /// A set of flags.
    enum class WristLockMode : int32_t
    {
        Position = 1,
        Rotation = 2,
        PositionAndRotation = 3
    };

    /// How each change eases: by default all alike, on the library's clock.
    struct Config
    {
        Config();
        Config(utility::ProgressCurve positionLock, utility::ProgressCurve positionUnlock,
               utility::ProgressCurve rotationLock, utility::ProgressCurve rotationUnlock);

        utility::ProgressCurve wristPositionLockCurve;
        utility::ProgressCurve wristPositionUnlockCurve;
        utility::ProgressCurve wristRotationLockCurve;
        utility::ProgressCurve wristRotationUnlockCurve;
    };

    SyntheticHand(std::shared_ptr<IDataSource<data::HandData>> source, bool updateSource, Config config);

    /// A frame without news leaves the record as it is, also in mid-transition.
    UpdateDataResult applyModifications(UpdateDataResult sourceResult) override;

    /// Locks what `mode` names. The factor goes from 0, the source's pose, to 1, the locked one in full. A
    /// call while locked moves the target and the factor at once and restarts nothing. `skipAnimation` makes
    /// a new lock take effect in the next frame.
    void lockWristPose(const Posef& pose, float overrideFactor, WristLockMode mode, bool skipAnimation);
    void lockWristPosition(const Vector3f& position, float overrideFactor, bool skipAnimation);
    void lockWristRotation(const Quatf& rotation, float overrideFactor, bool skipAnimation);

    /// Frees what `mode` names, always eased.
    void freeWrist(WristLockMode mode);

    /// True when the two share a bit.
    static bool isFlagSet(WristLockMode mode, WristLockMode flag);

private:
    void updateRootPose(Posef& root);
    void syntheticWristLockChangedState(WristLockMode mode, bool skipAnimation);

    float wristPositionOverrideFactor_ = 0.0f;
    float wristRotationOverrideFactor_ = 0.0f;
    Posef lockedWristPose_;
    bool wristPositionLocked_ = false;
    bool wristRotationLocked_ = false;
    Posef wristPoseFrom_; // the start of the present transition
    Posef lastWristPose_; // as shown in the last frame
    Config config_;
};

} // namespace velk::data_source
