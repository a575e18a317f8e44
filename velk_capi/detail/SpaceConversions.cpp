// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/SpaceConversions.h"

namespace SpaceConversions
{

TAL::Posef talpToTal(const talpPosef& pose)
{
    return TAL::Posef(talpToTal(pose.orientation), talpToTal(pose.position));
}

TAL::Quatf talpToTal(const talpQuatf& quat)
{
    return TAL::Quatf(quat.x, quat.y, quat.z, quat.w);
}

TAL::Vector3f talpToTal(const talpVector3f& vector)
{
    return TAL::Vector3f(vector.x, vector.y, vector.z);
}

TAL::Vector2f talpToTal(const talpVector2f& vector)
{
    return TAL::Vector2f(vector.x, vector.y);
}

float talpToTal(const float& length)
{
    return length;
}

TAL::Vector3f talpToTal_OnlyScale(const talpVector3f& extent)
{
    return TAL::Vector3f(extent.x, extent.y, extent.z);
}

talpPosef talToTalp(const TAL::Posef& pose)
{
    return talpPosef{talToTalp(pose.rotation), talToTalp(pose.translation)};
}

talpQuatf talToTalp(const TAL::Quatf& quat)
{
    return talpQuatf{quat.x, quat.y, quat.z, quat.w};
}

talpVector3f talToTalp(const TAL::Vector3f& vector)
{
    return talpVector3f{vector.x, vector.y, vector.z};
}

float talToTalp(const float& length)
{
    return length;
}

talpVector3f talToTalp_NoScale(const TAL::Vector3f& direction)
{
    return talpVector3f{direction.x, direction.y, direction.z};
}

velk_SurfaceHit coreToCapi(const velk::interaction::surface::SurfaceHit& hit)
{
    return velk_SurfaceHit{talToTalp(hit.point), talToTalp_NoScale(hit.normal), talToTalp(hit.distance)};
}

} // namespace SpaceConversions
