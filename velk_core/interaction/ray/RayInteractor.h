// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Ray.h"
#include "velk_core/core/IActiveState.h"
#include "velk_core/core/IPayload.h"
#include "velk_core/core/IPose.h"
#include "velk_core/interaction/ICandidatePosition.h"
#include "velk_core/interaction/ICandidateProperty.h"
#include "velk_core/interaction/pointer/PointerInteractor.h"
#include "velk_core/interaction/ray/IMovement.h"
#include "velk_core/interaction/ray/RayInteractable.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/select/ISelector.h"

#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace velk::interaction
{

/// A pointing ray. It hovers the nearest interactable that the ray hits, or else the one whose magnetism
/// surface draws it most, and keeps pointing at what it selected. Its selector decides when it selects.
///
/// A new pose shows in `getOrigin` at once, but in the ray and its end only with the next update.
class RayInteractor : public PointerInteractor<RayInteractor, RayInteractable>
{
public:
    struct Config
    {
        /// The limit of every raycast, and the length of a ray that hits nothing. Surfaces read the limit in
        /// their own way: a plane holds the origin's height against it, so a slanted hit can lie beyond.
        float maxRayLength = 1.0f;
        /// Hits closer together than this count as equally far; the one registered first then stays.
        float equalDistanceThreshold = 0.01f;
    };

    /// What the last search found: the position is that of the hit, or zero when there was none.
    class RayCandidateProperties : public ICandidatePosition
    {
    public:
        void init(RayInteractable* interactable, const Vector3f& hitPoint);

        /// Lets go of an interactable that is no more; the position stays.
        void forget(const RayInteractable* interactable);

        RayInteractable* getInteractable() const { return interactable_; }
        Vector3f getCandidatePosition() override { return hitPoint_; }

    private:
        RayInteractable* interactable_ = nullptr;
        Vector3f hitPoint_;
    };

    RayInteractor();
    explicit RayInteractor(const Config& config);

    /// `rayOrigin`, when given, replaces the ray's pose at each update.
    RayInteractor(const Config& config, std::shared_ptr<input::IPose> rayOrigin,
                  std::shared_ptr<select::ISelector> selector,
                  std::shared_ptr<active_state::IActiveState> activeState,
                  std::shared_ptr<core::IPayload> payload);
    ~RayInteractor() override;

    RayInteractor(const RayInteractor&) = delete;
    RayInteractor& operator=(const RayInteractor&) = delete;

    Vector3f getOrigin() const { return rayOriginPose_.translation; }
    void setOrigin(Vector3f origin) { rayOriginPose_.translation = origin; }
    Quatf getRotation() const { return rayOriginPose_.rotation; }
    void setRotation(Quatf rotation) { rayOriginPose_.rotation = rotation; }

    Vector3f getForward() const { return rayOriginPose_.Rotate(localForward_); }
    Vector3f getUp() const { return rayOriginPose_.Rotate(localUp_); }

    /// Neither is normalised.
    void setLocalForwardVector(Vector3f forward) { localForward_ = forward; }
    void setLocalUpVector(Vector3f up) { localUp_ = up; }

    /// Where the ray ends, for drawing. Behind the origin when that lies within a box.
    Vector3f getEnd() const { return end_; }

    void setMaxRayLength(float length) { config_.maxRayLength = length; }

    /// Traps on an interactor that was given a `rayOrigin`.
    void setRayOrigin(const Posef& pose);

    /// What the ray hit last, if anything.
    std::optional<surface::SurfaceHit> getCollisionInfo() const { return collisionInfo_; }

    std::weak_ptr<ICandidateProperty> getCandidateProperties() const override;

protected:
    void doPreprocess() override;
    void doSelectUpdate() override;
    void interactableSelected(RayInteractable* interactable) override;
    void interactableUnselected(RayInteractable* interactable) override;
    RayInteractable* computeCandidate() override;
    RayInteractor* getInteractorPtr() override;

    /// The moved thing's pose, or that of the hit looking along its normal, or the identity with no hit.
    Posef computePointerPose() override;

    /// By a movement, which is the host's.
    bool isPointerPoseObserved() const override { return movement_ != nullptr; }

    void interactableDestroyed(const RayInteractable* interactable) override;

private:
    struct Candidate
    {
        RayInteractable* interactable = nullptr;
        float distance = std::numeric_limits<float>::max();
        surface::SurfaceHit hit;
    };

    Candidate findDirectHit(const std::vector<RayInteractable*>& interactables) const;
    bool isBetter(const RayInteractable& interactable, float distance, const Candidate& best) const;
    Candidate findMagneticHit(const std::vector<RayInteractable*>& interactables) const;
    void setCandidate(const Candidate& candidate);
    void startMovement(const RayInteractable& interactable);
    void followMovement(movement::IMovement& movement);
    void traceSelectSurface(const RayInteractable* interactable);

    Posef rayOriginPose_;
    std::unique_ptr<movement::IMovement> movement_;
    surface::SurfaceHit movedHit_;
    // The pose of the hit in the frame of the movement's pose.
    Posef movementHitDelta_;
    math::Ray ray_;
    std::vector<RayInteractable*> inReach_; // of the last search
    std::optional<surface::SurfaceHit> collisionInfo_;
    std::shared_ptr<RayCandidateProperties> candidateProperties_;
    Config config_;
    std::shared_ptr<input::IPose> rayOrigin_;
    Vector3f end_;
    Vector3f localUp_{0.0f, 1.0f, 0.0f};
    Vector3f localForward_{0.0f, 0.0f, -1.0f};
};

} // namespace velk::interaction
