// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk/velk.h"

#include "velk_capi/detail/VelkBoxProximityField.h"
#include "velk_capi/detail/VelkClippedPlaneSurface.h"
#include "velk_capi/detail/VelkCommon.h"
#include "velk_capi/detail/VelkDataSource.h"
#include "velk_capi/detail/VelkDirectionQuantizer.h"
#include "velk_capi/detail/VelkDirectionRecognizer.h"
#include "velk_capi/detail/VelkFingerPalmGrabAPI.h"
#include "velk_capi/detail/VelkFingerPinchGrabAPI.h"
#include "velk_capi/detail/VelkHandPokeLimiterVisual.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_capi/detail/VelkPointableAxisAlignedBox.h"
#include "velk_capi/detail/VelkPointablePlane.h"
#include "velk_capi/detail/VelkPointableSurface.h"
#include "velk_capi/detail/VelkPokeButtonVisual.h"
#include "velk_capi/detail/VelkPokeInteractable.h"
#include "velk_capi/detail/VelkPokeInteractor.h"
#include "velk_capi/detail/VelkProximityField.h"
#include "velk_capi/detail/VelkRayInteractable.h"
#include "velk_capi/detail/VelkRayInteractor.h"
#include "velk_capi/detail/VelkSelector.h"
#include "velk_capi/detail/VelkSurfacePatch.h"
#include "velk_capi/detail/VelkTelemetry.h"

int32_t velk_Interactor_Destroy(VelkInteractorHandle interactor)
{
    return velk::capi::interactor::destroy(interactor);
}

int32_t velk_Interactor_Update(VelkInteractorHandle interactor)
{
    return velk::capi::interactor::update(interactor);
}

int32_t velk_Interactor_SetSelector(VelkInteractorHandle interactor, VelkSelectorHandle selector)
{
    return velk::capi::interactor::setSelector(interactor, selector);
}

int32_t velk_Interactor_GetState(VelkInteractorHandle interactor, VelkInteractorState* state)
{
    return velk::capi::interactor::getState(interactor, state);
}

VelkInteractableHandle velk_Interactor_GetInteractable(VelkInteractorHandle interactor)
{
    return velk::capi::interactor::getInteractable(interactor);
}

int32_t velk_Interactor_GetPayload(VelkInteractorHandle interactor, VelkPayload** payload)
{
    return velk::capi::interactor::getPayload(interactor, payload);
}

int32_t velk_Interactor_SetPayload(VelkInteractorHandle interactor, VelkPayload* payload)
{
    return velk::capi::interactor::setPayload(interactor, payload);
}

int32_t velk_Interactable_Destroy(VelkInteractableHandle interactable)
{
    return velk::capi::interactable::destroy(interactable);
}

int32_t velk_Interactable_GetState(VelkInteractableHandle interactable, VelkInteractableState* state)
{
    return velk::capi::interactable::getState(interactable, state);
}

int32_t velk_Interactable_GetPayload(VelkInteractableHandle interactable, VelkPayload** payload)
{
    return velk::capi::interactable::getPayload(interactable, payload);
}

int32_t velk_Interactable_SetPayload(VelkInteractableHandle interactable, VelkPayload* payload)
{
    return velk::capi::interactable::setPayload(interactable, payload);
}

VelkSelectorHandle velk_Selector_Create()
{
    return velk::capi::selector::create();
}

int32_t velk_Selector_Destroy(VelkSelectorHandle selector)
{
    return velk::capi::selector::destroy(selector);
}

int32_t velk_Selector_Select(VelkSelectorHandle selector)
{
    return velk::capi::selector::select(selector);
}

int32_t velk_Selector_Unselect(VelkSelectorHandle selector)
{
    return velk::capi::selector::unselect(selector);
}

VelkPointableSurfaceHandle velk_PointablePlane_Create(const talpPosef* pose, const talpVector2f* size)
{
    return velk::capi::pointable_plane::create(pose, size);
}

int32_t velk_PointablePlane_GetNormal(VelkPointableSurfaceHandle plane, talpVector3f* normal)
{
    return velk::capi::pointable_plane::getNormal(plane, normal);
}

int32_t velk_PointablePlane_SetSize(VelkPointableSurfaceHandle plane, const talpVector2f* size)
{
    return velk::capi::pointable_plane::setSize(plane, size);
}

int32_t velk_PointableSurface_SetPose(VelkPointableSurfaceHandle plane, const talpPosef* pose)
{
    return velk::capi::pointable_surface::setPose(plane, pose);
}

int32_t velk_PointableSurface_Destroy(VelkPointableSurfaceHandle surface)
{
    return velk::capi::pointable_surface::destroy(surface);
}

VelkInteractableHandle velk_RayInteractable_Create(VelkPointableSurfaceHandle surface)
{
    return velk::capi::ray_interactable::create(surface);
}

int32_t velk_RayInteractable_SetSurface(VelkInteractableHandle interactable,
                                        VelkPointableSurfaceHandle surface)
{
    return velk::capi::ray_interactable::setSurface(interactable, surface);
}

VelkInteractorHandle velk_RayInteractor_Create()
{
    return velk::capi::ray_interactor::create();
}

int32_t velk_RayInteractor_SetMaxRayLength(VelkInteractorHandle interactor, float length)
{
    return velk::capi::ray_interactor::setMaxRayLength(interactor, length);
}

int32_t velk_RayInteractor_SetPose(VelkInteractorHandle interactor, const talpPosef* pose)
{
    return velk::capi::ray_interactor::setPose(interactor, pose);
}

int32_t velk_RayInteractor_GetOrigin(VelkInteractorHandle interactor, talpVector3f* origin)
{
    return velk::capi::ray_interactor::getOrigin(interactor, origin);
}

int32_t velk_RayInteractor_GetEnd(VelkInteractorHandle interactor, talpVector3f* end)
{
    return velk::capi::ray_interactor::getEnd(interactor, end);
}

VelkPointableSurfaceHandle velk_PointableAxisAlignedBox_Create(const talpVector3f* centroid,
                                                               const talpVector3f* size)
{
    return velk::capi::pointable_axis_aligned_box::create(centroid, size);
}

int32_t velk_PointableAxisAlignedBox_SetBounds(VelkPointableSurfaceHandle box, const talpVector3f* lower,
                                               const talpVector3f* upper)
{
    return velk::capi::pointable_axis_aligned_box::setBounds(box, lower, upper);
}

int32_t velk_PointableAxisAlignedBox_SetCentroidAndSize(VelkPointableSurfaceHandle box,
                                                        const talpVector3f* centroid,
                                                        const talpVector3f* size)
{
    return velk::capi::pointable_axis_aligned_box::setCentroidAndSize(box, centroid, size);
}

int32_t velk_PointableAxisAlignedBox_SetCentroid(VelkPointableSurfaceHandle box, const talpVector3f* centroid)
{
    return velk::capi::pointable_axis_aligned_box::setCentroid(box, centroid);
}

VelkSurfacePatchHandle velk_ClippedPlaneSurface_Create(const talpPosef* pose,
                                                       const velk_BoundsClipper* clippers, int count)
{
    return velk::capi::clipped_plane_surface::create(pose, clippers, count);
}

int32_t velk_ClippedPlaneSurface_SetPose(VelkSurfacePatchHandle surface, const talpPosef* pose)
{
    return velk::capi::clipped_plane_surface::setPose(surface, pose);
}

int32_t velk_SurfacePatch_Destroy(VelkSurfacePatchHandle patch)
{
    return velk::capi::surface_patch::destroy(patch);
}

VelkInteractableHandle velk_PokeInteractable_Create(VelkSurfacePatchHandle surfacePatch)
{
    return velk::capi::poke_interactable::create(surfacePatch);
}

VelkInteractableHandle velk_PokeInteractable_CreateWithConfig(VelkSurfacePatchHandle surfacePatch,
                                                              const velk_PokeInteractableConfig* config)
{
    return velk::capi::poke_interactable::createWithConfig(surfacePatch, config);
}

int32_t velk_PokeInteractable_GetDefaultConfig(velk_PokeInteractableConfig* config)
{
    return velk::capi::poke_interactable::getDefaultConfig(config);
}

int32_t velk_PokeInteractable_SetSurface(VelkInteractableHandle interactable,
                                         VelkSurfacePatchHandle surfacePatch)
{
    return velk::capi::poke_interactable::setSurface(interactable, surfacePatch);
}

VelkInteractorHandle velk_PokeInteractor_Create()
{
    return velk::capi::poke_interactor::create();
}

int32_t velk_PokeInteractor_SetPointTransform(VelkInteractorHandle interactor, const talpPosef* pose)
{
    return velk::capi::poke_interactor::setPointTransform(interactor, pose);
}

VelkPokeButtonVisualHandle velk_PokeButtonVisual_Create(VelkInteractableHandle interactable,
                                                        const talpPosef* basePose, float maxExtent)
{
    return velk::capi::poke_button_visual::create(interactable, basePose, maxExtent);
}

int32_t velk_PokeButtonVisual_Destroy(VelkPokeButtonVisualHandle visual)
{
    return velk::capi::poke_button_visual::destroy(visual);
}

int32_t velk_PokeButtonVisual_UpdateBasePose(VelkPokeButtonVisualHandle visual, const talpPosef* basePose,
                                             float maxExtent)
{
    return velk::capi::poke_button_visual::updateBasePose(visual, basePose, maxExtent);
}

int32_t velk_PokeButtonVisual_GetCurrentExtent(VelkPokeButtonVisualHandle visual, float* extent)
{
    return velk::capi::poke_button_visual::getCurrentExtent(visual, extent);
}

int32_t velk_PokeButtonVisual_GetCurrentPose(VelkPokeButtonVisualHandle visual, talpPosef* pose)
{
    return velk::capi::poke_button_visual::getCurrentPose(visual, pose);
}

VelkDataSourceHandle velk_DataSource_Create(VelkDataSourceType type)
{
    return velk::capi::data_source::create(type);
}

int32_t velk_DataSource_Destroy(VelkDataSourceHandle source)
{
    return velk::capi::data_source::destroy(source);
}

int32_t velk_DataSource_Update(VelkDataSourceHandle source)
{
    return velk::capi::data_source::update(source);
}

int32_t velk_DataSource_GetData(VelkDataSourceHandle source, velk_HandData* data)
{
    return velk::capi::data_source::getData(source, data);
}

int32_t velk_DataSource_SetAttributeFloat(VelkDataSourceHandle source, int attributeId, float value)
{
    return velk::capi::data_source::setAttributeFloat(source, attributeId, value);
}

int32_t velk_ExternalHandSource_SetData(VelkDataSourceHandle source, const velk_HandData* data)
{
    return velk::capi::external_hand_source::setData(source, data);
}

VelkDataSourceHandle velk_DataModifier_Create(VelkDataModifierType type, VelkDataSourceHandle source)
{
    return velk::capi::data_modifier::create(type, source);
}

VelkHandPokeLimiterVisualHandle velk_HandPokeLimiterVisual_Create(VelkDataSourceHandle hand,
                                                                  VelkInteractorHandle interactor,
                                                                  VelkDataSourceHandle syntheticHand)
{
    return velk::capi::hand_poke_limiter_visual::create(hand, interactor, syntheticHand);
}

int32_t velk_HandPokeLimiterVisual_Destroy(VelkHandPokeLimiterVisualHandle visual)
{
    return velk::capi::hand_poke_limiter_visual::destroy(visual);
}

int32_t velk_HandPokeLimiterVisual_Update(VelkHandPokeLimiterVisualHandle visual)
{
    return velk::capi::hand_poke_limiter_visual::update(visual);
}

VelkPinchGrabAPIHandle velk_FingerPinchGrabAPI_Create()
{
    return velk::capi::fingerpinchgrab_api::create();
}

int32_t velk_FingerPinchGrabAPI_Destroy(VelkPinchGrabAPIHandle api)
{
    return velk::capi::fingerpinchgrab_api::destroy(api);
}

int32_t velk_FingerPinchGrabAPI_UpdateHandWristHMDData(VelkPinchGrabAPIHandle api,
                                                       const velk_HandPinchData* data,
                                                       const talpVector3f* wrist, const talpVector3f* hmd)
{
    return velk::capi::fingerpinchgrab_api::updateHandWristHMDData(api, data, wrist, hmd);
}

int32_t velk_FingerPinchGrabAPI_UpdateHandData(VelkPinchGrabAPIHandle api, const velk_HandPinchData* data)
{
    return velk::capi::fingerpinchgrab_api::updateHandData(api, data);
}

int32_t velk_FingerPinchGrabAPI_GetFingerIsGrabbing(VelkPinchGrabAPIHandle api, VelkHandFinger finger,
                                                    bool* isGrabbing)
{
    return velk::capi::fingerpinchgrab_api::getFingerIsGrabbing(api, finger, isGrabbing);
}

int32_t velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged(VelkPinchGrabAPIHandle api, VelkHandFinger finger,
                                                           bool targetGrabState, bool* hasChanged)
{
    return velk::capi::fingerpinchgrab_api::getFingerIsGrabbingChanged(api, finger, targetGrabState,
                                                                       hasChanged);
}

int32_t velk_FingerPinchGrabAPI_GetCenterOffset(VelkPinchGrabAPIHandle api, talpVector3f* offset)
{
    return velk::capi::fingerpinchgrab_api::getCenterOffset(api, offset);
}

int32_t velk_FingerPinchGrabAPI_GetFingerGrabScore(VelkPinchGrabAPIHandle api, VelkHandFinger finger,
                                                   float* score)
{
    return velk::capi::fingerpinchgrab_api::getFingerGrabScore(api, finger, score);
}

VelkPalmGrabAPIHandle velk_FingerPalmGrabAPI_Create()
{
    return velk::capi::fingerpalmgrab_api::create();
}

int32_t velk_FingerPalmGrabAPI_Destroy(VelkPalmGrabAPIHandle api)
{
    return velk::capi::fingerpalmgrab_api::destroy(api);
}

int32_t velk_FingerPalmGrabAPI_UpdateHandData(VelkPalmGrabAPIHandle api, const velk_HandPalmData* data)
{
    return velk::capi::fingerpalmgrab_api::updateHandData(api, data);
}

int32_t velk_FingerPalmGrabAPI_GetFingerIsGrabbing(VelkPalmGrabAPIHandle api, VelkHandFinger finger,
                                                   bool* isGrabbing)
{
    return velk::capi::fingerpalmgrab_api::getFingerIsGrabbing(api, finger, isGrabbing);
}

int32_t velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged(VelkPalmGrabAPIHandle api, VelkHandFinger finger,
                                                          bool targetGrabState, bool* hasChanged)
{
    return velk::capi::fingerpalmgrab_api::getFingerIsGrabbingChanged(api, finger, targetGrabState,
                                                                      hasChanged);
}

int32_t velk_FingerPalmGrabAPI_GetCenterOffset(VelkPalmGrabAPIHandle api, talpVector3f* offset)
{
    return velk::capi::fingerpalmgrab_api::getCenterOffset(api, offset);
}

int32_t velk_FingerPalmGrabAPI_GetFingerGrabScore(VelkPalmGrabAPIHandle api, VelkHandFinger finger,
                                                  float* score)
{
    return velk::capi::fingerpalmgrab_api::getFingerGrabScore(api, finger, score);
}

VelkDirectionQuantizerHandle velk_DirectionQuantizer_Create(talpVector3f* direction, float middleAngle,
                                                            float farAngle)
{
    return velk::capi::direction_quantizer::create(direction, middleAngle, farAngle);
}

int32_t velk_DirectionQuantizer_Destroy(VelkDirectionQuantizerHandle quantizer)
{
    return velk::capi::direction_quantizer::destroy(quantizer);
}

int32_t velk_DirectionQuantizer_Update(VelkDirectionQuantizerHandle quantizer, const talpVector3f* value)
{
    return velk::capi::direction_quantizer::update(quantizer, value);
}

int32_t velk_DirectionQuantizer_GetValue(VelkDirectionQuantizerHandle quantizer, int axis, int* alignment)
{
    return velk::capi::direction_quantizer::getValue(quantizer, axis, alignment);
}

VelkDirectionRecognizerHandle velk_DirectionRecognizer_Create()
{
    return velk::capi::direction_recognizer::create();
}

int32_t velk_DirectionRecognizer_Destroy(VelkDirectionRecognizerHandle recognizer)
{
    return velk::capi::direction_recognizer::destroy(recognizer);
}

int32_t velk_DirectionRecognizer_Update(VelkDirectionRecognizerHandle recognizer,
                                        VelkDirectionQuantizerHandle quantizer,
                                        velk_DetectionParameterList* list)
{
    return velk::capi::direction_recognizer::update(recognizer, quantizer, list);
}

int32_t velk_DirectionRecognizer_IsActive(VelkDirectionRecognizerHandle recognizer, bool* isActive)
{
    return velk::capi::direction_recognizer::isActive(recognizer, isActive);
}

VelkProximityFieldHandle velk_BoxProximityField_Create(const talpPosef* pose, const talpVector3f* size)
{
    return velk::capi::box_proximity_field::create(pose, size);
}

int32_t velk_BoxProximityField_SetPose(VelkProximityFieldHandle field, const talpPosef* pose)
{
    return velk::capi::box_proximity_field::setPose(field, pose);
}

int32_t velk_BoxProximityField_SetSize(VelkProximityFieldHandle field, const talpVector3f* size)
{
    return velk::capi::box_proximity_field::setSize(field, size);
}

int32_t velk_ProximityField_Destroy(VelkProximityFieldHandle field)
{
    return velk::capi::proximity_field::destroy(field);
}

int32_t velk_Common_GetVersion(const char** version)
{
    return velk::capi::common::getVersion(version);
}

void velk_SetNativeLogCallback(void (*callback)(const char* message, int color, int length))
{
    return velk::capi::common::setNativeLogCallback(callback);
}

int32_t velk_Telemetry_SendTestData()
{
    return velk::capi::telemetry::sendTestData();
}
