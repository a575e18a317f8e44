// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// A host that loads the library LIBRARY at run time, so that its own exit handlers run after the library's.
//
//   velk_Exit_test LIBRARY handlers   calls from an exit handler and from a global's destructor
//   velk_Exit_test LIBRARY race       ends 20 processes whose frame loop runs on in another thread
//   velk_Exit_test LIBRARY counting   ends one whose thread goes on counting: takes 10 seconds
//   velk_Exit_test LIBRARY unload     loads, uses, destroys and unloads; the heap stays as it is
#include <velk/velk.h>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <malloc.h>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{

void* library = nullptr;

template <typename Function>
Function get(const char* name)
{
    return reinterpret_cast<Function>(dlsym(library, name));
}

#define CALL(name) get<decltype(&(name))>(#name)

void expect(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::_Exit(1);
    }
}

/// One frame of everything, from creation to destruction.
void useAll()
{
    const talpPosef here = {{0, 0, 0, 1}, {0, 0, 0}};
    const talpPosef ahead = {{0, 0, 0, 1}, {0, 0, -0.5f}};
    const auto plane = CALL(velk_PointablePlane_Create)(&ahead, nullptr);
    const auto panel = CALL(velk_RayInteractable_Create)(plane);
    const auto patch = CALL(velk_ClippedPlaneSurface_Create)(&here, nullptr, 0);
    const auto button = CALL(velk_PokeInteractable_Create)(patch);
    const auto cap = CALL(velk_PokeButtonVisual_Create)(button, &here, 0.02f);
    const auto ray = CALL(velk_RayInteractor_Create)();
    const auto finger = CALL(velk_PokeInteractor_Create)();
    const auto selector = CALL(velk_Selector_Create)();
    const auto hand = CALL(velk_DataSource_Create)(VelkDataSourceType_External);
    const velk_HandData data = {};
    const auto quantizer = CALL(velk_DirectionQuantizer_Create)(nullptr, 30, 60);
    const talpVector3f size = {1, 1, 1};
    const auto field = CALL(velk_BoxProximityField_Create)(&here, &size);

    VelkInteractorState rayState = VelkInteractorState_Disabled;
    VelkInteractorState fingerState = VelkInteractorState_Disabled;
    CALL(velk_Interactor_SetSelector)(ray, selector);
    CALL(velk_Selector_Select)(selector);
    CALL(velk_Interactor_Update)(ray);
    CALL(velk_Interactor_GetState)(ray, &rayState);
    for (const float height : {0.02f, 0.01f, -0.01f}) {
        const talpPosef tip = {{0, 0, 0, 1}, {0, 0, height}};
        CALL(velk_PokeInteractor_SetPointTransform)(finger, &tip);
        CALL(velk_Interactor_Update)(finger);
    }
    CALL(velk_Interactor_GetState)(finger, &fingerState);
    expect(rayState == VelkInteractorState_Select && fingerState == VelkInteractorState_Select,
           "presses work");
    expect(CALL(velk_ExternalHandSource_SetData)(hand, &data) == 0, "hands are taken");

    const bool gone =
        CALL(velk_Interactable_Destroy)(button) == 0 && CALL(velk_Interactable_Destroy)(panel) == 0 &&
        CALL(velk_Interactor_Destroy)(ray) == 0 && CALL(velk_Interactor_Destroy)(finger) == 0 &&
        CALL(velk_PokeButtonVisual_Destroy)(cap) == 0 && CALL(velk_SurfacePatch_Destroy)(patch) == 0 &&
        CALL(velk_PointableSurface_Destroy)(plane) == 0 && CALL(velk_Selector_Destroy)(selector) == 0 &&
        CALL(velk_DirectionQuantizer_Destroy)(quantizer) == 0 &&
        CALL(velk_ProximityField_Destroy)(field) == 0 && CALL(velk_DataSource_Destroy)(hand) == 0;
    expect(gone, "all is destroyed");
}

bool handlersCall = false;

void useAfterExit()
{
    if (handlersCall) {
        useAll();
        expect(CALL(velk_Telemetry_SendTestData)() == -1, "nothing is counted any more");
        expect(CALL(velk_FingerPinchGrabAPI_Create)() >= 0, "what would be counted still works");
    }
}

struct Global
{
    ~Global() { useAfterExit(); }
} global;

template <typename Loop>
void endBeside(const Loop& loop)
{
    const pid_t process = fork();
    if (process == 0) {
        std::freopen("/dev/null", "w", stderr);
        std::thread([&loop] {
            while (true) {
                loop();
            }
        }).detach();
        usleep(20'000);
        std::exit(0);
    }
    int status = 0;
    waitpid(process, &status, 0);
    expect(status == 0, "the process ends in peace");
}

void countAndUse()
{
    useAll();
    CALL(velk_FingerPinchGrabAPI_Destroy)(CALL(velk_FingerPinchGrabAPI_Create)());
}

void unloadAgainAndAgain(const char* path)
{
    constexpr int kLoads = 200;
    constexpr std::size_t kOfTheLoader = 32; // bytes a load
    std::size_t before = 0;
    for (int loads = -20; loads < kLoads; ++loads) {
        before = loads == 0 ? mallinfo2().uordblks : before;
        if (library == nullptr) {
            library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
        }
        useAll();
        dlclose(library);
        library = nullptr;
    }
    const std::size_t grown = mallinfo2().uordblks - before;
    std::printf("%d loads keep %zd bytes\n", kLoads, static_cast<ssize_t>(grown));
    expect(static_cast<ssize_t>(grown) <= static_cast<ssize_t>(kLoads * kOfTheLoader),
           "the heap stays as it is");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        return 2;
    }
    std::atexit(useAfterExit); // before the library is there
    library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    expect(library != nullptr, "the library is there");
    const std::string_view mode = argv[2];
    if (mode == "handlers") {
        useAll();
        handlersCall = true;
    } else if (mode == "race") {
        for (int runs = 0; runs < 20; ++runs) {
            endBeside(useAll);
        }
    } else if (mode == "counting") {
        endBeside(countAndUse);
    } else {
        unloadAgainAndAgain(argv[1]);
    }
    return 0;
}
