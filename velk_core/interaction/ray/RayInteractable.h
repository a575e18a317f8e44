// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Ray.h"
#include "velk_core/interaction/InteractableRegistry.h"
#include "velk_core/interaction/pointer/PointerInteractable.h"
#include "velk_core/interaction/ray/IMovementProvider.h"
#include "velk_core/interaction/search/SurfaceIndex.h"
#include "velk_core/interaction/surfaces/ISurface.h"
#include "velk_core/interaction/surfaces/SurfaceChanges.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace velk::interaction
{

class RayInteractor;

/// What a ray points at: up to three surfaces and a source of movement. It only answers queries; all rules of
/// choosing lie in RayInteractor.
class RayInteractable : public PointerInteractable<RayInteractor, RayInteractable>,
                        private surface::ChangeListener
{
public:
    /// Registered and enabled on return. `surface` is hit by the search for candidates and must not be empty;
    /// `selectSurface` is hit while selected, and is `surface` when left empty; `magnetismSurface`, if any,
    /// draws rays that hit nothing directly.
    explicit RayInteractable(std::shared_ptr<surface::ISurface> surface,
                             std::shared_ptr<IPointableElement> pointableElement = nullptr,
                             std::shared_ptr<surface::ISurface> selectSurface = nullptr,
                             std::unique_ptr<movement::IMovementProvider> movementProvider = nullptr,
                             std::shared_ptr<surface::ISurface> magnetismSurface = nullptr);
    ~RayInteractable() override;

    RayInteractable(const RayInteractable&) = delete;
    RayInteractable& operator=(const RayInteractable&) = delete;

    void enable() override;
    void disable() override;

    /// Unchecked: the host must not leave the interactable without a surface.
    surface::ISurface& getSurface() const;

    /// Replaces the surface of the candidate search alone: a selected ray goes on hitting the select surface,
    /// even where that was the old surface.
    void setSurface(std::shared_ptr<surface::ISurface> surface);

    bool raycastSelectSurface(const math::Ray& ray, surface::SurfaceHit& hit, float maxDistance) const;

    /// False without a magnetism surface.
    bool raycastMagnetismSurface(const math::Ray& ray, surface::SurfaceHit& hit, float maxDistance) const;

    /// Empty without a movement provider.
    std::unique_ptr<movement::IMovement> generateMovement(const Posef& from, const Posef& to) const;

    int getTiebreakerScore() const { return tiebreakerScore_; }

    static InteractableRegistry<RayInteractor, RayInteractable>& getStaticRegistry();

    /// Rises from each one made to the next.
    uint64_t getOrder() const { return place_.getEntered(); }

    /// All enabled ones by where they are, and how many of these have a magnetism surface.
    static search::SurfaceIndex& getStaticIndex();
    static std::size_t getMagneticCount();

    InteractableRegistry<RayInteractor, RayInteractable>& getRegistry() override;
    RayInteractable* getInteractablePtr() override;

private:
    void enterIndex();
    void leaveIndex();
    void listenToSurface();
    void surfaceChanged() override;

    static std::size_t magneticCount_;

    std::shared_ptr<surface::ISurface> surface_;
    std::shared_ptr<surface::ISurface> selectSurface_;
    std::shared_ptr<surface::ISurface> magnetismSurface_;
    std::unique_ptr<movement::IMovementProvider> movementProvider_;
    // Nothing sets it, so the order of creation decides between hits of equal distance.
    int tiebreakerScore_ = 0;
    search::Place place_{*this};
};

} // namespace velk::interaction
