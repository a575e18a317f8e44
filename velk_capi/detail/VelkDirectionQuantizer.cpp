// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkDirectionQuantizer.h"

#include "math/Aliases.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"

#include <memory>

namespace velk::capi::direction_quantizer
{

using detection::DirectionQuantizer;

namespace internal
{

ObjectRegistry<DirectionQuantizer, VelkDirectionQuantizerHandle>& getRegistry()
{
    static velk::common::NeverDestroyed<ObjectRegistry<DirectionQuantizer, VelkDirectionQuantizerHandle>>
        registry;
    return *registry;
}

} // namespace internal

VelkDirectionQuantizerHandle create(const talpVector3f* direction, float middleAngle, float farAngle)
{
    const Vector3f reference = direction == nullptr ? Vector3f() : SpaceConversions::talpToTal(*direction);
    return internal::insert(std::make_shared<DirectionQuantizer>(reference, middleAngle, farAngle));
}

int32_t destroy(VelkDirectionQuantizerHandle quantizer)
{
    return internal::getRegistry().destroy(quantizer);
}

int32_t update(VelkDirectionQuantizerHandle quantizer, const talpVector3f* value)
{
    auto* target = internal::getRawPtr<DirectionQuantizer>(quantizer);
    if (target == nullptr || value == nullptr) {
        return kFailure;
    }
    DirectionQuantizer::Levels* levels = nullptr;
    return target->convert(SpaceConversions::talpToTal(*value), &levels) == 1 ? kSuccess : kFailure;
}

int32_t getValue(VelkDirectionQuantizerHandle quantizer, int axis, int* alignment)
{
    const auto* target = internal::getRawPtr<DirectionQuantizer>(quantizer);
    DirectionQuantizer::Alignment level = DirectionQuantizer::AlignmentNone;
    if (target == nullptr || alignment == nullptr ||
        !target->findLevel(static_cast<DirectionQuantizer::Axis>(axis), level)) {
        return kFailure;
    }
    *alignment = static_cast<int>(level);
    return kSuccess;
}

} // namespace velk::capi::direction_quantizer
