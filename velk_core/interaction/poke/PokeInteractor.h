// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/core/IActiveState.h"
#include "velk_core/core/IPayload.h"
#include "velk_core/core/IPosition.h"
#include "velk_core/interaction/pointer/PointerInteractor.h"
#include "velk_core/interaction/poke/PokeFrame.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeRecoil.h"
#include "velk_core/interaction/poke/PokeTouchPoint.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/utility/MultiAction.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace velk::interaction
{

class PokeSearch;

/// A fingertip that hovers and presses PokeInteractables: a point with a small sphere around it. All
/// distances are metres in world space and are measured from the sphere's skin.
///
/// What it does with an interactable `I`, on top of the states of the base:
///
///                        hitInteractable   recoilInteractable   isPassedSurface
///     nothing or hover   null              null                 false
///     pressed            I                 null                 true
///     recoiled           null              I                    true
///     pressed again      I                 I                    true
///
/// It runs the course of a hover and a press. The rules are elsewhere: PokeHover.cpp for a hover,
/// PokePress.cpp for what begins a press, PokeTouchPoint.cpp for what moves it, PokeRelease.cpp for what ends
/// it, and PokeRecoil.cpp for what releases it early and presses again.
class PokeInteractor : public PointerInteractor<PokeInteractor, PokeInteractable>
{
public:
    struct Config
    {
        /// How far the skin may rise above the surface before contact ends.
        float surfaceReleaseThreshold = 0.002f;
        /// Carried along; no rule reads it.
        float reservedDistance = 0.0f;
        /// Candidates nearer to each other than this count as equally far.
        float equalDistanceEpsilon = 0.001f;
        float radius = 0.005f;
    };

    PokeInteractor();

    /// With a position source, its value replaces the position of the point transform in every frame. The
    /// first update sweeps from the source's value at construction, or without a source from the world's
    /// origin.
    explicit PokeInteractor(const Config& config,
                            std::shared_ptr<active_state::IActiveState> activeState = nullptr,
                            std::shared_ptr<core::IPayload> payload = nullptr,
                            std::shared_ptr<input::IPosition> positionSource = nullptr);
    ~PokeInteractor() override;

    PokeInteractor(const PokeInteractor&) = delete;
    PokeInteractor& operator=(const PokeInteractor&) = delete;

    /// The fingertip's pose for the updates to come; nothing else changes now.
    void setPointTransform(const Posef& pose) { pointTransform_ = pose; }
    void setPointPosition(const Vector3f& position) { pointTransform_.translation = position; }

    /// The point of the last update.
    const Vector3f& getOrigin() const { return frame_.getOrigin(); }

    /// The nearest point on the patch of the last candidate found.
    const Vector3f& getClosestPoint() const { return closestPoint_; }

    /// Where the finger touches, or would touch, the backing surface; steadied during a press.
    const Vector3f& getTouchPoint() const { return touchPoint_; }
    const Vector3f& getTouchNormal() const { return touchNormal_; }

    float getRadius() const { return config_.radius; }

    /// True from the press to the end of contact, also while recoiled.
    bool isPassedSurface() const { return passedSurface_; }
    void setIsPassedSurface(bool passed);

    /// Raised on a change only.
    uint32_t subscribeToWhenPassedSurfaceChanged(std::function<void(bool)>&& handler);
    void unsubscribeToWhenPassedSurfaceChanged(uint32_t token);

    /// This frame's memo of the surface queries at the point.
    bool getBackingHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);
    bool getPatchHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);

protected:
    void doPreprocess() override;
    void doHoverUpdate() override;
    void doSelectUpdate() override;
    bool computeShouldSelect() override;
    bool computeShouldUnselect() const override;
    void interactableSelected(PokeInteractable* interactable) override;
    void doPostprocess() override;
    PokeInteractable* computeCandidate() override;
    void handleDisabled() override;
    PokeInteractor* getInteractorPtr() override;
    Posef computePointerPose() override;
    bool isPointerPoseObserved() const override { return false; }
    void interactableDestroyed(const PokeInteractable* interactable) override;

private:
    void updateOrigin();
    void gatherInRange(const PokeSearch& search);
    void takeContactFrom(const PokeInteractable& interactable);
    bool surfaceUpdate(const PokeInteractable* interactable);
    void placeTouchPoint(const PokeInteractable& pressed);
    void cancel(PokeInteractable& interactable);
    void endRecoil();

    utility::MultiAction<bool> whenPassedSurfaceChanged_;
    Config config_;
    std::shared_ptr<input::IPosition> positionSource_;
    Posef pointTransform_;
    Vector3f closestPoint_;
    Vector3f touchPoint_;
    Vector3f touchNormal_;
    PokeFrame frame_;
    std::vector<PokeInteractable*> inRange_;        // of the last search
    PokeInteractable* hoverInteractable_ = nullptr; // what the last search found
    PokeInteractable* hitInteractable_ = nullptr;   // set means that a press is wanted
    PokeTouchPoint pressPoint_;
    PokeRecoil recoil_;
    bool passedSurface_ = false;
};

} // namespace velk::interaction
