// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/core/TimeProvider.h"
#include "velk_core/interaction/InteractableRegistry.h"
#include "velk_core/interaction/pointer/IPointableElement.h"
#include "velk_core/interaction/pointer/PointerInteractable.h"
#include "velk_core/interaction/poke/SurfaceMotion.h"
#include "velk_core/interaction/search/SurfaceIndex.h"
#include "velk_core/interaction/surfaces/ISurfacePatch.h"
#include "velk_core/interaction/surfaces/SurfaceChanges.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/utility/ProgressCurve.h"
#include "velk_core/utility/SlotIndex.h"

#include <memory>

namespace velk::interaction
{

class PokeInteractor;

/// What a fingertip presses: a surface patch, and the distances by which a PokeInteractor decides about
/// hover, press, drag, cancel and recoil on it. Takes no decision itself.
///
/// All distances are metres in world space. "Normal" is measured along the surface's normal, "tangent" along
/// the surface from the patch's edge outwards; both from the skin of the finger's sphere.
class PokeInteractable : public PointerInteractable<PokeInteractor, PokeInteractable>,
                         private surface::ChangeListener
{
public:
    /// Holds the touch point where the press began, and lets it go with the farthest travel so far.
    struct PositionPinningConfig
    {
        bool enabled = false;
        /// Travel along the surface at which the touch point follows the finger fully; 0 means no pinning.
        float maxPinDistance = 0.0f;
    };

    /// Keeps the touch point still while the finger slides a little as it pushes.
    struct DragThresholdingConfig
    {
        bool enabled = true;
        /// Movement along the normal in one frame above which the finger counts as pressing, not dragging.
        float dragNormal = 0.01f;
        /// Movement along the surface from the last press point above which a drag begins.
        float dragTangent = 0.01f;
        /// Eases the touch point towards the finger when a drag begins; 0.05 seconds.
        utility::ProgressCurve dragEaseCurve{0.05f, core::TimeProvider::defaultTimeProvider()};
    };

    /// Asks a finger to come from clearly above.
    struct MinThresholdsConfig
    {
        bool enabled = false;
        /// Height above the surface that a finger must exceed to enter hover.
        float minNormal = 0.01f;
    };

    /// Releases a press when the finger retreats, though it is still under the surface.
    struct RecoilAssistConfig
    {
        bool enabled = true;
        /// Retreat from the deepest point of the press that releases it.
        float exitDistance = 0.02f;
        /// Way in from the shallowest point since the release that presses again.
        float reEnterDistance = 0.02f;
    };

    struct Config
    {
        /// Height within which hover begins.
        float enterHoverNormal = 0.03f;
        /// Distance outside the patch within which hover begins.
        float enterHoverTangent = 0.0f;
        /// Height within which a hovering finger stays.
        float exitHoverNormal = 0.05f;
        /// Distance outside the patch within which a hovering finger stays.
        float exitHoverTangent = 0.0f;
        /// Depth beyond which a press is cancelled; no limit unless greater than 0.
        float cancelSelectNormal = 0.3f;
        /// Distance outside the patch beyond which a press is cancelled; no limit unless greater than 0.
        float cancelSelectTangent = 0.03f;
        PositionPinningConfig positionPinning;
        DragThresholdingConfig dragThresholds;
        MinThresholdsConfig minThresholds;
        RecoilAssistConfig recoilAssist;
    };

    /// Normalises its copy of the config, once: the exit limits reach at least as far as the enter limits, a
    /// sideways cancel limit at least as far as the exit limit, and the minimum height no farther than the
    /// enter limit. A null patch ends the process. Enabled and registered on return.
    PokeInteractable(const Config& config, std::shared_ptr<surface::ISurfacePatch> surfacePatch,
                     std::shared_ptr<IPointableElement> pointableElement);
    ~PokeInteractable() override;

    PokeInteractable(const PokeInteractable&) = delete;
    PokeInteractable& operator=(const PokeInteractable&) = delete;

    void enable() override;
    void disable() override;

    InteractableRegistry<PokeInteractor, PokeInteractable>& getRegistry() override;
    PokeInteractable* getInteractablePtr() override;

    /// The one registry of the kind; this is how every PokeInteractor finds its candidates.
    static InteractableRegistry<PokeInteractor, PokeInteractable>& getStaticRegistry();

    /// All enabled ones by where they are.
    static search::SurfaceIndex& getStaticIndex();
    const search::Place& getPlace() const { return place_; }
    const SurfaceMotion& getMotion() const { return motion_; }

    /// Whether who may press it depends on more than its state, or it was away for a while: a finger then has
    /// to look at it in each frame to know what it has met.
    bool isSelective() const;

    /// Closest point on the patch, without a limit of distance.
    bool closestSurfacePatchHit(const Vector3f& point, surface::SurfaceHit& hit) const;

    /// Closest point on the whole surface behind the patch, without a limit of distance.
    bool closestBackingSurfaceHit(const Vector3f& point, surface::SurfaceHit& hit) const;

    /// Unchecked: with a null patch the object must not take part in another update.
    void setSurfacePatch(std::shared_ptr<surface::ISurfacePatch> surfacePatch);
    surface::ISurfacePatch& getSurfacePatch() const { return *surfacePatch_; }

    /// The live config; what is written to it is not normalised again. Every search looks at an interactable
    /// that may change unheard from now on.
    Config& getConfig();
    const Config& getConfig() const { return config_; }

    const PositionPinningConfig& getPositionPinning() const { return config_.positionPinning; }
    void setPositionPinning(const PositionPinningConfig& pinning) { config_.positionPinning = pinning; }
    const DragThresholdingConfig& getDragThresholds() const { return config_.dragThresholds; }
    const MinThresholdsConfig& getMinThresholds() const { return config_.minThresholds; }

    float getEnterHoverNormal() const { return config_.enterHoverNormal; }
    float getEnterHoverTangent() const { return config_.enterHoverTangent; }
    float getExitHoverNormal() const { return config_.exitHoverNormal; }
    float getExitHoverTangent() const { return config_.exitHoverTangent; }
    float getCancelSelectNormal() const { return config_.cancelSelectNormal; }
    float getCancelSelectTangent() const { return config_.cancelSelectTangent; }

    /// Two candidates nearer to each other than this are told apart by their tangent distance.
    float getCloseDistanceThreshold() const { return closeDistanceThreshold_; }
    void setCloseDistanceThreshold(float threshold);

    /// Decides between two candidates that are equally far.
    int getTiebreakerScore() const { return tiebreakerScore_; }
    void setTiebreakerScore(int score) { tiebreakerScore_ = score; }

    /// Where the interactors' tables keep what they remember about this interactable.
    const utility::SlotIndex& getSlot() const { return slot_; }

private:
    void enterIndex();
    void leaveIndex();
    void listenToPatch();
    void surfaceChanged() override;
    search::Region findRegion() const;
    Posef findPose() const;

    Config config_;
    std::shared_ptr<surface::ISurfacePatch> surfacePatch_;
    float closeDistanceThreshold_ = 0.0f;
    int tiebreakerScore_ = 0;
    bool hasLiveConfig_ = false;
    bool wasAway_ = false;
    utility::SlotIndex slot_;
    search::Place place_{*this};
    SurfaceMotion motion_;
};

} // namespace velk::interaction
