// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/World.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace velk_tools
{

namespace
{

using Clock = std::chrono::steady_clock;

/// Longer than any curve on which the library lets a drawn hand return.
constexpr std::chrono::milliseconds kCurveTime{150};

} // namespace

World::World(const Scene& scene, const Recording& recording)
    : scene_(scene)
    , rayTargets_(scene)
    , pokeTargets_(scene)
{
    for (const Ray& ray : scene.rays) {
        rays_.emplace_back(ray);
    }
    for (const Fingertip& fingertip : scene.fingertips) {
        fingertips_.emplace_back(fingertip);
    }
    for (const HandChain& chain : scene.hands) {
        const VelkInteractorHandle poker =
            chain.limiter ? fingertips_[*chain.limiter].interactor() : VelkInteractorHandle_Invalid;
        hands_.emplace_back(chain, recording.handRate(chain.side), poker);
    }
    for (const GripTrack& track : scene.pinches) {
        pinches_.emplace_back(track);
    }
    for (const GripTrack& track : scene.palms) {
        palms_.emplace_back(track);
    }
    for (const DirectionTrack& track : scene.directions) {
        directions_.emplace_back(track);
    }
    // A curve that was never started reads as finished only when the library has been up for the curve's
    // time; until then the drawn hand would be on its way from the origin.
    if (!fingertips_.empty() || !hands_.empty()) {
        std::this_thread::sleep_for(kCurveTime);
    }
}

Observation World::update(std::size_t number, const Frame& frame)
{
    Observation seen;
    seen.frame = number;
    seen.time = frame.time;
    const Clock::time_point begin = Clock::now();
    updateAll(frame);
    read(seen);
    seen.microseconds = std::chrono::duration<double, std::micro>(Clock::now() - begin - waited_).count();
    return seen;
}

void World::updateAll(const Frame& frame)
{
    for (PinchActor& pinch : pinches_) {
        pinch.update(frame);
    }
    pressTriggers(frame);
    pressPinches();
    for (RayActor& ray : rays_) {
        ray.update(frame);
    }
    for (FingertipActor& fingertip : fingertips_) {
        fingertip.update(frame, scene_, pokeTargets_);
    }
    if (settlesCurves_) {
        settle();
    }
    for (HandActor& hand : hands_) {
        hand.update(frame);
    }
    for (PalmActor& palm : palms_) {
        palm.update(frame);
    }
    for (DirectionActor& direction : directions_) {
        direction.update(frame);
    }
}

/// What a fingertip's update starts is read only when a hand is updated.
void World::settle()
{
    const bool releasing =
        std::any_of(scene_.hands.begin(), scene_.hands.end(), [this](const HandChain& chain) {
            return chain.limiter && fingertips_[*chain.limiter].isReleasing();
        });
    const Clock::time_point begin = Clock::now();
    if (releasing) {
        std::this_thread::sleep_for(kCurveTime);
    }
    waited_ = Clock::now() - begin;
}

void World::pressTriggers(const Frame& frame)
{
    for (RayActor& ray : rays_) {
        const auto* select = std::get_if<TriggerSelect>(&ray.ray().select);
        if (select == nullptr) {
            continue;
        }
        for (const TriggerEvent& event : frame.triggers) {
            if (event.device == select->device) {
                ray.press(event.down);
            }
        }
    }
}

void World::pressPinches()
{
    for (RayActor& ray : rays_) {
        const auto* select = std::get_if<PinchSelect>(&ray.ray().select);
        if (select == nullptr) {
            continue;
        }
        for (const PinchActor& pinch : pinches_) {
            if (pinch.track().side == select->side) {
                ray.press(pinch.view().tracked && pinch.view().holds[select->finger]);
            }
        }
    }
}

void World::read(Observation& seen) const
{
    seen.rayTargets = rayTargets_.view();
    for (const RayActor& ray : rays_) {
        seen.rays.push_back(ray.view(rayTargets_));
    }
    for (const FingertipActor& fingertip : fingertips_) {
        seen.fingertips.push_back(fingertip.view(pokeTargets_));
    }
    seen.patches = pokeTargets_.view();
    for (const HandActor& hand : hands_) {
        seen.hands.push_back(hand.view());
    }
    for (const PinchActor& pinch : pinches_) {
        seen.pinches.push_back(pinch.view());
    }
    for (const PalmActor& palm : palms_) {
        seen.palms.push_back(palm.view());
    }
    for (const DirectionActor& direction : directions_) {
        seen.directions.push_back(direction.view());
    }
}

} // namespace velk_tools
