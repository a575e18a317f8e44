// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Thumbs up? The thumb's direction is labelled by its angle to the world's up, and a recognizer waits for the
// label.

#include <velk/velk.h>

#include <math.h>
#include <stdio.h>

static const char* nameOf(int alignment)
{
    static const char* const names[] = {"none", "close", "middle", "far"};
    return names[alignment];
}

int main(void)
{
    talpVector3f up = {0.0f, 1.0f, 0.0f};
    // Below 25 degrees it's close, from 65 degrees on far. There is no hysteresis: choose the angles well
    // apart.
    const VelkDirectionQuantizerHandle quantizer = velk_DirectionQuantizer_Create(&up, 25.0f, 65.0f);
    const VelkDirectionRecognizerHandle thumbsUp = velk_DirectionRecognizer_Create();
    const velk_DetectionParameter wanted = {0, VelkDirectionAlignment_Close};
    velk_DetectionParameterList list;
    bool active = false;
    int angle;

    list.count = 1;
    list.entries = &wanted;
    printf("before the first direction: update returns %d\n",
           velk_DirectionRecognizer_Update(thumbsUp, quantizer, &list));
    for (angle = 100; angle >= -40; angle -= 20) {
        const float radians = (float)angle / 57.29578f;
        const talpVector3f thumb = {sinf(radians), cosf(radians), 0.0f};
        int alignment = VelkDirectionAlignment_None;
        velk_DirectionQuantizer_Update(quantizer, &thumb);
        velk_DirectionQuantizer_GetValue(quantizer, 0, &alignment);
        velk_DirectionRecognizer_Update(thumbsUp, quantizer, &list);
        velk_DirectionRecognizer_IsActive(thumbsUp, &active);
        printf("%3d degrees from up: %s%s\n", angle, nameOf(alignment), active ? ", thumbs up" : "");
    }

    velk_DirectionRecognizer_Destroy(thumbsUp);
    velk_DirectionQuantizer_Destroy(quantizer);
    return 0;
}
