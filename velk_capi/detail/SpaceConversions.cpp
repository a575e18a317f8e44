// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/SpaceConversions.h"

namespace SpaceConversions
{

TAL::Pose<float> talpToTal(const talpPosef& pose)
{
    return TAL::Pose<float>(talpToTal(pose.orientation), talpToTal(pose.position));
}

TAL::Quat<float> talpToTal(const talpQuatf& quat)
{
    return TAL::Quat<float>(quat.x, quat.y, quat.z, quat.w);
}

TAL::Vector3<float> talpToTal(const talpVector3f& vector)
{
    return TAL::Vector3<float>(vector.x, vector.y, vector.z);
}

TAL::Vector2<float> talpToTal(const talpVector2f& vector)
{
    return TAL::Vector2<float>(vector.x, vector.y);
}

float talpToTal(const float& length)
{
    return length;
}

TAL::Vector3<float> talpToTal_OnlyScale(const talpVector3f& extent)
{
    return TAL::Vector3<float>(extent.x, extent.y, extent.z);
}

talpPosef talToTalp(const TAL::Pose<float>& pose)
{
    return talpPosef{talToTalp(pose.rotation), talToTalp(pose.translation)};
}

talpQuatf talToTalp(const TAL::Quat<float>& quat)
{
    return talpQuatf{quat.x, quat.y, quat.z, quat.w};
}

talpVector3f talToTalp(const TAL::Vector3<float>& vector)
{
    return talpVector3f{vector.x, vector.y, vector.z};
}

float talToTalp(const float& length)
{
    return length;
}

talpVector3f talToTalp_NoScale(const TAL::Vector3<float>& direction)
{
    return talpVector3f{direction.x, direction.y, direction.z};
}

velk_SurfaceHit coreToCapi(const velk::interaction::surface::SurfaceHit& hit)
{
    return velk_SurfaceHit{talToTalp(hit.point), talToTalp_NoScale(hit.normal), talToTalp(hit.distance)};
}

} // namespace SpaceConversions
