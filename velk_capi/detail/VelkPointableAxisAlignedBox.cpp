// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkPointableAxisAlignedBox.h"

#include "math/Aliases.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkPointableSurface.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"

#include <algorithm>
#include <memory>

namespace velk::capi::pointable_axis_aligned_box
{

using interaction::surface::PointableAxisAlignedBox;

namespace
{

constexpr int32_t kNullCentroid = -4;

Vector3f valueOrZero(const talpVector3f* vector)
{
    return vector == nullptr ? Vector3f::ZERO : SpaceConversions::talpToTal(*vector);
}

void setOrderedBounds(PointableAxisAlignedBox& box, const Vector3f& a, const Vector3f& b)
{
    box.setBounds(Vector3f(std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)),
                  Vector3f(std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)));
}

} // namespace

VelkPointableSurfaceHandle create(const talpVector3f* centroid, const talpVector3f* size)
{
    return pointable_surface::insert(
        std::make_shared<PointableAxisAlignedBox>(valueOrZero(centroid), valueOrZero(size)));
}

int32_t setBounds(VelkPointableSurfaceHandle box, const talpVector3f* lower, const talpVector3f* upper)
{
    auto* object = pointable_surface::getRawPtr<PointableAxisAlignedBox>(box);
    if (object == nullptr) {
        return kFailure;
    }
    if (lower != nullptr && upper != nullptr) {
        setOrderedBounds(*object, SpaceConversions::talpToTal(*lower), SpaceConversions::talpToTal(*upper));
    } else if (lower != nullptr) {
        object->setLowerBound(SpaceConversions::talpToTal(*lower));
    } else if (upper != nullptr) {
        object->setUpperBound(SpaceConversions::talpToTal(*upper));
    }
    return kSuccess;
}

int32_t setCentroidAndSize(VelkPointableSurfaceHandle box, const talpVector3f* centroid,
                           const talpVector3f* size)
{
    auto* object = pointable_surface::getRawPtr<PointableAxisAlignedBox>(box);
    if (object == nullptr) {
        return kFailure;
    }
    if (centroid != nullptr && size != nullptr) {
        object->setCentroidAndSize(SpaceConversions::talpToTal(*centroid),
                                   SpaceConversions::talpToTal(*size));
    } else if (centroid != nullptr) {
        object->setCentroid(SpaceConversions::talpToTal(*centroid));
    } else if (size != nullptr) {
        object->setSize(SpaceConversions::talpToTal(*size));
    }
    return kSuccess;
}

int32_t setCentroid(VelkPointableSurfaceHandle box, const talpVector3f* centroid)
{
    auto* object = pointable_surface::getRawPtr<PointableAxisAlignedBox>(box);
    if (object == nullptr) {
        return kFailure;
    }
    if (centroid == nullptr) {
        return kNullCentroid;
    }
    object->setCentroid(SpaceConversions::talpToTal(*centroid));
    return kSuccess;
}

} // namespace velk::capi::pointable_axis_aligned_box
