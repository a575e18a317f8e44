// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/FingertipActor.h"

#include <algorithm>

#include "host/scene/PatchGeometry.h"

namespace velk_tools
{

namespace
{

/// Seconds without the hand after which it counts as lost, also when no frame stands in between.
constexpr double kLongestStep = 0.1;
/// Metres beyond a surface's hover.
constexpr float kWellInFront = 0.1f;

} // namespace

FingertipActor::FingertipActor(const Fingertip& fingertip)
    : fingertip_(fingertip)
    , interactor_(velk_PokeInteractor_Create())
    , tipHand_(velk_DataSource_Create(VelkDataSourceType_External))
    , shownTip_(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, tipHand_))
    , limiter_(velk_HandPokeLimiterVisual_Create(tipHand_, interactor_, shownTip_))
{
}

void FingertipActor::update(const Frame& frame, const Scene& scene, const PokeTargets& targets)
{
    follow(frame, scene, targets);
    VelkInteractorState state = VelkInteractorState_Normal;
    velk_Interactor_GetState(interactor_, &state);
    releasing_ = held_ && state != VelkInteractorState_Select;
    held_ = state == VelkInteractorState_Select || (held_ && !isInFront(scene, targets));
}

/// Of what it hovers, if anything: then no press or recoil goes on.
bool FingertipActor::isInFront(const Scene& scene, const PokeTargets& targets) const
{
    const int target = targets.indexOf(velk_Interactor_GetInteractable(interactor_));
    if (target < 0) {
        return true;
    }
    const Pose& surface = scene.patches[static_cast<std::size_t>(target)].pose;
    return inverseTransform(surface, poked_).z > kTipRadius + kClearOfRecoil;
}

void FingertipActor::follow(const Frame& frame, const Scene& scene, const PokeTargets& targets)
{
    const HandSample* hand = frame.hand(fingertip_.side);
    const bool wasTracked = tracked_;
    tracked_ = hand != nullptr;
    if (wasTracked && (!tracked_ || frame.time - lastSeen_ > kLongestStep)) {
        letGo(scene, targets);
    }
    if (!tracked_) {
        return;
    }
    lastSeen_ = frame.time;
    tip_ = hand->joint(fingertip_.joint).position;
    // An update presses what the way since the last one comes through. Where tracking begins, or begins anew,
    // that way was never gone, so the finger is awaited where it leads through nothing.
    arrived_ =
        arrived_ || std::none_of(scene.patches.begin(), scene.patches.end(),
                                 [this](const Patch& patch) { return comesThrough(patch, poked_, tip_); });
    if (arrived_) {
        moveTo(tip_);
    }
}

/// A press lasts until an update ends it: one in front of its surface, and one more to leave what was
/// recoiled from.
void FingertipActor::letGo(const Scene& scene, const PokeTargets& targets)
{
    arrived_ = false;
    const int target = targets.indexOf(velk_Interactor_GetInteractable(interactor_));
    if (target < 0) {
        return;
    }
    const Patch& patch = scene.patches[static_cast<std::size_t>(target)];
    const Vec3 over = inverseTransform(patch.pose, poked_);
    pokeAt(transform(patch.pose, Vec3{over.x, over.y, patch.config.exitHoverNormal + kWellInFront}));
    pokeAt(poked_);
}

void FingertipActor::moveTo(Vec3 point)
{
    pokeAt(point);
    velk_HandData tipHand;
    std::fill(std::begin(tipHand.joints), std::end(tipHand.joints), kNoRotation);
    tipHand.rootPose = {kNoRotation, point};
    velk_ExternalHandSource_SetData(tipHand_, &tipHand);
    velk_HandPokeLimiterVisual_Update(limiter_);
    velk_DataSource_Update(shownTip_);
}

void FingertipActor::pokeAt(Vec3 point)
{
    poked_ = point;
    const Pose pose{kNoRotation, point};
    velk_PokeInteractor_SetPointTransform(interactor_, &pose);
    velk_Interactor_Update(interactor_);
}

FingertipView FingertipActor::view(const PokeTargets& targets) const
{
    FingertipView view;
    view.tracked = tracked_;
    view.tip = tip_;
    velk_Interactor_GetState(interactor_, &view.state);
    view.handle = velk_Interactor_GetInteractable(interactor_);
    view.target = targets.indexOf(view.handle);
    if (view.state == VelkInteractorState_Select) {
        velk_HandData shown;
        velk_DataSource_GetData(shownTip_, &shown);
        view.touch = shown.rootPose.position;
    }
    return view;
}

} // namespace velk_tools
