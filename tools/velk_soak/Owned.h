// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Account.h"
#include "host/Handle.h"

namespace velk_soak
{

/// Checks what the library promises of handles. A handle that went is used once more, as a careless host
/// does.
template <auto Use>
struct CarelessUse
{
    template <typename Id>
    static inline Id newest = static_cast<Id>(-1);

    template <typename Id>
    static void created(Id id)
    {
        check(id > newest<Id>, "handles rise and are not given out again");
        newest<Id> = id;
        ++velk_soak::created;
    }

    template <auto Destroy, typename Id>
    static void destroy(Id id)
    {
        check(Destroy(id) == 0, "a live handle can be destroyed");
        check(Use(id) == -1 && Destroy(id) == -1, "a destroyed handle is refused");
    }
};

template <typename Id, auto Destroy, auto Use = Destroy>
using Owned = velk_tools::Handle<Id, Destroy, CarelessUse<Use>>;

using Interactor = Owned<VelkInteractorHandle, velk_Interactor_Destroy, velk_Interactor_Update>;
using Interactable = Owned<VelkInteractableHandle, velk_Interactable_Destroy>;
using Selector = Owned<VelkSelectorHandle, velk_Selector_Destroy, velk_Selector_Select>;
using PlaneOrBox = Owned<VelkPointableSurfaceHandle, velk_PointableSurface_Destroy>;
using Patch = Owned<VelkSurfacePatchHandle, velk_SurfacePatch_Destroy>;
using Cap = Owned<VelkPokeButtonVisualHandle, velk_PokeButtonVisual_Destroy>;
using Hand = Owned<VelkDataSourceHandle, velk_DataSource_Destroy, velk_DataSource_Update>;
using Limiter = Owned<VelkHandPokeLimiterVisualHandle, velk_HandPokeLimiterVisual_Destroy,
                      velk_HandPokeLimiterVisual_Update>;
using Pinch = Owned<VelkPinchGrabAPIHandle, velk_FingerPinchGrabAPI_Destroy>;
using Palm = Owned<VelkPalmGrabAPIHandle, velk_FingerPalmGrabAPI_Destroy>;
using Quantizer = Owned<VelkDirectionQuantizerHandle, velk_DirectionQuantizer_Destroy>;
using Recognizer = Owned<VelkDirectionRecognizerHandle, velk_DirectionRecognizer_Destroy>;
using Field = Owned<VelkProximityFieldHandle, velk_ProximityField_Destroy>;

} // namespace velk_soak
