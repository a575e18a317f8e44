// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Small answers to what hosts ask next, each run once: events in place of states, a panel that takes a hand
// from near and from far, and a keyboard. docs/recipes.md explains them.

#include <velk/velk.h>

#include <stdio.h>

#define MOST_EVENTS 4 // of an interactor in a frame

// EVENTS: what has changed since the last poll, in the order in which it happened.

typedef enum EventKind
{
    EventKind_HoverBegan,
    EventKind_Pressed,
    EventKind_Released,
    EventKind_HoverEnded
} EventKind;

typedef struct Event
{
    EventKind kind;
    VelkInteractableHandle target;
} Event;

typedef struct Watch
{
    VelkInteractorHandle interactor;
    VelkInteractorState state;
    VelkInteractableHandle target;
} Watch;

static Watch watch(VelkInteractorHandle interactor)
{
    Watch fresh = {VelkInteractorHandle_Invalid, VelkInteractorState_Normal, VelkInteractableHandle_Invalid};
    fresh.interactor = interactor;
    return fresh;
}

static int addEvent(Event* events, int count, EventKind kind, VelkInteractableHandle target)
{
    if (target == VelkInteractableHandle_Invalid) {
        return count; // a ray pressed in the air, or what was hovered has been destroyed
    }
    events[count].kind = kind;
    events[count].target = target;
    return count + 1;
}

static int pollEvents(Watch* last, Event events[MOST_EVENTS])
{
    Watch now = *last;
    bool hasMoved, pressed, released;
    int count = 0;
    velk_Interactor_GetState(now.interactor, &now.state);
    now.target = velk_Interactor_GetInteractable(now.interactor);
    hasMoved = now.target != last->target;
    released =
        last->state == VelkInteractorState_Select && (now.state != VelkInteractorState_Select || hasMoved);
    pressed =
        now.state == VelkInteractorState_Select && (last->state != VelkInteractorState_Select || hasMoved);
    if (released) {
        count = addEvent(events, count, EventKind_Released, last->target);
    }
    if (hasMoved) {
        count = addEvent(events, count, EventKind_HoverEnded, last->target);
        count = addEvent(events, count, EventKind_HoverBegan, now.target);
    }
    if (pressed) {
        count = addEvent(events, count, EventKind_Pressed, now.target);
    }
    *last = now;
    return count;
}

static void printEvents(const char* who, int frame, const Event* events, int count)
{
    static const char* const names[] = {"hover begins", "pressed", "released", "hover ends"};
    int i;
    for (i = 0; i < count; ++i) {
        printf("  frame %2d  %-6s  %s\n", frame, who, names[events[i].kind]);
    }
}

// NEAR AND FAR: one panel that a ray and a finger of the same hand use.

typedef struct NearFarHand
{
    VelkInteractorHandle finger;
    VelkInteractorHandle ray;
    VelkSelectorHandle trigger;
    bool wasTriggerDown;
} NearFarHand;

static void updateNearFar(NearFarHand* hand, const talpPosef* tip, const talpPosef* aim, bool triggerDown)
{
    static const talpPosef nowhere = {{0, 0, 0, 1}, {0, 0, -1e9f}}; // far off, looking away
    VelkInteractorState finger = VelkInteractorState_Normal;
    VelkInteractorState ray = VelkInteractorState_Normal;
    bool isResting;

    velk_PokeInteractor_SetPointTransform(hand->finger, tip);
    velk_Interactor_Update(hand->finger);

    // A ray that presses goes on until it lets go; any other rests while the finger is near something.
    velk_Interactor_GetState(hand->finger, &finger);
    velk_Interactor_GetState(hand->ray, &ray);
    isResting = finger != VelkInteractorState_Normal && ray != VelkInteractorState_Select;
    if (triggerDown && !hand->wasTriggerDown && !isResting) {
        velk_Selector_Select(hand->trigger);
    } else if (!triggerDown && hand->wasTriggerDown) {
        velk_Selector_Unselect(hand->trigger);
    }
    hand->wasTriggerDown = triggerDown;
    velk_RayInteractor_SetPose(hand->ray, isResting ? &nowhere : aim);
    velk_Interactor_Update(hand->ray);
}

static void runNearFar(void)
{
    // 30 x 20 cm at z = -0.5: a plane's size is its half, a clipper's is whole.
    const talpPosef pose = {{0, 0, 0, 1}, {0, 1.2f, -0.5f}};
    const talpVector2f half = {0.15f, 0.1f};
    const velk_BoundsClipper whole = {{0, 0, 0}, {0.3f, 0.2f, 0.02f}};
    // Centimetres of the fingertip before the panel. The ray starts 10 cm behind it.
    static const int way[] = {40, 40, 40, 20, 12, 8, 8, 4, 1, 0, -1, 1, 4, 8, 12, 20, 20, 20};
    static const bool trigger[] = {0, 1, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 0};
    const int frames = (int)(sizeof way / sizeof way[0]);
    const VelkPointableSurfaceHandle plane = velk_PointablePlane_Create(&pose, &half);
    const VelkSurfacePatchHandle patch = velk_ClippedPlaneSurface_Create(&pose, &whole, 1);
    const VelkInteractableHandle farPanel = velk_RayInteractable_Create(plane);
    VelkInteractableHandle nearPanel;
    velk_PokeInteractableConfig config;
    NearFarHand hand;
    Watch finger;
    Watch ray;
    int frame;

    velk_PokeInteractable_GetDefaultConfig(&config);
    config.enterHoverNormal = 0.1f; // the finger counts as near from 10 cm on
    nearPanel = velk_PokeInteractable_CreateWithConfig(patch, &config);
    hand.finger = velk_PokeInteractor_Create();
    hand.ray = velk_RayInteractor_Create();
    hand.trigger = velk_Selector_Create();
    hand.wasTriggerDown = false;
    velk_Interactor_SetSelector(hand.ray, hand.trigger);
    finger = watch(hand.finger);
    ray = watch(hand.ray);

    puts("near and far, on one panel:");
    for (frame = 0; frame < frames; ++frame) {
        const float z = pose.position.z + 0.01f * (float)way[frame];
        const talpPosef tip = {{0, 0, 0, 1}, {0, 1.2f, z}};
        const talpPosef aim = {{0, 0, 0, 1}, {0, 1.2f, z + 0.1f}};
        Event events[MOST_EVENTS];
        updateNearFar(&hand, &tip, &aim, trigger[frame]);
        printEvents("finger", frame, events, pollEvents(&finger, events));
        printEvents("ray", frame, events, pollEvents(&ray, events));
    }

    velk_Interactor_Destroy(hand.finger);
    velk_Interactor_Destroy(hand.ray);
    velk_Selector_Destroy(hand.trigger);
    velk_Interactable_Destroy(nearPanel);
    velk_Interactable_Destroy(farPanel);
    velk_SurfacePatch_Destroy(patch);
    velk_PointableSurface_Destroy(plane);
}

// A KEYBOARD: keys that lie on a table, with what they write hung on them as payloads.

typedef struct Key
{
    char character;
    talpVector3f center;
    VelkSurfacePatchHandle patch;
    VelkInteractableHandle interactable;
} Key;

static void createKey(Key* key, char character, float x, float z)
{
    const talpPosef flat = {{-0.70710678f, 0, 0, 0.70710678f}, {x, 0, z}}; // its front is up
    const velk_BoundsClipper cap = {{0, 0, 0}, {0.016f, 0.016f, 0.01f}};
    key->character = character;
    key->center = flat.position;
    key->patch = velk_ClippedPlaneSurface_Create(&flat, &cap, 1);
    key->interactable = velk_PokeInteractable_Create(key->patch);
    velk_Interactable_SetPayload(key->interactable, (VelkPayload*)key);
}

// What a finger has typed in this frame, or 0: a key counts once, when it goes down.
static char pollKey(Watch* finger)
{
    Event events[MOST_EVENTS];
    const int count = pollEvents(finger, events);
    VelkPayload* payload = NULL;
    int i;
    for (i = 0; i < count; ++i) {
        if (events[i].kind == EventKind_Pressed &&
            velk_Interactable_GetPayload(events[i].target, &payload) == 0) {
            return ((const Key*)payload)->character;
        }
    }
    return 0;
}

#define KEY_COUNT 30

static const char kLayout[KEY_COUNT + 1] = "qwertyuiopasdfghjkl'zxcvbnm,.!";

static const Key* findKey(const Key* keys, char character)
{
    int i = 0;
    while (i < KEY_COUNT - 1 && keys[i].character != character) {
        ++i;
    }
    return &keys[i];
}

static void runKeyboard(void)
{
    // Two fingers take turns, and a key goes down before the last one is up. Millimetres from the table to
    // the tip's centre in the six frames of a tap.
    static const char text[] = "hello,velk!";
    static const int heights[] = {40, 2, -2, -2, -2, 20};
    const int length = (int)(sizeof text - 1);
    static Key keys[KEY_COUNT];
    VelkInteractorHandle fingers[2];
    Watch watches[2];
    int i, frame;

    for (i = 0; i < KEY_COUNT; ++i) {
        createKey(&keys[i], kLayout[i], 0.02f * (float)(i % 10) + 0.005f * (float)(i / 10),
                  0.02f * (float)(i / 10));
    }
    for (i = 0; i < 2; ++i) {
        fingers[i] = velk_PokeInteractor_Create();
        watches[i] = watch(fingers[i]);
    }

    printf("keyboard: ");
    for (frame = 0; frame < 3 * length + 6; ++frame) {
        for (i = 0; i < 2; ++i) {
            const int since = frame - 3 * i;
            const int index = since < 0 ? i : 2 * (since / 6) + i;
            talpPosef tip = {{0, 0, 0, 1}, {0, 0, 0}};
            char typed;
            tip.position = findKey(keys, text[index < length ? index : length - 1])->center;
            tip.position.y = 0.001f * (float)(since < 0 || index >= length ? 40 : heights[since % 6]);
            velk_PokeInteractor_SetPointTransform(fingers[i], &tip);
            velk_Interactor_Update(fingers[i]);
            typed = pollKey(&watches[i]);
            if (typed != 0) {
                putchar(typed);
            }
        }
    }
    putchar('\n');

    for (i = 0; i < 2; ++i) {
        velk_Interactor_Destroy(fingers[i]);
    }
    for (i = 0; i < KEY_COUNT; ++i) {
        velk_Interactable_Destroy(keys[i].interactable);
        velk_SurfacePatch_Destroy(keys[i].patch);
    }
}

int main(void)
{
    runNearFar();
    runKeyboard();
    return 0;
}
