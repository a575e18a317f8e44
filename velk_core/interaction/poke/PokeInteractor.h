// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/core/IActiveState.h"
#include "velk_core/core/IPayload.h"
#include "velk_core/core/IPosition.h"
#include "velk_core/interaction/pointer/PointerInteractor.h"
#include "velk_core/interaction/poke/PokeCandidate.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/SurfaceHitCache.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/ProgressCurve.h"
#include "velk_core/utility/SlotTable.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace velk::interaction
{

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
/// PokeHover.cpp holds the rules by which a hover begins and stays, PokePress.cpp those by which a press
/// begins, moves the touch point and ends.
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
    const Vector3f& getOrigin() const { return origin_; }

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
    void interactableDestroyed(const PokeInteractable* interactable) override;

private:
    using Interactables = std::vector<PokeInteractable*>;

    // Frame.
    void updateOrigin();
    void storeSurfaceTransforms();
    Vector3f previousOriginCarriedBy(const PokeInteractable& interactable) const;
    void takeContactFrom(const PokeInteractable& interactable);
    void endRecoil();
    void cancel(PokeInteractable& interactable);

    // Hover rules.
    bool interactableInRange(const PokeInteractable& interactable) const;
    PokeInteractable* computeHoverCandidate(const Interactables& inRange);
    bool canHover(PokeInteractable& interactable, PokeCandidate& candidate);
    bool getHits(const PokeInteractable& interactable, surface::SurfaceHit& backing);
    bool passesEnterHoverDistanceCheck(const Vector3f& point, const PokeInteractable& interactable) const;
    float minPokeDepth(const PokeInteractable& interactable) const;
    bool isInFront(const surface::SurfaceHit& backing) const;
    float hoverNormalLimit(const PokeInteractable& interactable) const;
    float hoverTangentLimit(const PokeInteractable& interactable) const;
    bool areEquallyFar(float distance, float otherDistance) const;

    // Press rules.
    PokeInteractable* computeSelectCandidate(const Interactables& inRange);
    PokeCandidate findPressed(const Interactables& inRange);
    bool isPressed(PokeInteractable& interactable, PokeCandidate& candidate);
    bool crosses(const PokeInteractable& interactable, const surface::SurfaceHit& backing,
                 const Vector3f& start, surface::SurfaceHit& crossing) const;
    bool vetoes(const PokeInteractable& interactable, const PokeCandidate& pressed);
    bool surfaceUpdate(const PokeInteractable* interactable);
    void updateTarget(const PokeInteractable& interactable, const Posef& surfacePose,
                      const Vector3f& localPoint);
    bool isPushing(const PokeInteractable& interactable, float tangentDelta) const;
    Vector3f pinTarget(const PokeInteractable& interactable, const Posef& surfacePose);
    void easeTowards(const Vector3f& localPoint);
    void placeTouchPoint(const PokeInteractable& interactable);
    bool shouldCancel(const PokeInteractable& interactable) const;
    bool shouldRecoil(const PokeInteractable& interactable);

    utility::MultiAction<bool> whenPassedSurfaceChanged_;
    Config config_;
    std::shared_ptr<input::IPosition> positionSource_;
    Posef pointTransform_;
    Vector3f closestPoint_;
    Vector3f touchPoint_;
    Vector3f touchNormal_;
    Vector3f origin_;
    Vector3f previousOrigin_;
    PokeInteractable* hoverInteractable_ = nullptr;  // what the last search found
    PokeInteractable* hitInteractable_ = nullptr;    // set means that a press is wanted
    PokeInteractable* recoilInteractable_ = nullptr; // what the finger retreated from
    // Points in the frame of the backing surface, so that they ride on it when it moves.
    Vector3f previousLocalPoint_; // under the finger in the last frame
    Vector3f pinnedLocalPoint_;   // the touch point when the press began
    Vector3f targetLocalPoint_;   // where the touch point is to go
    Vector3f easedLocalPoint_;    // where it is
    bool dragging_ = false;
    utility::ProgressCurve dragEaseCurve_;
    Vector3f pressLocalPoint_;  // under the finger when it last pushed in
    float maxPinTravel_ = 0.0f; // farthest travel from the pinned point in this press
    SurfaceHitCache hitCache_;
    utility::SlotTable<Posef> previousSurfaceTransforms_; // inverse poses of the last frame
    float maxDepth_ = 0.0f;                               // deepest point of this press
    float recoilDepth_ = 0.0f;                            // depth that presses again after a recoil
    bool passedSurface_ = false;
    float lastEaseProgress_ = 0.0f;
};

} // namespace velk::interaction
