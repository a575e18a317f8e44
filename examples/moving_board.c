// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// A board with three keys, held by a hand that is never still, while a finger of the other hand types on it.
// Typed twice: first the board's patches move, then the finger is placed in the board's own frame, where the
// patches rest. Both count the same taps in the same frames.

#include <velk/velk.h>

#include <math.h>
#include <stdio.h>

#define KEYS 3
#define FRAMES_PER_TAP 18

// The keys in the board's frame: side by side, 3 cm wide, 1 cm apart.
static const velk_BoundsClipper kKeys[KEYS] = {
    {{-0.04f, 0, 0}, {0.03f, 0.03f, 0.01f}},
    {{0, 0, 0}, {0.03f, 0.03f, 0.01f}},
    {{0.04f, 0, 0}, {0.03f, 0.03f, 0.01f}},
};

typedef struct Board
{
    VelkSurfacePatchHandle patches[KEYS];
    VelkInteractableHandle keys[KEYS];
} Board;

static Board createBoard(const talpPosef* pose)
{
    Board board;
    int i;
    for (i = 0; i < KEYS; ++i) {
        board.patches[i] = velk_ClippedPlaneSurface_Create(pose, &kKeys[i], 1);
        board.keys[i] = velk_PokeInteractable_Create(board.patches[i]);
    }
    return board;
}

// Before the updates of the fingers. What a finger presses stays pressed and moves with the board.
static void moveBoard(Board* board, const talpPosef* pose)
{
    int i;
    for (i = 0; i < KEYS; ++i) {
        const VelkSurfacePatchHandle moved = velk_ClippedPlaneSurface_Create(pose, &kKeys[i], 1);
        velk_PokeInteractable_SetSurface(board->keys[i], moved);
        velk_SurfacePatch_Destroy(board->patches[i]);
        board->patches[i] = moved;
    }
}

static void destroyBoard(const Board* board)
{
    int i;
    for (i = 0; i < KEYS; ++i) {
        velk_Interactable_Destroy(board->keys[i]);
        velk_SurfacePatch_Destroy(board->patches[i]);
    }
}

static talpVector3f rotate(talpQuatf q, talpVector3f v)
{
    // v + 2 w (u x v) + 2 u x (u x v), with q = (u, w)
    const talpVector3f c = {q.y * v.z - q.z * v.y, q.z * v.x - q.x * v.z, q.x * v.y - q.y * v.x};
    talpVector3f r;
    r.x = v.x + 2 * (q.w * c.x + q.y * c.z - q.z * c.y);
    r.y = v.y + 2 * (q.w * c.y + q.z * c.x - q.x * c.z);
    r.z = v.z + 2 * (q.w * c.z + q.x * c.y - q.y * c.x);
    return r;
}

static talpVector3f outOfBoard(const talpPosef* board, talpVector3f point)
{
    talpVector3f world = rotate(board->orientation, point);
    world.x += board->position.x;
    world.y += board->position.y;
    world.z += board->position.z;
    return world;
}

static talpVector3f intoBoard(const talpPosef* board, talpVector3f point)
{
    const talpQuatf back = {-board->orientation.x, -board->orientation.y, -board->orientation.z,
                            board->orientation.w};
    const talpVector3f way = {point.x - board->position.x, point.y - board->position.y,
                              point.z - board->position.z};
    return rotate(back, way);
}

// The hand that holds the board: 20 cm to and fro, and turned by up to 30 degrees to each side.
static talpPosef boardAt(int frame)
{
    const float swing = sinf(0.1f * (float)frame);
    const float half = 0.5f * 0.52f * swing; // of the angle, in radians
    talpPosef pose = {{0, 0, 0, 1}, {0, 1.1f, -0.4f}};
    pose.orientation.y = sinf(half);
    pose.orientation.w = cosf(half);
    pose.position.x += 0.1f * swing;
    pose.position.z += 0.1f * cosf(0.1f * (float)frame);
    return pose;
}

// Where the finger is over the board: 4 cm over a key, down, held there for a while, up. `height` is the
// centre's; a fingertip's radius is 5 mm.
static talpVector3f fingerAt(int frame)
{
    static const int word[] = {0, 2, 2, 1};
    static const float heights[FRAMES_PER_TAP] = {0.04f,  0.04f,  0.03f,  0.02f,  0.01f,  0.002f,
                                                  -0.01f, -0.01f, -0.01f, -0.01f, -0.01f, 0.002f,
                                                  0.01f,  0.02f,  0.03f,  0.04f,  0.04f,  0.04f};
    const int tap = frame / FRAMES_PER_TAP;
    talpVector3f point = kKeys[word[tap % 4]].position;
    point.z = heights[frame % FRAMES_PER_TAP];
    return point;
}

static int keyOf(const Board* board, VelkInteractableHandle interactable)
{
    int i;
    for (i = 0; i < KEYS; ++i) {
        if (board->keys[i] == interactable) {
            return i;
        }
    }
    return -1;
}

int main(void)
{
    static const talpPosef atRest = {{0, 0, 0, 1}, {0, 0, 0}};
    int moveKeys;
    for (moveKeys = 1; moveKeys >= 0; --moveKeys) {
        const talpPosef start = boardAt(0);
        Board board = createBoard(moveKeys ? &start : &atRest);
        const VelkInteractorHandle finger = velk_PokeInteractor_Create();
        VelkInteractorState before = VelkInteractorState_Normal;
        int taps[KEYS] = {0, 0, 0};
        int frame;

        puts(moveKeys ? "the board moves:" : "the finger moves in the board's frame:");
        for (frame = 0; frame < 4 * FRAMES_PER_TAP; ++frame) {
            const talpPosef pose = boardAt(frame);
            talpPosef tip = {{0, 0, 0, 1}, {0, 0, 0}};
            VelkInteractorState state = before;

            tip.position = outOfBoard(&pose, fingerAt(frame)); // as a tracker gives it
            if (moveKeys) {
                moveBoard(&board, &pose);
            } else {
                tip.position = intoBoard(&pose, tip.position);
            }
            velk_PokeInteractor_SetPointTransform(finger, &tip);
            velk_Interactor_Update(finger);

            velk_Interactor_GetState(finger, &state);
            if (state == VelkInteractorState_Select && before != VelkInteractorState_Select) {
                const int key = keyOf(&board, velk_Interactor_GetInteractable(finger));
                taps[key] += 1;
                printf("  frame %2d: key %c down, the board at x = %3.0f mm, turned by %3.0f degrees\n",
                       frame, 'A' + key, (double)(1000 * pose.position.x),
                       (double)(2 * 57.29578f * asinf(pose.orientation.y)));
            } else if (state != VelkInteractorState_Select && before == VelkInteractorState_Select) {
                printf("  frame %2d: up,         the board at x = %3.0f mm\n", frame,
                       (double)(1000 * pose.position.x));
            }
            before = state;
        }
        printf("  taps: A %d, B %d, C %d\n", taps[0], taps[1], taps[2]);

        velk_Interactor_Destroy(finger);
        destroyBoard(&board);
    }
    return 0;
}
