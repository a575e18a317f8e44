// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/AxisAlignedBox.h"
#include "velk_core/interaction/surfaces/BoundsClipper.h"
#include "velk_core/interaction/surfaces/ISurfacePatch.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"
#include "velk_core/interaction/surfaces/SurfaceChanges.h"

#include <memory>
#include <vector>

namespace velk::interaction::surface
{

/// The part of a plane that lies in all of a list of boxes: a poke button on its panel. Clippers with
/// nothing in common make an empty patch, which every query misses. A clipper's frame may move at any time:
/// the common box is kept only where plane and frames tell of their changes.
class ClippedPlaneSurface : public ISurfacePatch, public ChangeSource
{
public:
    /// Shares ownership of the plane, which must not be null. Without clippers the patch is unlimited.
    explicit ClippedPlaneSurface(std::shared_ptr<PointablePlane> backingSurface);
    ClippedPlaneSurface(std::shared_ptr<PointablePlane> backingSurface, std::vector<BoundsClipper> clippers);

    Posef getPose() const override;

    /// A hit of the plane that lies in the boxes, depth included.
    bool raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const override;

    /// The plane's closest point, moved into the boxes. `maxDistance` is held against the height over
    /// the plane, then against the way to the point found.
    bool closestSurfacePoint(const Vector3f& point, SurfaceHit& hit, float maxDistance) const override;

    ISurface& getBackingSurface() const override;
    const PointablePlane& getPlane() const { return *backingSurface_; }

    /// Whether this knows of each movement of the plane and of the clippers' frames, and passes it on.
    bool tellsOfChanges() const { return tellsOfChanges_; }

    /// The bounds of the plane, not of the patch.
    velk::math::AxisAlignedBox getBounds() const override;

    Vector3f getNormal() const;
    void setPose(const Posef& pose);
    void setSize(const Vector2f& size);

    /// The box common to all clippers, in the plane's frame. False, with `bounds` zeroed, if there is
    /// none.
    bool getLocalClipBounds(velk::math::AxisAlignedBox& bounds) const;

    /// The point of the clip box nearest to `point`, both in world space.
    bool clampPoint(const Vector3f& point, Vector3f& clamped) const;

private:
    /// Hears of one thing that the patch depends on.
    class Dependence : public ChangeListener
    {
    public:
        explicit Dependence(ClippedPlaneSurface& patch)
            : patch_(patch)
        {
        }
        void surfaceChanged() override { patch_.dependenceChanged(); }

    private:
        ClippedPlaneSurface& patch_;
    };

    bool listenToFrames();
    void dependenceChanged();
    bool computeLocalClipBounds(velk::math::AxisAlignedBox& bounds) const;

    std::shared_ptr<PointablePlane> backingSurface_;
    std::vector<BoundsClipper> clippers_;
    Dependence plane_{*this};
    std::vector<std::unique_ptr<Dependence>> frames_; // those that are not the plane
    bool tellsOfChanges_ = false;
    // As last computed; of use where the patch hears of changes.
    mutable velk::math::AxisAlignedBox clipBounds_;
    mutable bool hasClipBounds_ = false;
    mutable bool isCurrent_ = false;
    // A finger asks up to three times about one point.
    mutable Vector3f clampedFrom_;
    mutable Vector3f clampedTo_;
    mutable bool hasClamped_ = false;
};

} // namespace velk::interaction::surface
