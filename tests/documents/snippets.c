// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// Calls that the documents show, with what they take. Compiled, not run.

#include "examples/openxr_joints.h"

#include <velk/velk.h>

#include <stdbool.h>
#include <string.h>

// Lines and comments stand as in the documents.
// clang-format off

void detect(VelkDirectionQuantizerHandle quantizer, VelkDirectionRecognizerHandle recognizer,
            talpVector3f thumbDirection, velk_DetectionParameterList wanted)
{
    bool isActive = false;
    velk_DirectionQuantizer_Update(quantizer, &thumbDirection);
    velk_DirectionRecognizer_Update(recognizer, quantizer, &wanted);
    velk_DirectionRecognizer_IsActive(recognizer, &isActive);
}

void drawHand(VelkDataSourceHandle tracked, VelkDataSourceHandle drawn, VelkInteractorHandle finger,
              VelkHandPokeLimiterVisualHandle limiter, talpPosef fingertip, velk_HandData record)
{
    velk_ExternalHandSource_SetData(tracked, &record);
    velk_PokeInteractor_SetPointTransform(finger, &fingertip);
    velk_Interactor_Update(finger);
    velk_HandPokeLimiterVisual_Update(limiter);   /* after the interactor, before the hand that is drawn */
    velk_DataSource_Update(drawn);                /* the outermost modifier: it updates all before it */
    velk_DataSource_GetData(drawn, &record);
}

void convert(VelkPalmGrabAPIHandle api, int isRight)
{
    talpPosef joints[OPENXR_JOINT_COUNT];            // copied from XrHandJointLocationEXT::pose, in that order
    memset(joints, 0, sizeof joints);
    velk_HandPalmData palm;
    openxr_toPalmData(joints, isRight, &palm);       // also openxr_toPinchData, openxr_toHandData
    velk_FingerPalmGrabAPI_UpdateHandData(api, &palm);
}

void point(VelkInteractorHandle ray, talpPosef hand_pose, talpVector3f end)
{
    velk_RayInteractor_SetPose(ray, &hand_pose);        /* each frame, before the update */
    velk_Interactor_Update(ray);
    VelkInteractableHandle panel = velk_Interactor_GetInteractable(ray);   /* -1 for none */
    velk_RayInteractor_GetEnd(ray, &end);               /* where to draw it to */
    (void)panel;
}

void move(VelkInteractableHandle button, VelkSurfacePatchHandle patch, talpPosef newPose,
          const velk_BoundsClipper* clippers, int count)
{
    VelkSurfacePatchHandle moved = velk_ClippedPlaneSurface_Create(&newPose, clippers, count);
    velk_PokeInteractable_SetSurface(button, moved);
    velk_SurfacePatch_Destroy(patch);
    patch = moved;
    (void)patch;
}
