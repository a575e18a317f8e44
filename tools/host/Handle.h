// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include <velk/velk.h>

namespace velk_tools
{

/// Throws when a call that can't fail in a sound host did fail: a fault of this program, not of its input.
inline void expect(int32_t status, const char* call)
{
    if (status < 0) {
        throw std::logic_error(std::string(call) + " answered " + std::to_string(status));
    }
}

/// How most hosts treat handles.
struct PlainUse
{
    template <typename Id>
    static void created(Id id)
    {
        expect(static_cast<int32_t>(id), "creating an object");
    }

    template <auto Destroy, typename Id>
    static void destroy(Id id)
    {
        Destroy(id);
    }
};

/// Owns what a velk handle stands for. Policy is told of each new handle and ends it.
template <typename Id, auto Destroy, typename Policy = PlainUse>
class Handle
{
public:
    explicit Handle(Id id)
        : id_(id)
    {
        Policy::created(id);
    }

    Handle(Handle&& other) noexcept
        : id_(std::exchange(other.id_, static_cast<Id>(-1)))
    {
    }

    Handle& operator=(Handle&& other) noexcept
    {
        std::swap(id_, other.id_);
        return *this;
    }

    ~Handle()
    {
        if (static_cast<int32_t>(id_) >= 0) {
            Policy::template destroy<Destroy>(id_);
        }
    }

    operator Id() const { return id_; }

private:
    Id id_;
};

using Selector = Handle<VelkSelectorHandle, velk_Selector_Destroy>;
using Interactor = Handle<VelkInteractorHandle, velk_Interactor_Destroy>;
using Interactable = Handle<VelkInteractableHandle, velk_Interactable_Destroy>;
using PointableSurface = Handle<VelkPointableSurfaceHandle, velk_PointableSurface_Destroy>;
using SurfacePatch = Handle<VelkSurfacePatchHandle, velk_SurfacePatch_Destroy>;
using ButtonVisual = Handle<VelkPokeButtonVisualHandle, velk_PokeButtonVisual_Destroy>;
using DataSource = Handle<VelkDataSourceHandle, velk_DataSource_Destroy>;
using PokeLimiter = Handle<VelkHandPokeLimiterVisualHandle, velk_HandPokeLimiterVisual_Destroy>;
using PinchGrab = Handle<VelkPinchGrabAPIHandle, velk_FingerPinchGrabAPI_Destroy>;
using PalmGrab = Handle<VelkPalmGrabAPIHandle, velk_FingerPalmGrabAPI_Destroy>;
using Quantizer = Handle<VelkDirectionQuantizerHandle, velk_DirectionQuantizer_Destroy>;
using Recognizer = Handle<VelkDirectionRecognizerHandle, velk_DirectionRecognizer_Destroy>;

} // namespace velk_tools
