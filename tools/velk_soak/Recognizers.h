// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Motion.h"
#include "Owned.h"
#include "host/Geometry.h"

#include <array>

namespace velk_soak
{

/// Counts what starts, and checks that changes are told when they happen. `api` stands for the functions.
template <auto IsGrabbing, auto HasChanged, auto GetScore>
void readFingers(const auto& api, std::array<bool, 5>& before, What starts)
{
    for (unsigned i = 0; i < before.size(); ++i) {
        const auto finger = static_cast<VelkHandFinger>(i);
        bool now = false, started = false, ended = false;
        float score = -1;
        check(IsGrabbing(api, finger, &now) == 0 && HasChanged(api, finger, true, &started) == 0 &&
                  HasChanged(api, finger, false, &ended) == 0 && GetScore(api, finger, &score) == 0,
              "fingers can be read");
        check(started == (now && !before[i]) && ended == (before[i] && !now), "changes are told");
        check(score >= 0 && score <= 1, "scores lie between 0 and 1");
        counts[starts] += started;
        before[i] = now;
    }
}

/// Grips and directions, and what is left.
class Recognizers
{
public:
    Recognizers(const Motion& pinching, const Motion& gripping)
        : pinching_(pinching)
        , gripping_(gripping)
    {
    }

    void frame()
    {
        const talpVector3f ahead{0, 0, -1};
        velk_FingerPinchGrabAPI_UpdateHandWristHMDData(pinch_, &pinching_.now().pinch, &ahead, &ahead);
        velk_FingerPalmGrabAPI_UpdateHandData(palm_, &gripping_.now().palm);
        readFingers<velk_FingerPinchGrabAPI_GetFingerIsGrabbing,
                    velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged,
                    velk_FingerPinchGrabAPI_GetFingerGrabScore>(pinch_, pinches_, Pinches);
        readFingers<velk_FingerPalmGrabAPI_GetFingerIsGrabbing,
                    velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged,
                    velk_FingerPalmGrabAPI_GetFingerGrabScore>(palm_, grips_, PalmGrips);

        const talpVector3f direction{swing(211), swing(503), 0.2f};
        velk_DetectionParameter wish{0, VelkDirectionAlignment_Close};
        velk_DetectionParameterList wishes{1, &wish};
        int label = VelkDirectionAlignment_None;
        bool active = false;
        check(velk_DirectionQuantizer_Update(quantizer_, &direction) == 0 &&
                  velk_DirectionQuantizer_GetValue(quantizer_, 0, &label) == 0 &&
                  velk_DirectionRecognizer_Update(recognizer_, quantizer_, &wishes) == 0 &&
                  velk_DirectionRecognizer_IsActive(recognizer_, &active) == 0 &&
                  active == (label == VelkDirectionAlignment_Close),
              "directions are labelled and recognised");
        counts[Recognitions] += active && !active_;
        active_ = active;

        check(velk_BoxProximityField_SetPose(field_, &pinching_.now().hand.rootPose) == 0,
              "fields can be moved");
        if (frameNumber % (kRound / 2) == 0) {
            velk_SetNativeLogCallback([](const char*, int, int) { ++counts[LogMessages]; });
            velk_SetNativeLogCallback(nullptr);
            velk_Telemetry_SendTestData();
        }
    }

    void replaceOne()
    {
        switch (randomBelow(5)) {
        case 0:
            pinch_ = Pinch(velk_FingerPinchGrabAPI_Create());
            pinches_ = {};
            break;
        case 1:
            palm_ = Palm(velk_FingerPalmGrabAPI_Create());
            grips_ = {};
            break;
        case 2:
            quantizer_ = makeQuantizer();
            break;
        case 3:
            recognizer_ = Recognizer(velk_DirectionRecognizer_Create());
            break;
        default:
            field_ = makeField();
        }
    }

private:
    static Quantizer makeQuantizer()
    {
        talpVector3f up{0, 1, 0};
        return Quantizer(velk_DirectionQuantizer_Create(&up, 30, 60));
    }

    static Field makeField()
    {
        const talpPosef pose{velk_tools::kNoRotation, {}};
        return Field(velk_BoxProximityField_Create(&pose, &pose.position));
    }

    const Motion& pinching_;
    const Motion& gripping_;
    Pinch pinch_{velk_FingerPinchGrabAPI_Create()};
    Palm palm_{velk_FingerPalmGrabAPI_Create()};
    Quantizer quantizer_ = makeQuantizer();
    Recognizer recognizer_{velk_DirectionRecognizer_Create()};
    Field field_ = makeField();
    std::array<bool, 5> pinches_{};
    std::array<bool, 5> grips_{};
    bool active_ = false;
};

} // namespace velk_soak
