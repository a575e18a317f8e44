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

/// Calls update(with...) of each.
template <typename Actor, typename... With>
void updateEach(std::vector<Actor>& actors, const With&... with)
{
    for (Actor& actor : actors) {
        actor.update(with...);
    }
}

/// What view(with...) of each gives.
template <typename Actor, typename... With>
auto viewsOf(const std::vector<Actor>& actors, const With&... with)
{
    std::vector<std::decay_t<decltype(actors.front().view(with...))>> views;
    views.reserve(actors.size());
    for (const Actor& actor : actors) {
        views.push_back(actor.view(with...));
    }
    return views;
}

} // namespace

World::World(const Scene& scene, const Recording& recording)
    : scene_(scene)
    , rayTargets_(scene)
    , pokeTargets_(scene)
    , rays_(scene.rays.begin(), scene.rays.end())
    , fingertips_(scene.fingertips.begin(), scene.fingertips.end())
    , directions_(scene.directions.begin(), scene.directions.end())
{
    for (const HandChain& chain : scene.hands) {
        const VelkInteractorHandle poker =
            chain.limiter ? fingertips_[*chain.limiter].interactor() : VelkInteractorHandle_Invalid;
        hands_.emplace_back(chain, recording.handRate(chain.side), poker);
    }
    for (const GripTrack& track : scene.pinches) {
        pinches_.emplace_back(track, PinchGrab(velk_FingerPinchGrabAPI_Create()));
    }
    for (const GripTrack& track : scene.palms) {
        palms_.emplace_back(track, PalmGrab(velk_FingerPalmGrabAPI_Create()));
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
    updateEach(pinches_, frame);
    pressSelects(frame);
    updateEach(rays_, frame);
    updateEach(fingertips_, frame, scene_, pokeTargets_);
    if (settlesCurves_) {
        settle();
    }
    updateEach(hands_, frame);
    updateEach(palms_, frame);
    updateEach(directions_, frame);
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

void World::pressSelects(const Frame& frame)
{
    for (RayActor& ray : rays_) {
        if (const auto* trigger = std::get_if<TriggerSelect>(&ray.ray().select)) {
            for (const TriggerEvent& event : frame.triggers) {
                if (event.device == trigger->device) {
                    ray.press(event.down);
                }
            }
        }
        if (const auto* pinch = std::get_if<PinchSelect>(&ray.ray().select)) {
            for (const GripActor& hand : pinches_) {
                if (hand.track().side == pinch->side) {
                    ray.press(hand.view().tracked && hand.view().holds[pinch->finger]);
                }
            }
        }
    }
}

void World::read(Observation& seen) const
{
    seen.rayTargets = rayTargets_.view();
    seen.rays = viewsOf(rays_, rayTargets_);
    seen.fingertips = viewsOf(fingertips_, pokeTargets_);
    seen.patches = pokeTargets_.view();
    seen.hands = viewsOf(hands_);
    seen.pinches = viewsOf(pinches_);
    seen.palms = viewsOf(palms_);
    seen.directions = viewsOf(directions_);
}

} // namespace velk_tools
