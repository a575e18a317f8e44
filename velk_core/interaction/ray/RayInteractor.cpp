// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/ray/RayInteractor.h"

#include "math/LookRotation.h"
#include "velk_common/VelkAssert.h"
#include "velk_core/interaction/ray/RayGathering.h"
#include "velk_core/witness/Witness.h"

#include <cmath>
#include <utility>

namespace velk::interaction
{

namespace
{

using math::quaternion::lookRotationSafe;
using surface::SurfaceHit;
using witness::judge;
using witness::Rule;

} // namespace

void RayInteractor::RayCandidateProperties::init(RayInteractable* interactable, const Vector3f& hitPoint)
{
    interactable_ = interactable;
    hitPoint_ = hitPoint;
}

void RayInteractor::RayCandidateProperties::forget(const RayInteractable* interactable)
{
    if (interactable_ == interactable) {
        interactable_ = nullptr;
    }
}

RayInteractor::RayInteractor()
    : RayInteractor(Config())
{
}

RayInteractor::RayInteractor(const Config& config)
    : RayInteractor(config, nullptr, nullptr, nullptr, nullptr)
{
}

RayInteractor::RayInteractor(const Config& config, std::shared_ptr<input::IPose> rayOrigin,
                             std::shared_ptr<select::ISelector> selector,
                             std::shared_ptr<active_state::IActiveState> activeState,
                             std::shared_ptr<core::IPayload> payload)
    : PointerInteractor(std::move(activeState), std::move(payload))
    , candidateProperties_(std::make_shared<RayCandidateProperties>())
    , config_(config)
    , rayOrigin_(std::move(rayOrigin))
{
    PointerInteractor::setSelector(std::move(selector));
    PointerInteractor::onEnable();
}

RayInteractor::~RayInteractor()
{
    PointerInteractor::onDisable();
}

void RayInteractor::setRayOrigin(const Posef& pose)
{
    common::velkAssert(!rayOrigin_);
    rayOriginPose_ = pose;
}

std::weak_ptr<ICandidateProperty> RayInteractor::getCandidateProperties() const
{
    return candidateProperties_;
}

void RayInteractor::doPreprocess()
{
    if (rayOrigin_) {
        rayOriginPose_ = rayOrigin_->getPose();
    }
    ray_.origin = rayOriginPose_.translation;
    ray_.direction = getForward();
}

RayInteractable* RayInteractor::computeCandidate()
{
    gatherAlong(ray_, inReach_);
    std::erase_if(inReach_, [this](RayInteractable* interactable) {
        return !judge(Rule::Admitted, RayInteractable::getStaticRegistry().admits(*this, *interactable),
                      *interactable);
    });
    Candidate best = findDirectHit(inReach_);
    if (best.interactable == nullptr && RayInteractable::getMagneticCount() > 0) {
        best = findMagneticHit(RayInteractable::getStaticRegistry().list(*this, {}));
    }
    setCandidate(best);
    return best.interactable;
}

RayInteractor::Candidate
RayInteractor::findDirectHit(const std::vector<RayInteractable*>& interactables) const
{
    Candidate best;
    for (RayInteractable* interactable : interactables) {
        SurfaceHit hit;
        const bool isHit = interactable->getSurface().raycast(ray_, hit, config_.maxRayLength);
        if (judge(Rule::RayHit, isHit, isHit ? hit.distance : witness::kNoNumber, config_.maxRayLength,
                  *interactable) &&
            isBetter(*interactable, hit.distance, best)) {
            best = {interactable, hit.distance, hit};
        }
    }
    return best;
}

// Within the threshold a shorter distance doesn't win, only a higher score: of equal scores the first one
// visited stays.
bool RayInteractor::isBetter(const RayInteractable& interactable, float distance, const Candidate& best) const
{
    const bool equal = config_.equalDistanceThreshold > std::fabs(distance - best.distance);
    if (!equal) {
        return judge(Rule::RayNearest, best.distance > distance, distance, best.distance, interactable);
    }
    if (best.interactable == nullptr) {
        return false;
    }
    const int score = interactable.getTiebreakerScore();
    const int bestScore = best.interactable->getTiebreakerScore();
    return judge(Rule::RayScore, score > bestScore, static_cast<float>(score), static_cast<float>(bestScore),
                 interactable);
}

// The surface nearest to where the ray meets its magnetism surface wins. The hit reported is the one on the
// magnetism surface, while the ray's length is the distance of the true surface.
RayInteractor::Candidate
RayInteractor::findMagneticHit(const std::vector<RayInteractable*>& interactables) const
{
    Candidate best;
    float bestGap = std::numeric_limits<float>::max();
    for (RayInteractable* interactable : interactables) {
        SurfaceHit magnetHit;
        SurfaceHit surfaceHit;
        if (!judge(Rule::RayMagnet,
                   interactable->raycastMagnetismSurface(ray_, magnetHit, config_.maxRayLength),
                   *interactable) ||
            !interactable->getSurface().closestSurfacePoint(magnetHit.point, surfaceHit, surface::kNoLimit)) {
            continue;
        }
        const float gap = surfaceHit.point.Distance(magnetHit.point);
        if (judge(Rule::RayMagnetNearest, bestGap > gap, gap, bestGap, *interactable)) {
            bestGap = gap;
            best = {interactable, surfaceHit.point.Distance(getOrigin()), magnetHit};
        }
    }
    return best;
}

void RayInteractor::setCandidate(const Candidate& candidate)
{
    float length = config_.maxRayLength;
    collisionInfo_.reset();
    if (candidate.interactable != nullptr) {
        length = candidate.distance;
        collisionInfo_ = candidate.hit;
    }
    end_ = getOrigin() + length * getForward();
    candidateProperties_->init(candidate.interactable, candidate.hit.point);
}

void RayInteractor::interactableSelected(RayInteractable* interactable)
{
    if (interactable != nullptr && collisionInfo_) {
        startMovement(*interactable);
    }
    // The select event goes out last, so that it carries the movement's pose.
    PointerInteractor::interactableSelected(interactable);
}

void RayInteractor::startMovement(const RayInteractable& interactable)
{
    movedHit_ = *collisionInfo_;
    const Posef hitPose(lookRotationSafe(movedHit_.normal), movedHit_.point);
    const Posef backHitPose(lookRotationSafe(-movedHit_.normal), movedHit_.point);
    movement_ = interactable.generateMovement(backHitPose, rayOriginPose_);
    if (movement_) {
        // hit from movement = movement from world * hit in world
        movementHitDelta_ = movement_->getPose().Inverted() * hitPose;
    }
}

void RayInteractor::doSelectUpdate()
{
    if (movement_) {
        followMovement(*movement_);
    } else {
        traceSelectSurface(selectedInteractable());
    }
}

// No ray is cast: the hit rides on the movement, and keeps the distance that it had at selection.
void RayInteractor::followMovement(movement::IMovement& movement)
{
    movement.moveTo(rayOriginPose_);
    movement.tick();
    const Posef moved = movement.getPose() * movementHitDelta_;
    movedHit_.point = moved.translation;
    movedHit_.normal = moved.rotation * localForward_;
    collisionInfo_ = movedHit_;
    end_ = movedHit_.point;
}

// A ray that leaves the surface keeps its selection and loses its hit.
void RayInteractor::traceSelectSurface(const RayInteractable* interactable)
{
    collisionInfo_.reset();
    SurfaceHit hit;
    if (interactable != nullptr && interactable->raycastSelectSurface(ray_, hit, config_.maxRayLength)) {
        end_ = hit.point;
        collisionInfo_ = hit;
        return;
    }
    end_ = rayOriginPose_.translation + config_.maxRayLength * getForward();
}

void RayInteractor::interactableUnselected(RayInteractable* interactable)
{
    if (movement_) {
        movement_->stopAndSetPose(movement_->getPose());
    }
    // The movement ends last, so that the unselect event still carries its pose.
    PointerInteractor::interactableUnselected(interactable);
    movement_.reset();
}

RayInteractor* RayInteractor::getInteractorPtr()
{
    return this;
}

Posef RayInteractor::computePointerPose()
{
    if (movement_) {
        return movement_->getPose();
    }
    if (collisionInfo_) {
        // A normal parallel to the ray's up gives a degenerate rotation: this up is not replaced.
        return Posef(Quatf::LookRotation(collisionInfo_->normal, getUp()), collisionInfo_->point);
    }
    return Posef::Identity();
}

void RayInteractor::interactableDestroyed(const RayInteractable* interactable)
{
    PointerInteractor::interactableDestroyed(interactable);
    candidateProperties_->forget(interactable);
}

} // namespace velk::interaction
