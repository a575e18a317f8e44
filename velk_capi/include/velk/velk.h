// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

/* velk decides which virtual objects a fingertip or a pointing ray hovers, presses or selects, whether
 * the fingers of a tracked hand pinch or grip, and which way a tracked direction points; it smooths
 * hands and keeps a drawn hand from sinking into what it presses. It has no window, renderer, device or
 * tracking of its own: the host feeds poses, asks for one update a frame, and reads the answers.
 *
 *     VelkPointableSurfaceHandle plane = velk_PointablePlane_Create(&panelPose, &panelHalfSize);
 *     VelkInteractableHandle panel = velk_RayInteractable_Create(plane);
 *     VelkInteractorHandle ray = velk_RayInteractor_Create();
 *
 *     // every frame:
 *     velk_RayInteractor_SetPose(ray, &controllerPose);
 *     velk_Interactor_Update(ray);
 *     velk_Interactable_GetState(panel, &state);
 *
 * THE RULES OF THE WHOLE INTERFACE
 *
 * What a function's own comment says goes before these rules; what it doesn't say is ruled here.
 *
 *  1. Handles. Every object is a handle: a signed 32-bit number of its family's own type. Each family
 *     counts from 0 upward, so 0 is a handle like any other and "none" is -1 (Velk..._Invalid). Numbers
 *     of different families are unrelated: interactor 3 has nothing to do with interactable 3, and
 *     passing one where the other is wanted is noticed by the compiler at best. A destroyed handle is
 *     not given out again until the family's 32-bit counter has come round. After 2147483648 creations
 *     in one family the counter goes on with negative numbers, -1 among them, which then don't mean
 *     failure or none: a host that makes 100 patches a frame, 90 times a second, is there after 66 hours.
 *
 *  2. Results. Functions return 0 for success and -1 for failure; creating functions return the new
 *     handle, or a negative value. The few further codes stand with their functions: -2 and -3 of the
 *     data sources, -4 of velk_PointableAxisAlignedBox_SetCentroid. There is no last-error record and
 *     failures are not logged.
 *
 *  3. A failure changes nothing. A call with an unknown, destroyed or -1 handle, or with a live handle of
 *     the wrong kind (a poke interactor given to a velk_RayInteractor_ function), fails, and objects and
 *     out-parameters stay as they were.
 *
 *  4. Null. A pointer may be null only where the function's comment says what happens then. Everywhere
 *     else it must point to a valid record: it is read or written without a test.
 *
 *  5. Bools. Inside records a bool is one byte, and only the value 1 means true. Arguments and
 *     out-parameters are the language's own bool.
 *
 *  6. Frame and units. The host's space is the library's: nothing is flipped, scaled or converted. It is
 *     right-handed with +Y up; the default forward is -Z, and a plane faces along its local +Z. Lengths
 *     may be in any unit as far as rays go; the defaults and fixed distances of poke and pinch are metres.
 *     Time is in seconds.
 *
 *  7. Rotations are unit quaternions in the order x, y, z, w. They are kept as they come: one that is
 *     not of unit length scales what it turns by its length squared, and one of zeros collapses it.
 *     Angles are in degrees. The only ones that cross this interface are those of direction detection.
 *
 *  8. Sizes. The size of a pointable plane is half its width and half its height. All other sizes, of
 *     boxes, clippers and proximity fields, are full widths.
 *
 *  9. Numbers are not checked. NaN and infinity go through like any other value; the comments say where
 *     that matters. velk computes in the caller's floating-point environment and expects the usual one:
 *     rounding to nearest, and exceptions masked. Other rounding gives other answers; a host that has
 *     unmasked overflow, division by zero or invalid operations gets SIGFPE in ordinary pinches.
 *
 * 10. Threads. One thread at a time may call the library, usually the one that runs the frame loop;
 *     nothing is locked. A call does all its work before it returns, and velk calls back into the host at
 *     one point only (velk_SetNativeLogCallback). The one thread that velk ever starts prints usage
 *     counts, see 14.
 *
 * 11. Ownership. Records are copied during the call and no pointer to them is kept. Two pointers of the
 *     host are kept: a payload, which is neither followed nor freed, and the function given to
 *     velk_SetNativeLogCallback.
 *
 * 12. Lifetime. There is no function to start or stop the library. Each family has its Destroy, which ends
 *     the handle. Hosts may destroy in any order: an object that uses another either keeps it alive or
 *     does without it, and its comment says which. What is left at exit is left to the system: no call
 *     needs anything that exit destroys, so exit handlers, destructors of globals, and a thread that still
 *     runs the frame loop while main returns may call as ever. Counting alone ends, see 14. Unloading the
 *     library by dlclose gives all memory back but that of objects which are still alive.
 *
 * 13. Exceptions. No function throws on account of its arguments but those named here: a negative count
 *     in velk_ClippedPlaneSurface_Create is a std::length_error. Besides that, std::bad_alloc when memory
 *     ends, and std::system_error from the counted calls of rule 14 when no thread can be started.
 *     Nothing is caught at this boundary, so C hosts see these as the end of the process. A C++ host that
 *     catches them goes on with a sound world, and may make the same call again: a create has left nothing
 *     but, at most, a number that is never given out, a setter has changed nothing, and an update has
 *     stopped on its way, with interactors and interactables agreed about who is on whom. The press or
 *     release that such an update was about to use can be used up, and one that it did not come to can
 *     wait for the next update. A velk_Selector_Select or _Unselect may have reached some interactors;
 *     made again, it counts as one. Destroying, and reading states, poses and scores, takes no memory.
 *
 * 14. Usage counts, and the wait at exit. Four calls count that a feature was used:
 *     velk_DataModifier_Create, velk_FingerPinchGrabAPI_Create, velk_FingerPalmGrabAPI_Create and
 *     velk_Telemetry_SendTestData. The first of them starts a thread that looks at once, and then every 10
 *     seconds, whether anything was counted, and prints it to the standard error stream. Nothing leaves
 *     the process: velk has no network code. From then on, ending the process by exit or by returning
 *     from main, or unloading the library with dlclose, waits until that thread next wakes: up to 10
 *     seconds. To leave at once, destroy what must be, flush what was written, and end the process by
 *     _Exit or quick_exit in C, by os._exit(0) in Python, which don't wait. A host that uses none of the
 *     four has neither the thread nor the wait. The thread takes no signals but faults, leaves out a look
 *     for which there is no memory, and a child made by fork hasn't got it: there counts are taken, never
 *     printed, and nothing waits. Once the library's part in exit has begun nothing is counted: then
 *     velk_Telemetry_SendTestData returns -1, and the others make what they make.
 *
 *     Three lines are printed by the first counted call itself. Printing can't be switched off, and takes
 *     the stream as it is. While standard error is a pipe that is full and that nobody reads, the first
 *     counted call blocks, and so does the exit once the thread has something to print, until it is read.
 *     A pipe whose reader has gone raises SIGPIPE in that call, which ends the process unless the host
 *     ignores it; the thread's lines are just lost. If descriptor 2 is closed and a file of the host's
 *     takes its number, the lines go into that file: open the null device there instead.
 *
 * 15. Order decides ties. Interactables are looked at in the order of their creation, on every platform and
 *     in every run, so of two that are equally good the same one always wins: which, the families say.
 *
 * ONE FRAME, IN THE ORDER THAT WORKS
 *
 *     hands        velk_ExternalHandSource_SetData, velk_DataSource_Update (outermost modifier only)
 *     tips, rays   velk_PokeInteractor_SetPointTransform, velk_RayInteractor_SetPose
 *     buttons      velk_Selector_Select, velk_Selector_Unselect, when they go down or up
 *     update       velk_Interactor_Update, once per interactor
 *     read         states, ray ends, button poses; velk_HandPokeLimiterVisual_Update
 *     grab         velk_FingerPinchGrabAPI_..., velk_FingerPalmGrabAPI_... with records of their own
 *     detection    velk_DirectionQuantizer_Update, then velk_DirectionRecognizer_Update
 */

#ifndef VELK_VELK_H
#define VELK_VELK_H

#ifndef __cplusplus
#include <stdbool.h>
#endif
#include <stddef.h>
#include <stdint.h>

#define VELK_VERSION_MAJOR 0
#define VELK_VERSION_MINOR 52
#define VELK_VERSION_PATCH 0
#define VELK_VERSION_STRING "0.52.0"

#if defined(_WIN32)
#if defined(VELK_BUILDING)
#define VELK_API __declspec(dllexport)
#else
#define VELK_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define VELK_API __attribute__((visibility("default")))
#else
#define VELK_API
#endif

/* Handles and enumerations are signed 32-bit in both languages: C++ says so, C is given a value that
 * needs that width. That value is never passed. These macros end with this header. */
#ifdef __cplusplus
#define VELK_INT32 : int32_t
#define VELK_FORCE_INT32(name)
#else
#define VELK_INT32
#define VELK_FORCE_INT32(name) name##_Force32 = 0x7FFFFFFF
#endif

#define VELK_HANDLE(name)                                                                                    \
    enum name VELK_INT32                                                                                     \
    {                                                                                                        \
        name##_Invalid = -1,                                                                                 \
        VELK_FORCE_INT32(name)                                                                               \
    };                                                                                                       \
    typedef enum name name

/* NOLINTBEGIN(modernize-use-using): C has typedef alone. */

#ifdef __cplusplus
extern "C" {
#endif

/* HANDLES
 *
 * One type a family. Interactors and interactables of both kinds (ray and poke) share a family, so do
 * plane and box surfaces, and data sources and the modifiers that wrap them. */

VELK_HANDLE(VelkInteractorHandle);
VELK_HANDLE(VelkInteractableHandle);
VELK_HANDLE(VelkSelectorHandle);
VELK_HANDLE(VelkPointableSurfaceHandle);
VELK_HANDLE(VelkSurfacePatchHandle);
VELK_HANDLE(VelkPokeButtonVisualHandle);
VELK_HANDLE(VelkDataSourceHandle);
VELK_HANDLE(VelkHandPokeLimiterVisualHandle);
VELK_HANDLE(VelkPinchGrabAPIHandle);
VELK_HANDLE(VelkPalmGrabAPIHandle);
VELK_HANDLE(VelkDirectionQuantizerHandle);
VELK_HANDLE(VelkDirectionRecognizerHandle);
VELK_HANDLE(VelkProximityFieldHandle);

/* RECORDS OF GEOMETRY */

typedef struct talpVector2f
{
    float x;
    float y;
} talpVector2f;

typedef struct talpVector3f
{
    float x;
    float y;
    float z;
} talpVector3f;

/* A rotation; (0, 0, 0, 1) is none. A record of zeros is not a rotation. */
typedef struct talpQuatf
{
    float x;
    float y;
    float z;
    float w;
} talpQuatf;

/* Turns first, then moves: world = orientation * local + position. */
typedef struct talpPosef
{
    talpQuatf orientation;
    talpVector3f position;
} talpPosef;

/* Where a surface was met. The library's own record of surface queries: no function of this header
 * hands one out yet. */
typedef struct velk_SurfaceHit
{
    talpVector3f point;
    talpVector3f normal; /* unit length, out of the surface */
    float distance;      /* along the ray; negative when a ray starts inside a box */
} velk_SurfaceHit;

/* INTERACTORS
 *
 * An interactor is what acts: a pointing ray or a poking fingertip. It searches all interactables of its
 * kind by itself; the host never says which there are. Its kind creates it (velk_RayInteractor_Create,
 * velk_PokeInteractor_Create), its kind places it, and the functions here do the rest for both.
 *
 *     Normal --- finds an interactable ---> Hover --- press ---> Select
 *     Normal <--------- loses it --------- Hover <-- release --- Select
 *
 * One update may take up to three of these steps, so a quick press goes from Normal to Select at once, and
 * a press and release between two updates pass within one: a host that only reads the state after each
 * update doesn't see that press.
 *
 * Create, then every frame place, Update and read, then Destroy. A destroyed interactor first lets go of
 * what it hovers and selects. */

enum VelkInteractorState VELK_INT32
{
    VelkInteractorState_Normal = 0,   /* has no interactable, looks for one */
    VelkInteractorState_Hover = 1,    /* on an interactable, or letting go of one */
    VelkInteractorState_Select = 2,   /* pressing; of a ray also in the air, with no interactable */
    VelkInteractorState_Disabled = 3, /* takes no part; nothing in this interface leads here */
    VELK_FORCE_INT32(VelkInteractorState)
};
typedef enum VelkInteractorState VelkInteractorState;

/* Anything of the host's. velk hands the pointer back and never looks behind it. */
typedef struct VelkPayload VelkPayload;

/* Ends the handle and the interactor.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Interactor_Destroy(VelkInteractorHandle interactor);

/* Runs one frame of the interactor: the search, its changes of state and what they do to interactables and
 * button visuals are all done on return. Call it once a frame, after placing the interactor.
 *
 * returns 0 whatever came of it, or -1 for an unknown handle */
VELK_API int32_t velk_Interactor_Update(VelkInteractorHandle interactor);

/* Attaches the selector that presses and releases this interactor, in place of the one it has. The
 * interactor keeps the selector alive, beyond velk_Selector_Destroy.
 * An unknown selector handle, such as VelkSelectorHandle_Invalid, is not a failure: it detaches.
 * Poke interactors take a selector too but pay no heed to it: they press by touch.
 *
 * returns 0, or -1 for an unknown interactor */
VELK_API int32_t velk_Interactor_SetSelector(VelkInteractorHandle interactor, VelkSelectorHandle selector);

/* Stores the state reached by the last update.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Interactor_GetState(VelkInteractorHandle interactor, VelkInteractorState* state);

/* The interactable that the interactor is on, hovered or selected.
 *
 * returns its handle, or -1 when there is none or the interactor is unknown: velk_Interactor_GetState tells
 * the two apart */
VELK_API VelkInteractableHandle velk_Interactor_GetInteractable(VelkInteractorHandle interactor);

/* Stores the payload pointer given last.
 *
 * returns 0, or -1 for an unknown handle, a null `payload`, or when none was ever set */
VELK_API int32_t velk_Interactor_GetPayload(VelkInteractorHandle interactor, VelkPayload** payload);

/* Hangs a pointer of the host's on the interactor, in place of the one before. What it points to stays
 * the host's to keep and to free.
 *
 * returns 0, or -1 for an unknown handle or a null `payload`: a payload can't be taken off again */
VELK_API int32_t velk_Interactor_SetPayload(VelkInteractorHandle interactor, VelkPayload* payload);

/* INTERACTABLES
 *
 * An interactable is what is acted on: a panel for rays or a surface to poke. It is live from its creation
 * (velk_RayInteractable_Create, velk_PokeInteractable_Create) to its Destroy, and any number of interactors
 * may be on it. Its state follows them during their updates; it has no update of its own.
 *
 * Destroying one takes all interactors off it at once. An interactor that was selecting it stays in Select,
 * with no interactable, until it releases: a fingertip in its next update, a ray when its selector says so.
 */

enum VelkInteractableState VELK_INT32
{
    VelkInteractableState_Normal = 0,   /* nobody on it */
    VelkInteractableState_Hover = 1,    /* at least one interactor on it, none selecting */
    VelkInteractableState_Select = 2,   /* at least one interactor selecting it */
    VelkInteractableState_Disabled = 3, /* can't be met; nothing in this interface leads here */
    VELK_FORCE_INT32(VelkInteractableState)
};
typedef enum VelkInteractableState VelkInteractableState;

/* Ends the handle and the interactable. Its surface lives on if it has a handle of its own.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Interactable_Destroy(VelkInteractableHandle interactable);

/* Stores the present state.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Interactable_GetState(VelkInteractableHandle interactable,
                                            VelkInteractableState* state);

/* Stores the payload pointer given last.
 *
 * returns 0, or -1 for an unknown handle, a null `payload`, or when none was ever set */
VELK_API int32_t velk_Interactable_GetPayload(VelkInteractableHandle interactable, VelkPayload** payload);

/* Hangs a pointer of the host's on the interactable, as velk_Interactor_SetPayload does.
 *
 * returns 0, or -1 for an unknown handle or a null `payload` */
VELK_API int32_t velk_Interactable_SetPayload(VelkInteractableHandle interactable, VelkPayload* payload);

/* SELECTORS
 *
 * A selector is the host's button: a trigger, a pinch, a key. The host says when it goes down and up, and
 * every interactor that the selector is attached to takes that up in its next update. One selector may
 * serve several interactors, each with a queue of its own.
 *
 * The oldest entry of a queue decides. Two Selects between two updates are one; a Select followed by an
 * Unselect is a whole press; an Unselect with nothing selected stands in the way of a Select behind it.
 * An update drops what it can't use: nothing is kept for a later frame. A Select with nothing under the
 * ray is used: the interactor goes to Select without an interactable and stays there until the Unselect,
 * so that dragging onto something doesn't press it. */

/* Creates a selector, attached to nothing.
 *
 * returns its handle */
VELK_API VelkSelectorHandle velk_Selector_Create(void);

/* Ends the handle. Interactors keep the object, which then can't be pressed any more. An interactor that it
 * left in Select stays there until it gets another selector that releases it.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Selector_Destroy(VelkSelectorHandle selector);

/* Queues a press in every interactor that uses this selector. No state changes now: the next
 * velk_Interactor_Update of each decides, and drops what it can't use.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Selector_Select(VelkSelectorHandle selector);

/* Queues a release, in the same way.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_Selector_Unselect(VelkSelectorHandle selector);

/* PLANES
 *
 * A pointable plane is a flat, bounded surface for rays. It faces along the local +Z of its pose; a ray
 * from behind never hits it, nor does one that starts on it or runs parallel to it, to within 0.00001 radian.
 * A hit exactly on the edge counts. Create it, make interactables of it, then destroy it when convenient:
 * interactables keep the surface alive. Moving or sizing it takes effect at the next update. */

/* Creates a plane. `size` is half its width (local X) and half its height (local Y). A null `pose` means
 * the origin, unturned. A null `size` means zero, a plane that only a ray through its very centre hits.
 *
 * returns its handle */
VELK_API VelkPointableSurfaceHandle velk_PointablePlane_Create(const talpPosef* pose,
                                                               const talpVector2f* size);

/* Stores the unit normal: the pose's +Z, the side that can be hit.
 *
 * returns 0, or -1 when the handle is unknown or no plane */
VELK_API int32_t velk_PointablePlane_GetNormal(VelkPointableSurfaceHandle plane, talpVector3f* normal);

/* Sets half the width and half the height. A negative half admits no hit, a NaN one all.
 *
 * returns 0, or -1 when the handle is unknown or no plane */
VELK_API int32_t velk_PointablePlane_SetSize(VelkPointableSurfaceHandle plane, const talpVector2f* size);

/* Moves a plane. In spite of the name it serves planes alone; boxes are moved with
 * velk_PointableAxisAlignedBox_SetCentroid.
 *
 * returns 0, or -1 when the handle is unknown or no plane */
VELK_API int32_t velk_PointableSurface_SetPose(VelkPointableSurfaceHandle plane, const talpPosef* pose);

/* Ends the handle of a plane or a box. Interactables made of it keep using it, but it can't be moved
 * any more.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_PointableSurface_Destroy(VelkPointableSurfaceHandle surface);

/* THINGS THAT RAYS POINT AT */

/* Makes an interactable of a plane or a box and keeps that surface alive. Destroy it with
 * velk_Interactable_Destroy. Several interactables may share a surface; the first created is then the one
 * that is hit.
 *
 * returns its handle, or -1 for an unknown surface */
VELK_API VelkInteractableHandle velk_RayInteractable_Create(VelkPointableSurfaceHandle surface);

/* Gives the interactable another surface to be found on. Once selected, the ray goes on being traced
 * against the surface that the interactable was created with, which this doesn't change.
 * `surface` is not tested. An unknown one leaves the interactable with none: it must then not be searched
 * again, so destroy it or give it a live surface before any ray interactor updates.
 *
 * returns 0, or -1 when `interactable` is unknown or not for rays */
VELK_API int32_t velk_RayInteractable_SetSurface(VelkInteractableHandle interactable,
                                                 VelkPointableSurfaceHandle surface);

/* RAYS
 *
 * A ray interactor points from the position of its pose along the pose's -Z. It hovers what it hits
 * nearest and selects that when its selector is pressed; a new one has no selector and only hovers.
 *
 *  - Hits whose distances differ by less than 0.01 count as equal, and of equal ones the first visited
 *    stays, in order of creation, even where a later one is a little nearer.
 *  - The length limits boxes by the distance along the ray but planes by the height of its origin over them:
 *    a slanted ray can hit a plane beyond its length, and then ends there.
 *  - A ray that starts inside a box hits it at a negative distance, so before every plane, and its end
 *    lies behind its origin.
 *  - While selecting, the ray is traced against the selected interactable alone. Turning it off the surface
 *    doesn't unselect: only the selector's release does. */

/* Creates a ray at the origin along -Z, of length 1, without a selector. Destroy it with
 * velk_Interactor_Destroy.
 *
 * returns its handle */
VELK_API VelkInteractorHandle velk_RayInteractor_Create(void);

/* Sets how far the ray reaches, and its length where it hits nothing. A length of 0 or less means no limit
 * for hits.
 *
 * returns 0, or -1 when the handle is unknown or no ray */
VELK_API int32_t velk_RayInteractor_SetMaxRayLength(VelkInteractorHandle interactor, float length);

/* Places the ray for the next update. `pose` is read before the handle is looked at, so it must be valid
 * even then. A rotation that isn't of unit length stretches the ray's direction, and with it distances to
 * boxes and the ray's end.
 *
 * returns 0, or -1 when the handle is unknown or no ray */
VELK_API int32_t velk_RayInteractor_SetPose(VelkInteractorHandle interactor, const talpPosef* pose);

/* Stores the position of the pose set last, with or without an update since.
 *
 * returns 0, or -1 when the handle is unknown or no ray */
VELK_API int32_t velk_RayInteractor_GetOrigin(VelkInteractorHandle interactor, talpVector3f* origin);

/* Stores where the ray ended in the last update: at the hit, or at full length. Before the first update
 * it is the origin of the world.
 *
 * returns 0, or -1 when the handle is unknown or no ray */
VELK_API int32_t velk_RayInteractor_GetEnd(VelkInteractorHandle interactor, talpVector3f* end);

/* BOXES
 *
 * A box surface for rays, aligned with the axes of the world: it can be moved and sized but not turned.
 * It has no back: rays hit it from outside and from within. Handles are those of pointable surfaces, so
 * velk_PointableSurface_Destroy ends them, while the other functions of planes refuse them. */

/* Creates a box from its centre and full size; a null argument means zero.
 *
 * returns its handle */
VELK_API VelkPointableSurfaceHandle velk_PointableAxisAlignedBox_Create(const talpVector3f* centroid,
                                                                        const talpVector3f* size);

/* Sets two opposite corners, in any order: they are sorted per axis. A null `lower` or `upper` leaves the
 * other to be set alone, and then nothing is sorted: a lower corner above the upper one makes a box that
 * contains no point. With both null nothing happens.
 *
 * returns 0, or -1 when the handle is unknown or no box */
VELK_API int32_t velk_PointableAxisAlignedBox_SetBounds(VelkPointableSurfaceHandle box,
                                                        const talpVector3f* lower, const talpVector3f* upper);

/* Sets centre and full size; a null argument keeps what there is.
 *
 * returns 0, or -1 when the handle is unknown or no box */
VELK_API int32_t velk_PointableAxisAlignedBox_SetCentroidAndSize(VelkPointableSurfaceHandle box,
                                                                 const talpVector3f* centroid,
                                                                 const talpVector3f* size);

/* Moves the box to another centre.
 *
 * returns 0, -1 when the handle is unknown or no box, or -4 for a null `centroid` */
VELK_API int32_t velk_PointableAxisAlignedBox_SetCentroid(VelkPointableSurfaceHandle box,
                                                          const talpVector3f* centroid);

/* PATCHES
 *
 * A patch is the part of a plane that can be poked: the plane reaches 100 to each side of its pose, and a
 * list of boxes, the clippers, cuts out what counts. Several clippers intersect: what lies in all of them
 * is the patch, and if they have nothing in common nothing can be touched. Without any the whole plane
 * counts. Depth and height are always measured against the whole plane.
 *
 * Create it, make an interactable of it, then destroy it when convenient: interactables keep it alive. A
 * patch can't be moved. To move a poke surface, create a patch at the new pose, give it to the interactable
 * with velk_PokeInteractable_SetSurface, and destroy the old one. */

/* A box that cuts a patch out of its plane, in the plane's own frame: x and y lie in the plane, z is its
 * normal, and the box turns with the plane. */
typedef struct velk_BoundsClipper
{
    talpVector3f position; /* centre of the box; z is usually 0 */
    talpVector3f size;     /* full widths; z must be above 0 to leave the plane room */
} velk_BoundsClipper;

/* Creates a patch facing along +Z of `pose`, cut by `count` clippers. `clippers` may be null when `count`
 * is 0. A negative `count` is not refused but raises std::length_error.
 *
 * returns its handle */
VELK_API VelkSurfacePatchHandle velk_ClippedPlaneSurface_Create(const talpPosef* pose,
                                                                const velk_BoundsClipper* clippers,
                                                                int count);

/* Does nothing: a patch stays where it was created. See above for how to move one.
 *
 * returns -1 for every handle, also a live one */
VELK_API int32_t velk_ClippedPlaneSurface_SetPose(VelkSurfacePatchHandle surface, const talpPosef* pose);

/* Ends the handle of a patch. Interactables made of it keep using it.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_SurfacePatch_Destroy(VelkSurfacePatchHandle patch);

/* THINGS TO POKE
 *
 * A poke interactable is a patch with the distances that decide hover, press and release. Heights are
 * measured from the skin of the fingertip's sphere (radius 0.005 m) to the plane, tangents from the skin
 * along the plane to the patch, so a tangent of 0 admits a tip whose centre is up to a radius beyond the
 * edge. With the defaults, for a finger that comes straight at a resting surface:
 *
 *      0.03    hovers from here down
 *      0       is pressed at the first touch of the skin
 *     -0.3     a press that is pushed deeper is cancelled
 *      0.002   a press ends when the skin rises above this
 *      0.05    hovers at most up to here on the way out; FINGERTIPS says how far
 *
 * A rise of more than 0.02 from the deepest point, a recoil, ends a press earlier, under the surface. The
 * finger then hovers, and presses again by going 0.02 deeper than its shallowest point since.
 *
 * A press needs a path that comes from above and crosses the patch inward within one update. A finger that
 * comes in from behind, from the side, or rests under the surface after a cancel presses nothing until it has
 * been above again. It need not be the finger that moves: a surface moved through a resting finger presses.
 *
 * Of several surfaces the nearest is hovered, and the one whose crossing path began nearest is pressed. Of
 * equally near ones it is the one that the tip is more squarely over, and then the one created first. */

/* The settings of a poke interactable. Fill it with velk_PokeInteractable_GetDefaultConfig, then change what
 * is to differ. Distances in metres. Settings are read and brought into order once, at creation. */
typedef struct velk_PokeInteractableConfig
{
    /* Height within which a hover begins. Default 0.03. Below -0.005 none does; a press still can. */
    float enterHoverNormal;
    /* Distance beside the patch within which a hover or a press begins. Default 0. Below -0.005 none does. */
    float enterHoverTangent;
    /* Height up to which a hover lasts. Default 0.05; raised to enterHoverNormal if less. A finger at rest
     * higher than about enterHoverNormal + 0.001 loses its hover all the same: see FINGERTIPS. */
    float exitHoverNormal;
    /* Distance beside the patch up to which a hover lasts. Default 0; raised to enterHoverTangent if less. */
    float exitHoverTangent;
    /* Depth below the plane at which a press is cancelled. Default 0.3. 0 or less: never. */
    float cancelSelectNormal;
    /* Distance beside the patch at which a press is cancelled. Default 0.03; raised to exitHoverTangent if
     * above 0 but less than that. 0 or less: never. */
    float cancelSelectTangent;

    /* Whether the touch point sticks to where the press began. 1 or 0, default 0. */
    uint8_t positionPinningEnabled;
    uint8_t reserved0[3];
    /* Travel along the surface over which a pinned touch point comes loose. Default 0: not pinned at all.
     * Below 0: never comes loose. */
    float maxPinDistance;

    /* Whether the touch point stays still while the finger pushes, until a drag begins. 1 or 0, default 1. */
    uint8_t dragThresholdsEnabled;
    uint8_t reserved1[3];
    /* Movement along the normal in one update above which the finger pushes rather than drags. Default 0.01.
     */
    float dragNormal;
    /* Movement along the surface since the last push above which a drag begins. Default 0.01. */
    float dragTangent;
    /* Seconds in which the touch point catches up when a drag begins. Default 0.05. Must be above 0: at 0 the
     * touch point can be NaN in the update in which a drag begins. */
    float dragEaseDuration;

    /* Whether a finger must have been clear of the surface to hover or press it. 1 or 0, default 0. */
    uint8_t minThresholdsEnabled;
    uint8_t reserved2[3];
    /* How far clear. Default 0.01; lowered to enterHoverNormal if enabled and above that. Fingers already on
     * the surface lower it, to the depth of the shallowest of them. */
    float minNormal;
} velk_PokeInteractableConfig;

/* Makes an interactable of a patch, with the default settings.
 *
 * returns its handle, or -1 for an unknown patch */
VELK_API VelkInteractableHandle velk_PokeInteractable_Create(VelkSurfacePatchHandle surfacePatch);

/* Makes an interactable of a patch, with the settings of `config`, or the defaults for a null `config`.
 * The patch is kept alive. Destroy the interactable with velk_Interactable_Destroy.
 *
 * returns its handle, or -1 for an unknown patch */
VELK_API VelkInteractableHandle velk_PokeInteractable_CreateWithConfig(
    VelkSurfacePatchHandle surfacePatch, const velk_PokeInteractableConfig* config);

/* Fills the record with the default settings.
 *
 * returns 0, or -1 for a null `config` */
VELK_API int32_t velk_PokeInteractable_GetDefaultConfig(velk_PokeInteractableConfig* config);

/* Gives the interactable another patch, which counts as the surface moving there: moved through a resting
 * finger, it is pressed.
 * `surfacePatch` is not tested. An unknown one leaves the interactable with none: from then on no poke
 * interactor may update and no button visual of it be moved, until it is destroyed or given a live patch.
 *
 * returns 0, or -1 when `interactable` is unknown or not for poking */
VELK_API int32_t velk_PokeInteractable_SetSurface(VelkInteractableHandle interactable,
                                                  VelkSurfacePatchHandle surfacePatch);

/* FINGERTIPS
 *
 * A poke interactor is a fingertip: a sphere that moves from update to update along a straight path. What
 * the path crosses is pressed, so what a host feeds first and after a gap matters:
 *
 *  - The path of an update runs from the point of the update before it. A new interactor's path begins at the
 *    origin of the world, and after tracking was lost it begins where the tip was last.
 *  - A press can begin only in an update that ends with the sphere touching or behind the plane of what it
 *    presses. So: don't update on a jump until the sphere stands in front of the planes of all surfaces
 *    that it could press, then set the pose and update once. Nothing is pressed in that update, whatever lay
 *    between, and from the next on every path is one that the finger really took. (It is enough that neither
 *    the straight path from the old point nor the sphere at its end comes through a patch from its front.)
 *  - Updating a second time at the same point adds nothing to that and takes nothing back: a path of no
 *    length begins no press, and a press that a jump began goes on while the tip stays under the surface.
 *  - When tracking is lost during a press, the press lasts until an update ends it: set a point well in front
 *    of the surface and update once. The next path then begins at that point.
 *
 * Hover reaches only as far as the search: enterHoverNormal (or enterHoverTangent, if greater) + 0.001,
 * plus the distance that the tip has moved since the last update. A finger that rests higher than that, 0.031
 * with the defaults, loses its hover though exitHoverNormal is 0.05. Hosts that want a resting finger to keep
 * it raise enterHoverNormal.
 *
 * A press needs no selector. The same update that finds it goes through Hover to Select. */

/* The fixed measures of a fingertip. A record of the library's own: no function of this header takes it, and
 * every fingertip has the values given here. Metres. */
typedef struct velk_PokeInteractorConfig
{
    float surfaceReleaseThreshold; /* 0.002: how far the skin may rise above the surface during a press */
    float reservedDistance;        /* 0: has no effect */
    float equalDistanceEpsilon;    /* 0.001: heights that differ by less count as equal; widens the search */
    float radius;                  /* 0.005: radius of the sphere */
} velk_PokeInteractorConfig;

/* Creates a fingertip at the origin of the world; see above for its first frame. Destroy it with
 * velk_Interactor_Destroy.
 *
 * returns its handle */
VELK_API VelkInteractorHandle velk_PokeInteractor_Create(void);

/* Places the fingertip for the next update: the position is the centre of its sphere, the orientation has no
 * effect. `pose` is read before the handle is looked at, so it must be valid even then.
 *
 * returns 0, or -1 when the handle is unknown or no fingertip */
VELK_API int32_t velk_PokeInteractor_SetPointTransform(VelkInteractorHandle interactor,
                                                       const talpPosef* pose);

/* BUTTON VISUALS
 *
 * The pose of a button's moving cap: it rests maxExtent above its base along the base's +Z and stays under
 * the fingers that hover or press it, never above its rest and never below its base. Put the base into the
 * plane of the patch. It follows by itself in the updates of the interactors over the button; the host only
 * reads it. It doesn't keep the interactable alive: after that has gone the cap stays at rest. */

/* Creates the visual of a poke interactable, at rest. `maxExtent` is in metres and may be 0.
 *
 * returns its handle, or -1 when the interactable is unknown or not for poking, `basePose` is null, or
 * `maxExtent` is negative */
VELK_API VelkPokeButtonVisualHandle velk_PokeButtonVisual_Create(VelkInteractableHandle interactable,
                                                                 const talpPosef* basePose, float maxExtent);

/* Ends the handle and the visual.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_PokeButtonVisual_Destroy(VelkPokeButtonVisualHandle visual);

/* Moves the base and sets the travel, both at once in effect, also with fingers on the button. Unlike at
 * creation a negative `maxExtent` is taken: it shows only once the interactable has gone.
 *
 * returns 0, or -1 for an unknown handle or a null `basePose` */
VELK_API int32_t velk_PokeButtonVisual_UpdateBasePose(VelkPokeButtonVisualHandle visual,
                                                      const talpPosef* basePose, float maxExtent);

/* Stores the height of the cap over its base.
 *
 * returns 0, or -1 for an unknown handle or a null `extent` */
VELK_API int32_t velk_PokeButtonVisual_GetCurrentExtent(VelkPokeButtonVisualHandle visual, float* extent);

/* Stores the pose of the cap: the base's orientation, and its position raised by the extent.
 *
 * returns 0, or -1 for an unknown handle or a null `pose` */
VELK_API int32_t velk_PokeButtonVisual_GetCurrentPose(VelkPokeButtonVisualHandle visual, talpPosef* pose);

/* HANDS: SOURCES AND MODIFIERS
 *
 * A hand is a record of 24 joint rotations and the pose of its root. A source holds one; a modifier wraps a
 * source and offers a changed copy of its record. Both share one family of handles, so modifiers chain:
 *
 *     external source <- one euro filter <- synthetic hand
 *
 * Create the source, then the modifiers from the inside out. Every frame set the record on the external
 * source, update the outermost modifier, which updates what it wraps first, and read it.
 *
 *  - The first to update a source consumes its news. Update only the outermost modifier: a source updated by
 *    itself, or by a second modifier on it, leaves the others with a frame that seems unchanged.
 *  - A modifier doesn't keep what it wraps alive. Once the source's handle is destroyed, the modifier keeps
 *    its last record and velk_DataSource_Update goes on returning 0.
 *
 * The one euro filter (Casiez, Roussel and Vogel: 1 euro Filter: A Simple Speed-based Low-pass Filter for
 * Noisy Input in Interactive Systems, CHI 2012) smooths the root's position, its rotation and each joint's
 * rotation: the faster the motion, the higher the cutoff and the less the lag.
 *
 *  - It has no clock. Its time step is always 1 / VelkHandFilterAttribute_UpdateRate, 50 Hz at first: set it
 *    to the rate at which records arrive. A frame without a new record doesn't advance it.
 *  - Its state is never reset. After a gap it glides over from the hand before; for a fresh start make a new
 *    filter.
 *  - The first update seeds it. Before the first record has been set that is the identity hand, and it then
 *    glides from there: set a record before the first update.
 *  - Rotations are normalised on the way in. A rotation of zeros as the first sample stays as the filter's
 *    value for good.
 *  - Values with a NaN or infinite component pass through, with their filter's state untouched. A
 *    finite position that overflows a float when its difference from the last is multiplied by the update
 *    rate (1e38, say) does harm: that filter's position stays NaN for good.
 *
 * The synthetic hand holds the wrist where a velk_HandPokeLimiterVisual_ puts it and passes the rest through.
 * It eases over 0.1 s when let go. A hand first updated in the first 0.1 s after the library was loaded eases
 * in from the origin. */

/* Indices into the joints of all hand records. Root0, Root1, ThumbRoot and PinkyBase are carried along for
 * the host and measured by nothing. */
enum VelkHandJointId VELK_INT32
{
    VelkHandJointId_Root0 = 0,
    VelkHandJointId_Root1 = 1,
    VelkHandJointId_ThumbRoot = 2,
    VelkHandJointId_ThumbBase = 3,
    VelkHandJointId_ThumbProximal = 4,
    VelkHandJointId_ThumbDistal = 5,
    VelkHandJointId_IndexProximal = 6,
    VelkHandJointId_IndexMid = 7,
    VelkHandJointId_IndexDistal = 8,
    VelkHandJointId_MiddleProximal = 9,
    VelkHandJointId_MiddleMid = 10,
    VelkHandJointId_MiddleDistal = 11,
    VelkHandJointId_RingProximal = 12,
    VelkHandJointId_RingMid = 13,
    VelkHandJointId_RingDistal = 14,
    VelkHandJointId_PinkyBase = 15,
    VelkHandJointId_PinkyProximal = 16,
    VelkHandJointId_PinkyMid = 17,
    VelkHandJointId_PinkyDistal = 18,
    VelkHandJointId_ThumbTip = 19, /* the tips stand together, in the order of the fingers */
    VelkHandJointId_IndexTip = 20,
    VelkHandJointId_MiddleTip = 21,
    VelkHandJointId_RingTip = 22,
    VelkHandJointId_PinkyTip = 23,
    VELK_FORCE_INT32(VelkHandJointId)
};
typedef enum VelkHandJointId VelkHandJointId;

#define VELK_HAND_JOINT_COUNT 24

/* A hand as it goes through sources and modifiers. Whether joint rotations are local or absolute is the
 * host's choice: they are filtered one by one and otherwise passed along. */
typedef struct velk_HandData
{
    talpQuatf joints[VELK_HAND_JOINT_COUNT]; /* by VelkHandJointId; a new source holds (0, 0, 0, 1) each */
    talpPosef rootPose;                      /* the wrist, in the host's space */
} velk_HandData;

enum VelkDataSourceType VELK_INT32
{
    VelkDataSourceType_None = 0,
    VelkDataSourceType_Dummy = 1,    /* an identity hand that never changes and never has news */
    VelkDataSourceType_External = 2, /* what velk_ExternalHandSource_SetData gives it */
    VELK_FORCE_INT32(VelkDataSourceType)
};
typedef enum VelkDataSourceType VelkDataSourceType;

enum VelkDataModifierType VELK_INT32
{
    VelkDataModifierType_OneEuroHandFilter = 1,
    VelkDataModifierType_SyntheticHand = 2,
    VELK_FORCE_INT32(VelkDataModifierType)
};
typedef enum VelkDataModifierType VelkDataModifierType;

/* Settings of a one euro hand filter, for velk_DataSource_SetAttributeFloat. Cutoffs are in hertz: the lower,
 * the smoother and the more lag. Betas say how fast a cutoff rises with speed: hertz per unit of length a
 * second for the position, hertz per radian a second for rotations, where no speed reads above pi.
 * Nothing is refused. Cutoffs and the rate are raised to 1e-5 where they are less or NaN. A beta that is not
 * finite, or an infinite cutoff, stops the filtering of its group: values pass through until it is finite
 * again. An infinite rate freezes the hand. */
enum VelkHandFilterAttribute VELK_INT32
{
    VelkHandFilterAttribute_RootPositionBeta = 1,       /* 10 */
    VelkHandFilterAttribute_RootPositionMinCutoff = 2,  /* 2 Hz, the cutoff at rest */
    VelkHandFilterAttribute_RootRotationBeta = 3,       /* 3 */
    VelkHandFilterAttribute_RootRotationMinCutoff = 4,  /* 2 Hz */
    VelkHandFilterAttribute_JointRotationBeta = 5,      /* 2 */
    VelkHandFilterAttribute_JointRotationMinCutoff = 6, /* 1 Hz */
    VelkHandFilterAttribute_UpdateRate = 7,             /* 50 Hz, of all groups; 0 all but ends smoothing */
    VelkHandFilterAttribute_RootPositionDCutoff = 8,    /* 1 Hz, the cutoff of the speed itself */
    VelkHandFilterAttribute_RootRotationDCutoff = 9,    /* 1 Hz */
    VelkHandFilterAttribute_JointRotationDCutoff = 10,  /* 1 Hz */
    VELK_FORCE_INT32(VelkHandFilterAttribute)
};
typedef enum VelkHandFilterAttribute VelkHandFilterAttribute;

/* Creates a source that holds an identity hand: all joints unturned, the root at the origin.
 *
 * returns its handle, -1 for VelkDataSourceType_None, or -2 for an unknown type */
VELK_API VelkDataSourceHandle velk_DataSource_Create(VelkDataSourceType type);

/* Ends the handle of a source or a modifier, and with it the object, even while a modifier or a limiter uses
 * it: they go on without it.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_DataSource_Destroy(VelkDataSourceHandle source);

/* Advances a source or a modifier by one frame, a modifier after what it wraps.
 *
 * returns 0, also when nothing was new or the wrapped source has gone, or -1 for an unknown handle */
VELK_API int32_t velk_DataSource_Update(VelkDataSourceHandle source);

/* Stores the present record of a source or a modifier.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_DataSource_GetData(VelkDataSourceHandle source, velk_HandData* data);

/* Sets a number by its id. Only the one euro filter has such numbers, those of VelkHandFilterAttribute. They
 * take effect with the next new record. Modifiers don't pass attributes on to what they wrap.
 *
 * returns 0, or -1 for an unknown handle or an id that the object doesn't have */
VELK_API int32_t velk_DataSource_SetAttributeFloat(VelkDataSourceHandle source, int attributeId, float value);

/* Gives an external source its next record. Of several between two updates the last one counts.
 *
 * returns 0, or -1 for a null `data` or a handle that is unknown or no external source */
VELK_API int32_t velk_ExternalHandSource_SetData(VelkDataSourceHandle source, const velk_HandData* data);

/* Wraps a source or another modifier, without keeping it alive. The new modifier starts with a copy of the
 * present record. Counted, whichever the type: see rule 14.
 *
 * returns its handle, -3 for an unknown `source`, or -1 for an unknown type */
VELK_API VelkDataSourceHandle velk_DataModifier_Create(VelkDataModifierType type,
                                                       VelkDataSourceHandle source);

/* THE HAND THAT STOPS AT THE SURFACE
 *
 * A limiter visual keeps a drawn hand out of the surface that its finger presses. While the fingertip is past
 * the surface it holds the wrist of a synthetic hand so that the tip's sphere rests at the touch point; the
 * orientation of the real wrist and all joints go through. It takes hold at once, stays through a recoil, and
 * lets go, easing, when the press or the recoil ends.
 *
 * Update the interactor, then the limiter. Its hold shows in the synthetic hand's next update with a new
 * record, so in the usual order of a frame one frame later. It keeps none of its three objects alive and does
 * without any that is destroyed. The touch point is read with a limiter too: docs/poke.md has the recipe. */

/* Creates a limiter. `hand` is the hand as tracked, the record whose finger drives `interactor`: the source
 * that `syntheticHand` wraps, not the synthetic hand itself. `interactor` must be a fingertip and
 * `syntheticHand` a synthetic hand. `hand` is not tested: with an unknown one nothing will ever be held.
 *
 * returns its handle, or -1 when the interactor or the synthetic hand is unknown or of another kind */
VELK_API VelkHandPokeLimiterVisualHandle velk_HandPokeLimiterVisual_Create(
    VelkDataSourceHandle hand, VelkInteractorHandle interactor, VelkDataSourceHandle syntheticHand);

/* Ends the handle and the limiter. A wrist that it holds is let go, if the interactor still lives; destroyed
 * after the interactor, it leaves the wrist where it is.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_HandPokeLimiterVisual_Destroy(VelkHandPokeLimiterVisualHandle visual);

/* Holds the wrist for this frame if the finger is past a surface.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_HandPokeLimiterVisual_Update(VelkHandPokeLimiterVisualHandle visual);

/* FINGERS
 *
 * Two recognizers tell per finger whether it grabs: pinch by the distance to the thumb, palm grip by how far
 * the finger is closed. Both take records of their own each frame, know nothing of data sources and
 * interactors, and share the shape of their read-outs. Per finger: a state with hysteresis, whether it
 * changed in the last update, and a score from 0 to 1. None of the thresholds can be changed, and state is
 * never reset: without updates everything stays as it was, and a lost hand sent as zeros reads as fully
 * gripped and keeps a finger's pinch that was on. Don't send what isn't tracked. */

enum VelkHandFinger VELK_INT32
{
    VelkHandFinger_None = -1,
    VelkHandFinger_Thumb = 0,
    VelkHandFinger_Index = 1,
    VelkHandFinger_Middle = 2,
    VelkHandFinger_Ring = 3,
    VelkHandFinger_Pinky = 4,
    VELK_FORCE_INT32(VelkHandFinger)
};
typedef enum VelkHandFinger VelkHandFinger;

/* PINCH
 *
 *                               starts below   ends above      or above the least distance of this pinch by
 *     a finger, view good           0.016          0.1                       0.016
 *     a finger, view not good       0.02           0.1                       0.04
 *     the thumb                     0.03           0.05                      0.04
 *
 * Distances in metres. A finger's is from its tip to the thumb's last bone; it starts only beyond the thumb's
 * last joint, and goes on, once started, along the bone before it. The thumb's is from its last bone to those
 * bones of the index finger that cross or oppose it, while its tip is less than 0.05 from the plane of the
 * index finger's joints. A thumb tip exactly in that plane, or index joints exactly in line, which have no
 * plane, are never near: made-up hands with straight fingers don't start a thumb pinch.
 *
 * The score is 1 at the distance that starts, 0 at the one that ends, whatever the state.
 *
 * The view is good in an update that is given both directions with an angle of at most 40 degrees between
 * them (a NaN angle counts as good). Pass vectors that agree when the head sees the hand well. */

/* The positions of a hand's joints, by VelkHandJointId: metres, all in one space, usually the wrist's. */
typedef struct velk_HandPinchData
{
    talpVector3f jointPositions[VELK_HAND_JOINT_COUNT];
} velk_HandPinchData;

/* Creates a pinch recognizer, with no finger pinching. Counted: see rule 14.
 *
 * returns its handle */
VELK_API VelkPinchGrabAPIHandle velk_FingerPinchGrabAPI_Create(void);

/* Ends the handle and the recognizer.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_Destroy(VelkPinchGrabAPIHandle api);

/* Runs one frame on a hand. `wrist` and `hmd` are the directions of the view test, in one space and of any
 * length; a null `wrist` or `hmd` is absent, and the view then not good.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_UpdateHandWristHMDData(VelkPinchGrabAPIHandle api,
                                                                const velk_HandPinchData* data,
                                                                const talpVector3f* wrist,
                                                                const talpVector3f* hmd);

/* Runs one frame without directions: the view is not good.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_UpdateHandData(VelkPinchGrabAPIHandle api,
                                                        const velk_HandPinchData* data);

/* Stores whether the finger pinches. VelkHandFinger_None, and any other number that is none of the five,
 * doesn't pinch and has no score, here and below.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_GetFingerIsGrabbing(VelkPinchGrabAPIHandle api,
                                                             VelkHandFinger finger, bool* isGrabbing);

/* Stores whether the last update changed the finger's state to `targetGrabState`: true for a start, false for
 * an end.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged(VelkPinchGrabAPIHandle api,
                                                                    VelkHandFinger finger,
                                                                    bool targetGrabState, bool* hasChanged);

/* Stores the point to hold at, in the space of the positions: midway between the thumb's tip and that of the
 * finger with the highest score, the earlier finger on a tie; the thumb's tip alone when none scores higher
 * than the thumb. Zero before the first update.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_GetCenterOffset(VelkPinchGrabAPIHandle api, talpVector3f* offset);

/* Stores the finger's score.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPinchGrabAPI_GetFingerGrabScore(VelkPinchGrabAPIHandle api, VelkHandFinger finger,
                                                            float* score);

/* PALM GRIP
 *
 * A finger grips when its strength rises above 0.9 and lets go below 0.6. The strength rises from 0 to 1
 * while the finger closes, in degrees: the thumb by its mean curl from 190 to 220; index, middle and ring
 * from 180 to 250 and the little finger from 180 to 245, by two parts of mean curl and one of knuckle
 * flexion. 180 is a straight finger.
 *
 * The frames of the joints matter. Curl tells closing from opening by a joint's local Z, which must be the
 * axis that the finger bends about; flexion compares a knuckle's Y with the Y of the space that the poses are
 * in, about -Z. Frames that point along the bone with Z, as hand trackers give them, read at random: turn
 * them first. What suits is, for joints and root alike, the root framed as a bone from the wrist to the
 * middle knuckle: +Z across the hand, to the right on either hand held palm down with the fingers forward; +X
 * along the bone, to the tip on the right hand and to the wrist on the left; and so +Y out of the back of the
 * right hand and into the palm of the left. */

/* A hand for the palm grip. */
typedef struct velk_HandPalmData
{
    talpPosef jointPoses[VELK_HAND_JOINT_COUNT]; /* by VelkHandJointId, in the frame of the root */
    talpPosef rootPose;                          /* stored and not read */
    int32_t handedness;                          /* 0 or not: picks the palm point, see GetCenterOffset */
} velk_HandPalmData;

/* Creates a palm grip recognizer, with no finger gripping. Counted: see rule 14.
 *
 * returns its handle */
VELK_API VelkPalmGrabAPIHandle velk_FingerPalmGrabAPI_Create(void);

/* Ends the handle and the recognizer.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPalmGrabAPI_Destroy(VelkPalmGrabAPIHandle api);

/* Runs one frame on a hand.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPalmGrabAPI_UpdateHandData(VelkPalmGrabAPIHandle api,
                                                       const velk_HandPalmData* data);

/* Stores whether the finger grips; false for any number that is none of the five.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPalmGrabAPI_GetFingerIsGrabbing(VelkPalmGrabAPIHandle api, VelkHandFinger finger,
                                                            bool* isGrabbing);

/* Stores whether the last update changed the finger's state to `targetGrabState`: true for a start, false for
 * an end. False for any number that is none of the five.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged(VelkPalmGrabAPIHandle api,
                                                                   VelkHandFinger finger,
                                                                   bool targetGrabState, bool* hasChanged);

/* Stores a fixed point in the palm, in root space: (0.07, -0.03, 0) for a handedness other than 0, which in
 * the frames above is the right hand, (-0.07, 0.03, 0) for 0. Zero before the first update.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPalmGrabAPI_GetCenterOffset(VelkPalmGrabAPIHandle api, talpVector3f* offset);

/* Stores the finger's strength; 0 for any number that is none of the five. Coincident joints read as 1.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_FingerPalmGrabAPI_GetFingerGrabScore(VelkPalmGrabAPIHandle api, VelkHandFinger finger,
                                                           float* score);

/* DETECTION
 *
 * A direction quantizer labels a direction by its angle to a reference direction; a direction recognizer is
 * active while the labels are the wanted ones. Neither remembers the frame before: there is no hysteresis.
 * Every frame update the quantizer, then the recognizer with it, then ask whether it is active. */

/* Labels, by the angle in degrees. */
enum VelkDirectionAlignment VELK_INT32
{
    VelkDirectionAlignment_None = 0,   /* the direction holds a NaN */
    VelkDirectionAlignment_Close = 1,  /* below middleAngle */
    VelkDirectionAlignment_Middle = 2, /* from middleAngle to below farAngle */
    VelkDirectionAlignment_Far = 3,    /* from farAngle up */
    VELK_FORCE_INT32(VelkDirectionAlignment)
};
typedef enum VelkDirectionAlignment VelkDirectionAlignment;

/* One wish: that `axis` has the label `alignment`. */
typedef struct velk_DetectionParameter
{
    int32_t axis;      /* 0, the only one that quantizers have */
    int32_t alignment; /* a VelkDirectionAlignment */
} velk_DetectionParameter;

/* The wishes of a recognizer. They must all be met, so two labels for one axis never are. */
typedef struct velk_DetectionParameterList
{
    int32_t count; /* not negative; with 0 everything is met */
    const velk_DetectionParameter* entries;
} velk_DetectionParameterList;

/* Creates a quantizer. `direction` is the reference, of any length; a null or zero `direction` measures
 * 90 degrees to everything. Angles in degrees, `middleAngle` not above `farAngle`: otherwise nothing is ever
 * labelled Middle.
 *
 * returns its handle */
VELK_API VelkDirectionQuantizerHandle velk_DirectionQuantizer_Create(talpVector3f* direction,
                                                                     float middleAngle, float farAngle);

/* Ends the handle and the quantizer.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_DirectionQuantizer_Destroy(VelkDirectionQuantizerHandle quantizer);

/* Labels a direction, of any length, in the space of the reference. A zero one measures 90 degrees.
 *
 * returns 0, or -1 for an unknown handle or a null `value` */
VELK_API int32_t velk_DirectionQuantizer_Update(VelkDirectionQuantizerHandle quantizer,
                                                const talpVector3f* value);

/* Stores the label of the last update, a VelkDirectionAlignment. `axis` is 0.
 *
 * returns 0, or -1 for an unknown handle, a null `alignment`, another axis, or before the first update */
VELK_API int32_t velk_DirectionQuantizer_GetValue(VelkDirectionQuantizerHandle quantizer, int axis,
                                                  int* alignment);

/* Creates a recognizer, not active.
 *
 * returns its handle */
VELK_API VelkDirectionRecognizerHandle velk_DirectionRecognizer_Create(void);

/* Ends the handle and the recognizer.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_DirectionRecognizer_Destroy(VelkDirectionRecognizerHandle recognizer);

/* Compares the list with the labels of the quantizer's last update.
 *
 * returns 0; -1 for an unknown recognizer or quantizer or a null `list`, which change nothing; or -1 when a
 * wish names an axis without a label, as before the quantizer's first update: it is then not active */
VELK_API int32_t velk_DirectionRecognizer_Update(VelkDirectionRecognizerHandle recognizer,
                                                 VelkDirectionQuantizerHandle quantizer,
                                                 velk_DetectionParameterList* list);

/* Stores whether the last update met the whole list.
 *
 * returns 0, or -1 for an unknown handle or a null `isActive` */
VELK_API int32_t velk_DirectionRecognizer_IsActive(VelkDirectionRecognizerHandle recognizer, bool* isActive);

/* PROXIMITY FIELDS
 *
 * A box that may be turned, from which the nearest point to another can be told. Nothing in this header asks
 * it yet: it can be created, moved, sized and destroyed. */

/* Creates a field. `size` is its full size; every component of 0 or less, or NaN, becomes 1.1920929e-07.
 *
 * returns its handle */
VELK_API VelkProximityFieldHandle velk_BoxProximityField_Create(const talpPosef* pose,
                                                                const talpVector3f* size);

/* Moves the field.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_BoxProximityField_SetPose(VelkProximityFieldHandle field, const talpPosef* pose);

/* Sizes the field, as at creation.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_BoxProximityField_SetSize(VelkProximityFieldHandle field, const talpVector3f* size);

/* Ends the handle and the field.
 *
 * returns 0, or -1 for an unknown handle */
VELK_API int32_t velk_ProximityField_Destroy(VelkProximityFieldHandle field);

/* THE LIBRARY ITSELF
 *
 * velk's own log goes to the standard error stream, a line a message, "[VELK:Source:I] text". It can neither
 * be redirected nor silenced, and says little: the three lines with which usage counting starts, and the
 * counts (rule 14). */

/* Stores the library's version, such as "0.52.0". The string is constant and stays the library's.
 *
 * returns 0 */
VELK_API int32_t velk_Common_GetVersion(const char** version);

/* Sets the function that receives messages for the host, or takes it away for a null `callback`. It is a
 * channel apart from the log, and so far only one message comes this way: during this very call, on the same
 * thread, "NativeLog: connection established!" with color 5. `length` is the message's without its end; the
 * text lasts only for the call. */
VELK_API void velk_SetNativeLogCallback(void (*callback)(const char* message, int color, int length));

/* Counts one use of hand grabs, to see usage counting at work: starts it if nothing has yet, and sends
 * nothing by itself. The count is printed when the thread of rule 14 next wakes.
 *
 * returns 0, or -1 if counting could not start */
VELK_API int32_t velk_Telemetry_SendTestData(void);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-use-using) */

/* LAYOUT
 *
 * The records are fixed: hosts in other languages map them by these numbers. */

#if defined(__cplusplus)
#define VELK_LAYOUT(name, condition) static_assert(condition, #name)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define VELK_LAYOUT(name, condition) _Static_assert(condition, #name)
#else
#define VELK_LAYOUT(name, condition) typedef char name[(condition) ? 1 : -1]
#endif
#define VELK_SIZE(type, bytes) VELK_LAYOUT(type##_takes_##bytes##_bytes, sizeof(type) == (bytes))
#define VELK_AT(type, field, bytes) VELK_LAYOUT(type##_##field##_at_##bytes, offsetof(type, field) == (bytes))

VELK_SIZE(bool, 1);
VELK_SIZE(VelkInteractorHandle, 4);
VELK_SIZE(VelkInteractorState, 4);
VELK_SIZE(VelkHandFinger, 4);

VELK_SIZE(talpVector2f, 8);
VELK_SIZE(talpVector3f, 12);
VELK_SIZE(talpQuatf, 16);
VELK_SIZE(talpPosef, 28);
VELK_AT(talpPosef, orientation, 0);
VELK_AT(talpPosef, position, 16);

VELK_SIZE(velk_SurfaceHit, 28);
VELK_AT(velk_SurfaceHit, normal, 12);
VELK_AT(velk_SurfaceHit, distance, 24);

VELK_SIZE(velk_BoundsClipper, 24);
VELK_AT(velk_BoundsClipper, size, 12);

VELK_SIZE(velk_PokeInteractableConfig, 56);
VELK_AT(velk_PokeInteractableConfig, cancelSelectTangent, 20);
VELK_AT(velk_PokeInteractableConfig, positionPinningEnabled, 24);
VELK_AT(velk_PokeInteractableConfig, maxPinDistance, 28);
VELK_AT(velk_PokeInteractableConfig, dragThresholdsEnabled, 32);
VELK_AT(velk_PokeInteractableConfig, dragNormal, 36);
VELK_AT(velk_PokeInteractableConfig, dragTangent, 40);
VELK_AT(velk_PokeInteractableConfig, dragEaseDuration, 44);
VELK_AT(velk_PokeInteractableConfig, minThresholdsEnabled, 48);
VELK_AT(velk_PokeInteractableConfig, minNormal, 52);

VELK_SIZE(velk_PokeInteractorConfig, 16);
VELK_AT(velk_PokeInteractorConfig, radius, 12);

VELK_SIZE(velk_HandData, 412);
VELK_AT(velk_HandData, rootPose, 384);
VELK_SIZE(velk_HandPinchData, 288);
VELK_SIZE(velk_HandPalmData, 704);
VELK_AT(velk_HandPalmData, rootPose, 672);
VELK_AT(velk_HandPalmData, handedness, 700);

VELK_SIZE(velk_DetectionParameter, 8);
VELK_AT(velk_DetectionParameter, alignment, 4);
#if UINTPTR_MAX > 0xFFFFFFFFu
VELK_SIZE(velk_DetectionParameterList, 16);
VELK_AT(velk_DetectionParameterList, entries, 8);
#endif

#undef VELK_AT
#undef VELK_SIZE
#undef VELK_LAYOUT
#undef VELK_HANDLE
#undef VELK_FORCE_INT32
#undef VELK_INT32

#endif
