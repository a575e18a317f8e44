// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// A slider and a list on a wall. Both follow the point where the fingertip touches, and tell a tap from a
// drag by how far that point has gone. A tap on the slider moves its knob there, one on the list picks a row;
// a drag pulls the knob or scrolls the list.

#include <velk/velk.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#define ROWS 20          // of the list
#define ROWS_IN_VIEW 5   // of 3 cm each
#define SLIDER_PLACES 21 // at which a drawn knob can stand

static const float kRadius = 0.005f;   // metres, of a fingertip's sphere
static const float kWall = -0.5f;      // its z; it faces +z
static const float kTapLimit = 0.01f;  // metres that a tap may slide
static const float kRowHeight = 0.03f; // metres
static const velk_BoundsClipper kSlider = {{0, 1.2f, 0}, {0.2f, 0.04f, 0.02f}};
static const velk_BoundsClipper kList = {{0, 1.0f, 0}, {0.2f, 0.15f, 0.02f}};

// A fingertip whose touch point can be read. The record is a hand that is nothing but the tip; where the
// limiter holds it, the tip's sphere rests on the surface at the touch point.
typedef struct Finger
{
    VelkInteractorHandle interactor;
    VelkDataSourceHandle tip;
    VelkDataSourceHandle heldTip;
    VelkHandPokeLimiterVisualHandle limiter;
} Finger;

static Finger createFinger(void)
{
    Finger finger;
    finger.interactor = velk_PokeInteractor_Create();
    finger.tip = velk_DataSource_Create(VelkDataSourceType_External);
    finger.heldTip = velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, finger.tip);
    finger.limiter = velk_HandPokeLimiterVisual_Create(finger.tip, finger.interactor, finger.heldTip);
    return finger;
}

static void moveFinger(const Finger* finger, const talpPosef* pose)
{
    velk_HandData record;
    velk_DataSource_GetData(finger->tip, &record); // for its joints, which are unturned and stay so
    record.rootPose = *pose;
    velk_PokeInteractor_SetPointTransform(finger->interactor, pose);
    velk_Interactor_Update(finger->interactor);
    velk_ExternalHandSource_SetData(finger->tip, &record);
    velk_HandPokeLimiterVisual_Update(finger->limiter);
    velk_DataSource_Update(finger->heldTip);
}

// True during a press; `center` is then that of a fingertip's sphere that rests on the touch point.
static bool readTouch(const Finger* finger, talpVector3f* center)
{
    VelkInteractorState state = VelkInteractorState_Normal;
    velk_HandData held;
    velk_Interactor_GetState(finger->interactor, &state);
    if (state != VelkInteractorState_Select) {
        return false;
    }
    velk_DataSource_GetData(finger->heldTip, &held);
    *center = held.rootPose.position;
    return true;
}

static void destroyFinger(const Finger* finger)
{
    velk_HandPokeLimiterVisual_Destroy(finger->limiter);
    velk_DataSource_Destroy(finger->heldTip);
    velk_DataSource_Destroy(finger->tip);
    velk_Interactor_Destroy(finger->interactor);
}

// A press from its first frame to its last.
typedef enum PressEvent
{
    PressEvent_None,
    PressEvent_Began,
    PressEvent_Dragged, // by `step` since the frame before
    PressEvent_DragEnded,
    PressEvent_Tapped,
    PressEvent_Cancelled // pushed too deep
} PressEvent;

typedef struct Press
{
    VelkInteractableHandle target;
    talpVector3f first; // where it began
    talpVector3f last;  // where it is, or ended
    talpVector3f step;  // from the frame before
    bool isOn;
    bool isDrag;
} Press;

static PressEvent updatePress(Press* press, const Finger* finger, const velk_PokeInteractableConfig* config,
                              float tipHeight)
{
    talpVector3f touch;
    const bool isOn = readTouch(finger, &touch);
    const bool wasOn = press->isOn;
    press->isOn = isOn;
    if (isOn && !wasOn) {
        press->target = velk_Interactor_GetInteractable(finger->interactor);
        press->first = press->last = touch;
        press->isDrag = false;
        return PressEvent_Began;
    }
    if (isOn) {
        const float x = touch.x - press->first.x;
        const float y = touch.y - press->first.y;
        const talpVector3f* from = press->isDrag ? &press->last : &press->first;
        press->isDrag = press->isDrag || sqrtf(x * x + y * y) > kTapLimit;
        press->step.x = touch.x - from->x;
        press->step.y = touch.y - from->y;
        press->step.z = 0;
        press->last = touch;
        return press->isDrag ? PressEvent_Dragged : PressEvent_None;
    }
    if (!wasOn) {
        return PressEvent_None;
    }
    // What cancels a press beside its surface has slid, so it ends a drag. Depth has to be looked at.
    return press->isDrag                             ? PressEvent_DragEnded
           : -tipHeight > config->cancelSelectNormal ? PressEvent_Cancelled
                                                     : PressEvent_Tapped;
}

static float clampTo(float value, float lower, float upper)
{
    return value < lower ? lower : value > upper ? upper : value;
}

// What the two show.
typedef struct Panel
{
    VelkInteractableHandle slider;
    VelkInteractableHandle list;
    float knob;   // 0 at the left end, 1 at the right
    float scroll; // rows above the view
    int picked;   // a row, or -1
} Panel;

static void applyToSlider(Panel* panel, PressEvent event, const Press* press)
{
    const float length = kSlider.size.x;
    if (event == PressEvent_Tapped) {
        panel->knob = (press->last.x - kSlider.position.x) / length + 0.5f;
    } else if (event == PressEvent_Dragged) {
        panel->knob += press->step.x / length;
    }
    panel->knob = clampTo(panel->knob, 0, 1);
}

static void applyToList(Panel* panel, PressEvent event, const Press* press)
{
    const float top = kList.position.y + kList.size.y / 2;
    if (event == PressEvent_Tapped) {
        panel->picked = (int)(panel->scroll + (top - press->last.y) / kRowHeight);
    } else if (event == PressEvent_Dragged) {
        panel->scroll += press->step.y / kRowHeight;
    }
    panel->scroll = clampTo(panel->scroll, 0, ROWS - ROWS_IN_VIEW);
}

static void printPanel(const Panel* panel, PressEvent event, VelkInteractableHandle target, int frame)
{
    static const char* const names[] = {"", "press", "drag", "drag ends", "tap", "cancelled"};
    const int place = (int)(panel->knob * (SLIDER_PLACES - 1) + 0.5f);
    int i;
    printf("%3d  %-6s %-9s  [", frame, target == panel->slider ? "slider" : "list", names[event]);
    for (i = 0; i < SLIDER_PLACES; ++i) {
        putchar(i == place ? 'O' : '-');
    }
    printf("] %3.0f %%   rows", (double)(100 * panel->knob));
    for (i = 0; i <= ROWS_IN_VIEW; ++i) {
        const int row = (int)panel->scroll + i;
        if ((float)row + 0.5f > panel->scroll && (float)row + 0.5f < panel->scroll + ROWS_IN_VIEW) {
            printf(row == panel->picked ? " [%d]" : " %d", row);
        }
    }
    putchar('\n');
}

// What the finger does: it goes straight from place to place. Millimetres; `height` is that of the tip's
// centre over the wall.
typedef struct Place
{
    float x, y, height;
    int frames; // from the place before
} Place;

static const Place kMotion[] = {
    {50, 1200, 60, 1},  {50, 1200, -5, 5},   {52, 1200, 60, 5},                             // tap the slider
    {40, 1200, 60, 1},  {40, 1200, -10, 5},  {-61.5f, 1202, -15, 8}, {-61.5f, 1202, 60, 5}, // drag its knob
    {0, 1000, 60, 1},   {0, 1000, -5, 5},    {0, 1000, 60, 5},                              // tap a row
    {0, 950, 60, 1},    {0, 950, -5, 5},     {5, 1040, -15, 8},      {5, 1040, 60, 5},      // scroll
    {0, 1000, 60, 1},   {0, 1000, -5, 5},    {0, 1000, 60, 5},  // tap where another row is now
    {50, 1200, 60, 1},  {50, 1200, -350, 5}, {50, 1200, 60, 5}, // push through the wall
    {-60, 1200, 60, 1}, {-60, 1200, -5, 5},  {-160, 1200, -5, 5},    {-160, 1200, 60, 5}}; // slide off

int main(void)
{
    const talpPosef wall = {{0, 0, 0, 1}, {0, 0, kWall}};
    const VelkSurfacePatchHandle sliderPatch = velk_ClippedPlaneSurface_Create(&wall, &kSlider, 1);
    const VelkSurfacePatchHandle listPatch = velk_ClippedPlaneSurface_Create(&wall, &kList, 1);
    velk_PokeInteractableConfig config;
    Panel panel = {VelkInteractableHandle_Invalid, VelkInteractableHandle_Invalid, 0, 0, -1};
    Press press = {VelkInteractableHandle_Invalid, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, false, false};
    Finger finger;
    Place from = kMotion[0];
    size_t i;
    int frame = 0;

    // The touch point follows the finger at once: taps and drags are told apart here, by kTapLimit. Even then
    // it eases in the first dragEaseDuration after the library's load, and this program lasts no longer.
    velk_PokeInteractable_GetDefaultConfig(&config);
    config.dragThresholdsEnabled = 0;
    config.dragEaseDuration = 1e-6f;
    panel.slider = velk_PokeInteractable_CreateWithConfig(sliderPatch, &config);
    panel.list = velk_PokeInteractable_CreateWithConfig(listPatch, &config);
    finger = createFinger();

    for (i = 0; i < sizeof kMotion / sizeof kMotion[0]; ++i) {
        const Place to = kMotion[i];
        int step;
        for (step = 1; step <= to.frames; ++step, ++frame) {
            const float way = (float)step / (float)to.frames;
            const float height = 0.001f * (from.height + (to.height - from.height) * way);
            const talpPosef tip = {{0, 0, 0, 1},
                                   {0.001f * (from.x + (to.x - from.x) * way),
                                    0.001f * (from.y + (to.y - from.y) * way), kWall + height}};
            PressEvent event;
            moveFinger(&finger, &tip);
            event = updatePress(&press, &finger, &config, height - kRadius);
            if (event != PressEvent_None) {
                if (press.target == panel.slider) {
                    applyToSlider(&panel, event, &press);
                } else {
                    applyToList(&panel, event, &press);
                }
                printPanel(&panel, event, press.target, frame);
            }
        }
        from = to;
    }

    destroyFinger(&finger);
    velk_Interactable_Destroy(panel.slider);
    velk_Interactable_Destroy(panel.list);
    velk_SurfacePatch_Destroy(sliderPatch);
    velk_SurfacePatch_Destroy(listPatch);

    // The synthetic hand was counted: a return from main would wait up to 10 s for the thread that prints
    // counts. _Exit doesn't wait, and doesn't write what stdio holds either.
    fflush(stdout);
    _Exit(0);
}
