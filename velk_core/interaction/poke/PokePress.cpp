// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The rules by which a press begins, moves its touch point and ends. The skin's height over the surface
// during a press with the default settings, against time:
//
//    0.002  - - - - - - - - - - - - - - - - - - - - - - -x- - -  surfaceReleaseThreshold: above it, released
//    0      ==========x===============================x========  surface: pressed at first contact
//                      x                            x
//                        x                        x              0.02 over the deepest point: recoiled
//                           x                 x
//                                x       x                       deepest point
//                                    x
//   -0.3    - - - - - - - - - - - - - - - - - - - - - - - - - -  cancelSelectNormal: deeper, cancelled
//
//   state      the finger                                            becomes
//   hover      crosses the surface inward                            pressed
//   pressed    rises above the release threshold                     hover
//   pressed    goes too deep, or too far along the surface           hover, with a Cancel event
//   pressed    retreats from its deepest point beyond exitDistance   recoiled, which releases
//   recoiled   goes in beyond reEnterDistance from its shallowest    pressed
//              point since
//   recoiled   rises above the release threshold                     hover
//   recoiled   goes too deep, or too far along the surface           hover, with a Cancel event
#include "velk_core/interaction/poke/PokeInteractor.h"

#include "math/Math.h"
#include "math/Ray.h"
#include "velk_core/interaction/poke/PokeGeometry.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

using poke_geometry::computeDepth;
using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;
using surface::SurfaceHit;

namespace
{

constexpr float kNoLimit = 0.0f; // as the greatest distance of a surface query

Posef backingPose(const PokeInteractable& interactable)
{
    return interactable.getSurfacePatch().getBackingSurface().getPose();
}

} // namespace

PokeInteractable* PokeInteractor::computeSelectCandidate(const Interactables& inRange)
{
    const PokeCandidate pressed = findPressed(inRange);
    if (pressed.interactable == nullptr) {
        return nullptr;
    }
    takeContactFrom(*pressed.interactable);
    const bool vetoed =
        std::any_of(inRange.begin(), inRange.end(), [&](const PokeInteractable* interactable) {
            return interactable != pressed.interactable && vetoes(*interactable, pressed);
        });
    return vetoed ? nullptr : pressed.interactable;
}

// Of all that the finger's way crosses, the one over which it started lowest.
PokeCandidate PokeInteractor::findPressed(const Interactables& inRange)
{
    PokeCandidate best;
    for (PokeInteractable* interactable : inRange) {
        PokeCandidate candidate;
        if (!isPressed(*interactable, candidate)) {
            continue;
        }
        const bool winsByScore = areEquallyFar(candidate.distance, best.distance) &&
                                 (best.interactable == nullptr || candidate.hasHigherScoreThan(best));
        if (winsByScore || candidate.isNearerThan(best)) {
            best = candidate;
        }
    }
    return best;
}

// On true, the candidate is ranked by the height at which the finger's way began, and by the distance along
// the surface at which it went through: not by where the finger is now.
bool PokeInteractor::isPressed(PokeInteractable& interactable, PokeCandidate& candidate)
{
    SurfaceHit backing;
    if (!getHits(interactable, backing)) {
        return false;
    }
    // Must have been clearly above: guards against a press from within, or by a finger that began under it.
    const Vector3f start = previousOriginCarriedBy(interactable);
    if (!passesEnterHoverDistanceCheck(start, interactable)) {
        return false;
    }
    SurfaceHit crossing;
    if (!crosses(interactable, backing, start, crossing)) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, crossing.point, config_.radius);
    if (!(tangent <= hoverTangentLimit(interactable))) {
        return false;
    }
    candidate = {&interactable, (start - crossing.point).Dot(crossing.normal), tangent};
    return true;
}

// The way from `start` to the finger, seen from the surface. It crosses when it goes inward, and either the
// centre went through or the skin is at or through.
bool PokeInteractor::crosses(const PokeInteractable& interactable, const SurfaceHit& backing,
                             const Vector3f& start, SurfaceHit& crossing) const
{
    Vector3f direction = origin_ - start;
    const float length = direction.Length();
    if (length == 0.0f) {
        return false;
    }
    direction /= length;
    if (!(direction.Dot(backing.normal) < 0.0f)) {
        return false;
    }
    const surface::ISurface& surface = interactable.getSurfacePatch().getBackingSurface();
    if (surface.raycast({start, direction}, crossing, kNoLimit) && crossing.distance <= length) {
        return true;
    }
    const float above = computeDistanceAbove(interactable, origin_, config_.radius);
    crossing = {backing.point, backing.normal, above};
    return above <= 0.0f;
}

// A press is refused when the touch point chosen for it lies closely over another surface, within that one's
// reach and no farther along it than the press itself.
bool PokeInteractor::vetoes(const PokeInteractable& interactable, const PokeCandidate& pressed)
{
    SurfaceHit backing;
    if (!getHits(interactable, backing) ||
        !passesEnterHoverDistanceCheck(previousOriginCarriedBy(interactable), interactable)) {
        return false;
    }
    const float height = (touchPoint_ - backing.point).Dot(backing.normal);
    if (std::fabs(height) < config_.equalDistanceEpsilon &&
        pressed.interactable->getTiebreakerScore() > interactable.getTiebreakerScore()) {
        return false;
    }
    if (!(height > 0.0f && height <= interactable.getCloseDistanceThreshold())) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, touchPoint_, config_.radius);
    return tangent <= interactable.getEnterHoverTangent() && tangent <= pressed.tangent;
}

// After a recoil the depth that presses again slides up with the finger and stays when it sinks.
bool PokeInteractor::computeShouldSelect()
{
    if (recoilInteractable_ != nullptr) {
        const float depth = computeDepth(*recoilInteractable_, getOrigin(), config_.radius);
        const float reEnterDistance = recoilInteractable_->getConfig().recoilAssist.reEnterDistance;
        recoilDepth_ = std::min(recoilDepth_, depth + reEnterDistance);
        hitInteractable_ = depth <= recoilDepth_ ? nullptr : recoilInteractable_;
    }
    return hitInteractable_ != nullptr;
}

bool PokeInteractor::computeShouldUnselect() const
{
    return hitInteractable_ == nullptr;
}

void PokeInteractor::interactableSelected(PokeInteractable* interactable)
{
    SurfaceHit hit;
    if (interactable != nullptr && getBackingHit(*interactable, hit)) {
        const Posef pose = backingPose(*interactable);
        const Vector3f local = pose.InverseTransform(touchPoint_);
        targetLocalPoint_ = local;
        easedLocalPoint_ = local;
        pinnedLocalPoint_ = local;
        previousLocalPoint_ = local;
        pressLocalPoint_ = pose.InverseTransform(hit.point);
        dragEaseCurve_ = interactable->getDragThresholds().dragEaseCurve;
        dragging_ = false;
        maxPinTravel_ = 0.0f;
        maxDepth_ = 0.0f;
        setIsPassedSurface(true);
    }
    PointerInteractor::interactableSelected(interactable);
}

void PokeInteractor::doSelectUpdate()
{
    PokeInteractable* pressed = selectedInteractable();
    if (!surfaceUpdate(pressed)) {
        hitInteractable_ = nullptr;
        // Pressed again after a recoil: the recoil's end, in the hover update to come, takes this back.
        setIsPassedSurface(recoilInteractable_ != nullptr);
    } else if (shouldCancel(*pressed)) {
        cancel(*pressed);
    } else if (shouldRecoil(*pressed)) {
        hitInteractable_ = nullptr;
        recoilInteractable_ = pressed;
        setIsPassedSurface(true);
        maxDepth_ = 0.0f;
    }
}

// Moves the touch point for this frame of a press or a recoil. False when contact has ended.
bool PokeInteractor::surfaceUpdate(const PokeInteractable* interactable)
{
    SurfaceHit hit;
    if (interactable == nullptr || !getBackingHit(*interactable, hit)) {
        return false;
    }
    if (computeDistanceAbove(*interactable, origin_, config_.radius) > config_.surfaceReleaseThreshold) {
        return false;
    }
    const Posef pose = backingPose(*interactable);
    const Vector3f localPoint = pose.InverseTransform(hit.point);
    updateTarget(*interactable, pose, localPoint);
    easeTowards(pinTarget(*interactable, pose));
    placeTouchPoint(*interactable);
    previousLocalPoint_ = localPoint;
    return true;
}

// Drag thresholding. The target follows the finger only while it drags:
//
//   dragging   pushing   slid beyond dragTangent   then
//   no         yes       -                         target stays, the slide counts from here
//   no         no        no                        target stays
//   no         no        yes                       a drag starts: target follows, the easing starts
//   yes        no        -                         target follows
//   yes        yes       -                         the drag is interrupted: as the first row
void PokeInteractor::updateTarget(const PokeInteractable& interactable, const Posef& surfacePose,
                                  const Vector3f& localPoint)
{
    const PokeInteractable::DragThresholdingConfig& thresholds = interactable.getDragThresholds();
    if (!thresholds.enabled) {
        targetLocalPoint_ = localPoint;
        return;
    }
    if (isPushing(interactable, surfacePose.Rotate(localPoint - previousLocalPoint_).Length())) {
        pressLocalPoint_ = localPoint;
        dragging_ = false;
        return;
    }
    if (!dragging_ && surfacePose.Rotate(localPoint - pressLocalPoint_).Length() > thresholds.dragTangent) {
        dragging_ = true;
        dragEaseCurve_.start();
        lastEaseProgress_ = 0.0f;
    }
    if (dragging_) {
        targetLocalPoint_ = localPoint;
    }
}

// This frame's movement is mainly into or out of the surface, and large enough. Above the surface there is no
// depth, and so no pushing.
bool PokeInteractor::isPushing(const PokeInteractable& interactable, float tangentDelta) const
{
    const float normalDelta = std::fabs(computeDepth(interactable, origin_, config_.radius) -
                                        computeDepth(interactable, previousOrigin_, config_.radius));
    return tangentDelta < normalDelta && interactable.getDragThresholds().dragNormal < normalDelta;
}

// Pinning: the touch point starts out stuck where the press began and is let go by the farthest travel so
// far. It is never stuck more again in the same press.
Vector3f PokeInteractor::pinTarget(const PokeInteractable& interactable, const Posef& surfacePose)
{
    const PokeInteractable::PositionPinningConfig& pinning = interactable.getPositionPinning();
    if (!pinning.enabled) {
        return targetLocalPoint_;
    }
    const Vector3f offset = targetLocalPoint_ - pinnedLocalPoint_;
    maxPinTravel_ = std::max(maxPinTravel_, surfacePose.Rotate(offset).Length());
    float factor = 1.0f;
    if (pinning.maxPinDistance != 0.0f) {
        factor = clamp(maxPinTravel_ / pinning.maxPinDistance, 0.0f, 1.0f);
    }
    return pinnedLocalPoint_ + offset * factor;
}

// Goes the share of the remaining way that the curve has gone since the last frame. A curve that no drag has
// started reads as finished.
void PokeInteractor::easeTowards(const Vector3f& localPoint)
{
    const float progress = dragEaseCurve_.progress();
    if (progress == 1.0f) {
        easedLocalPoint_ = localPoint;
        return;
    }
    const float share = (progress - lastEaseProgress_) / (1.0f - lastEaseProgress_);
    easedLocalPoint_ += (localPoint - easedLocalPoint_) * share;
    lastEaseProgress_ = progress;
}

void PokeInteractor::placeTouchPoint(const PokeInteractable& pressed)
{
    const PokeInteractable& hovered = interactable() != nullptr ? *interactable() : pressed;
    touchPoint_ = backingPose(hovered).Transform(easedLocalPoint_);
    SurfaceHit hit;
    pressed.closestBackingSurfaceHit(touchPoint_, hit);
    touchNormal_ = hit.normal;
}

bool PokeInteractor::shouldCancel(const PokeInteractable& interactable) const
{
    const float normalLimit = interactable.getCancelSelectNormal();
    if (normalLimit > 0.0f && computeDepth(interactable, origin_, config_.radius) > normalLimit) {
        return true;
    }
    const float tangentLimit = interactable.getCancelSelectTangent();
    return tangentLimit > 0.0f &&
           computeTangentDistance(interactable, origin_, config_.radius) > tangentLimit;
}

bool PokeInteractor::shouldRecoil(const PokeInteractable& interactable)
{
    const PokeInteractable::RecoilAssistConfig& assist = interactable.getConfig().recoilAssist;
    if (!assist.enabled) {
        return false;
    }
    const float depth = computeDepth(interactable, getOrigin(), config_.radius);
    if (depth > maxDepth_) {
        maxDepth_ = depth;
        return false;
    }
    if (depth < maxDepth_ - assist.exitDistance) {
        recoilDepth_ = depth + assist.reEnterDistance;
        return true;
    }
    return false;
}

} // namespace velk::interaction
