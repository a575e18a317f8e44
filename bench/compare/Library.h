// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <string>

namespace velk::compare
{

/// A build of the shared library, loaded beside others: each has its own objects.
class Library
{
    struct Symbol
    {
        void* address;
        template <typename Function>
        operator Function*() const // NOLINT(google-explicit-constructor): names no function type twice
        {
            return reinterpret_cast<Function*>(address);
        }
    };

    void* image_;
    Symbol find(const char* name) const;

public:
    /// A library that is loaded already is loaded again, from a copy. Never unloaded: that can take 10
    /// seconds.
    explicit Library(const std::string& path);

#define VELK_CALL(name) decltype(&velk_##name) name = find("velk_" #name) // NOLINT: the name is needed twice
    VELK_CALL(Interactor_Destroy);
    VELK_CALL(Interactor_Update);
    VELK_CALL(Interactor_GetState);
    VELK_CALL(Interactor_GetInteractable);
    VELK_CALL(Interactable_Destroy);
    VELK_CALL(PointablePlane_Create);
    VELK_CALL(PointableSurface_SetPose);
    VELK_CALL(PointableSurface_Destroy);
    VELK_CALL(RayInteractable_Create);
    VELK_CALL(RayInteractor_Create);
    VELK_CALL(RayInteractor_SetMaxRayLength);
    VELK_CALL(RayInteractor_SetPose);
    VELK_CALL(RayInteractor_GetOrigin);
    VELK_CALL(ClippedPlaneSurface_Create);
    VELK_CALL(SurfacePatch_Destroy);
    VELK_CALL(PokeInteractable_Create);
    VELK_CALL(PokeInteractable_SetSurface);
    VELK_CALL(PokeInteractor_Create);
    VELK_CALL(PokeInteractor_SetPointTransform);
    VELK_CALL(DataSource_Create);
    VELK_CALL(DataSource_Update);
    VELK_CALL(DataSource_GetData);
    VELK_CALL(ExternalHandSource_SetData);
    VELK_CALL(DataModifier_Create);
    VELK_CALL(FingerPinchGrabAPI_Create);
    VELK_CALL(FingerPinchGrabAPI_UpdateHandData);
    VELK_CALL(FingerPinchGrabAPI_GetFingerIsGrabbing);
    VELK_CALL(FingerPinchGrabAPI_GetFingerGrabScore);
    VELK_CALL(FingerPalmGrabAPI_Create);
    VELK_CALL(FingerPalmGrabAPI_UpdateHandData);
    VELK_CALL(FingerPalmGrabAPI_GetFingerIsGrabbing);
    VELK_CALL(FingerPalmGrabAPI_GetFingerGrabScore);
#undef VELK_CALL
};

} // namespace velk::compare
