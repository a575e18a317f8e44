// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/RayActor.h"

namespace velk_tools
{

namespace
{

/// Far off and looking away: what a ray without tracking is given, so that it hits nothing.
constexpr Pose kNowhere{kNoRotation, {0, 0, -1e9f}};

} // namespace

RayActor::RayActor(const Ray& ray)
    : ray_(ray)
    , selector_(velk_Selector_Create())
    , interactor_(velk_RayInteractor_Create())
{
    expect(velk_RayInteractor_SetMaxRayLength(interactor_, ray.length), "velk_RayInteractor_SetMaxRayLength");
    expect(velk_Interactor_SetSelector(interactor_, selector_), "velk_Interactor_SetSelector");
}

void RayActor::press(bool down)
{
    if (down == pressed_) {
        return;
    }
    pressed_ = down;
    if (down) {
        velk_Selector_Select(selector_);
    } else {
        velk_Selector_Unselect(selector_);
    }
}

void RayActor::update(const Frame& frame)
{
    const std::optional<Pose> now = pose(frame);
    tracked_ = now.has_value();
    if (!tracked_) {
        press(false);
    }
    velk_RayInteractor_SetPose(interactor_, tracked_ ? &*now : &kNowhere);
    velk_Interactor_Update(interactor_);
}

std::optional<Pose> RayActor::pose(const Frame& frame) const
{
    if (const auto* device = std::get_if<Device>(&ray_.driver)) {
        return frame.device(*device);
    }
    const JointPair& pair = std::get<JointPair>(ray_.driver);
    const HandSample* hand = frame.hand(pair.side);
    if (hand == nullptr) {
        return std::nullopt;
    }
    const Vec3 from = hand->joint(pair.from).position;
    const Vec3 to = hand->joint(pair.to).position;
    return Pose{turnZTo(from - to), from}; // a ray points along its local -Z
}

RayView RayActor::view(const RayTargets& targets) const
{
    RayView view;
    view.tracked = tracked_;
    velk_Interactor_GetState(interactor_, &view.state);
    view.handle = velk_Interactor_GetInteractable(interactor_);
    view.target = targets.indexOf(view.handle);
    velk_RayInteractor_GetOrigin(interactor_, &view.origin);
    velk_RayInteractor_GetEnd(interactor_, &view.end);
    return view;
}

} // namespace velk_tools
