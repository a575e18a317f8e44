// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkDirectionRecognizer.h"

#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkDirectionQuantizer.h"
#include "velk_common/NeverDestroyed.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace velk::capi::direction_recognizer
{

using detection::DirectionQuantizer;

namespace internal
{

ObjectRegistry<DirectionRecognizer, VelkDirectionRecognizerHandle>& getRegistry()
{
    static velk::common::NeverDestroyed<ObjectRegistry<DirectionRecognizer, VelkDirectionRecognizerHandle>>
        registry;
    return *registry;
}

} // namespace internal

namespace
{

using Wanted = std::vector<std::pair<DirectionQuantizer::Axis, DirectionQuantizer::Alignment>>;

/// One for all calls: a list per frame then takes no memory per frame. Empty while there is no recognizer.
Wanted& scratchList()
{
    static velk::common::NeverDestroyed<Wanted> list;
    return *list;
}

} // namespace

VelkDirectionRecognizerHandle create()
{
    return internal::insert(std::make_shared<DirectionRecognizer>());
}

int32_t destroy(VelkDirectionRecognizerHandle recognizer)
{
    const int32_t result = internal::getRegistry().destroy(recognizer);
    if (internal::getRegistry().isEmpty()) {
        Wanted().swap(scratchList());
    }
    return result;
}

int32_t update(VelkDirectionRecognizerHandle recognizer, VelkDirectionQuantizerHandle quantizer,
               const velk_DetectionParameterList* list)
{
    if (list == nullptr) {
        return kFailure;
    }
    auto* target = internal::getRawPtr<DirectionRecognizer>(recognizer);
    const auto* source = direction_quantizer::internal::getRawPtr<DirectionQuantizer>(quantizer);
    if (target == nullptr || source == nullptr) {
        return kFailure;
    }
    Wanted& wanted = scratchList();
    wanted.clear();
    wanted.reserve(static_cast<std::size_t>(std::max(list->count, 0)));
    for (int32_t i = 0; i < list->count; ++i) {
        wanted.emplace_back(static_cast<DirectionQuantizer::Axis>(list->entries[i].axis),
                            static_cast<DirectionQuantizer::Alignment>(list->entries[i].alignment));
    }
    return target->update(wanted, source->getKeyQuantValueMap()) == 1 ? kSuccess : kFailure;
}

int32_t isActive(VelkDirectionRecognizerHandle recognizer, bool* isActive)
{
    const auto* target = internal::getRawPtr<DirectionRecognizer>(recognizer);
    if (target == nullptr || isActive == nullptr) {
        return kFailure;
    }
    *isActive = target->isActive();
    return kSuccess;
}

} // namespace velk::capi::direction_recognizer
