// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Jobs.h"

#include "Scenes.h"
#include "Worlds.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <random>

namespace velk::compare
{

namespace
{

constexpr std::size_t kMostForOld = 10000; // surfaces: more take it minutes to make and destroy

/// Adds a contestant for each library that a job is about.
template <typename Add>
void forEachLibrary(const Libraries& libraries, bool withOld, const Add& add)
{
    add("velk", libraries.velk);
    if (withOld && libraries.old) {
        add("old", *libraries.old);
    }
}

Job searchJob(const Libraries& libraries, std::string name, Kind kind, Scene made)
{
    const auto scene = std::make_shared<const Scene>(std::move(made));
    auto nothing = std::make_shared<Scene>(*scene);
    nothing->poses.clear();
    nothing->board.clear();
    nothing->movesEvery = 0;
    Job job{std::move(name), {}};
    if (!scene->poses.empty()) {
        forEachLibrary(libraries, scene->poses.size() <= kMostForOld,
                       [&](const char* who, const Library& library) {
                           job.contestants.push_back(libraryFrames(who, library, kind, scene));
                       });
        job.contestants.push_back(libraryFrames("scan", libraries.scan, kind, scene));
        job.contestants.push_back(embreeQueries("Embree", kind, scene, false));
        if (scene->movesEvery != 0) {
            job.contestants.push_back(embreeQueries("rebuilt", kind, scene, true));
        }
        job.contestants.push_back(bulletQueries(kind, scene));
        job.contestants.push_back(libraryFrames("empty", libraries.empty, kind, nothing));
    } else {
        forEachLibrary(libraries, true, [&](const char* who, const Library& library) {
            job.contestants.push_back(libraryFrames(who, library, kind, nothing));
        });
    }
    return job;
}

/// Makes and destroys so many panels, in random order, in each frame.
Contestant comings(std::string name, const Library& library, std::size_t count)
{
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), 0U);
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    const auto poses = std::make_shared<const Scene>(panels(static_cast<int>(count), 0));
    return contestant(std::move(name), [&library, order, poses](int) {
        std::vector<VelkPointableSurfaceHandle> planes;
        std::vector<VelkInteractableHandle> panels;
        for (const talpPosef& pose : poses->poses) {
            planes.push_back(library.PointablePlane_Create(&pose, &poses->half));
            panels.push_back(library.RayInteractable_Create(planes.back()));
        }
        for (const std::size_t i : order) {
            library.Interactable_Destroy(panels[i]);
            library.PointableSurface_Destroy(planes[i]);
        }
    });
}

Job creationJob(const Libraries& libraries, std::size_t count)
{
    // Each does as many objects in a frame, so that the ratio is that of an object.
    Job job{fmt::format("create and destroy {}", count), {}, 2};
    const auto repeated = [count](const char* name, const Library& library, std::size_t each) {
        Contestant made = comings(name, library, each);
        made.play = [play = made.play, times = static_cast<int>(count / each)](int first, int last) {
            play(0, (last - first) * times);
        };
        return made;
    };
    job.contestants.push_back(repeated("velk", libraries.velk, count));
    job.contestants.push_back(repeated("at 1000", libraries.velk, 1000));
    if (libraries.old && count <= kMostForOld) {
        job.contestants.push_back(repeated("old", *libraries.old, count));
    }
    return job;
}

/// A hand through the one euro filter: three calls.
auto filterFrame(const Library& library)
{
    const auto source = library.DataSource_Create(VelkDataSourceType_External);
    const auto filter = library.DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, source);
    return [&library, source, filter,
            hands = std::make_shared<const std::vector<velk_HandData>>(recordedHands().records)](int frame) {
        velk_HandData filtered;
        library.ExternalHandSource_SetData(source,
                                           &(*hands)[static_cast<std::size_t>(frame) % hands->size()]);
        library.DataSource_Update(filter);
        library.DataSource_GetData(filter, &filtered);
    };
}

template <typename Api, typename Update, typename IsGrabbing, typename Score, typename Records>
auto grabFrame(Api api, Update update, IsGrabbing isGrabbing, Score score, Records records)
{
    return [=, shared = std::make_shared<const Records>(std::move(records))](int frame) {
        bool grabs = false;
        float strength = 0.0f;
        update(api, &(*shared)[static_cast<std::size_t>(frame) % shared->size()]);
        for (int finger = VelkHandFinger_Thumb; finger <= VelkHandFinger_Pinky; ++finger) {
            isGrabbing(api, static_cast<VelkHandFinger>(finger), &grabs);
            score(api, static_cast<VelkHandFinger>(finger), &strength);
        }
    };
}

auto pinchFrame(const Library& library)
{
    return grabFrame(library.FingerPinchGrabAPI_Create(), library.FingerPinchGrabAPI_UpdateHandData,
                     library.FingerPinchGrabAPI_GetFingerIsGrabbing,
                     library.FingerPinchGrabAPI_GetFingerGrabScore, recordedHands().pinches);
}

auto palmFrame(const Library& library)
{
    return grabFrame(library.FingerPalmGrabAPI_Create(), library.FingerPalmGrabAPI_UpdateHandData,
                     library.FingerPalmGrabAPI_GetFingerIsGrabbing,
                     library.FingerPalmGrabAPI_GetFingerGrabScore, recordedHands().palms);
}

template <typename MakeFrame>
Job handJob(const Libraries& libraries, std::string name, const MakeFrame& makeFrame)
{
    Job job{std::move(name), {}};
    forEachLibrary(libraries, true, [&](const char* who, const Library& library) {
        job.contestants.push_back(contestant(who, makeFrame(library)));
    });
    return job;
}

/// Two hands filtered, pinching and gripping, and two rays and two fingertips among panels and keys.
Contestant everything(std::string name, const Library& library, int count)
{
    auto panelScene = std::make_shared<Scene>(panels(count / 2, 0));
    auto keyScene = std::make_shared<Scene>(keys(count / 2, 0, false));
    const auto second = [](Scene& scene) {
        Path path = scene.pointers.front();
        std::rotate(path.begin(), path.begin() + 1700, path.end());
        scene.pointers.push_back(std::move(path));
    };
    second(*panelScene);
    second(*keyScene);
    const Contestant rays = libraryFrames("", library, Kind::Ray, panelScene);
    const Contestant pokes = libraryFrames("", library, Kind::Poke, keyScene);
    const std::array filters{filterFrame(library), filterFrame(library)};
    const std::array pinches{pinchFrame(library), pinchFrame(library)};
    const std::array palms{palmFrame(library), palmFrame(library)};
    return contestant(std::move(name), [=](int frame) {
        for (std::size_t hand = 0; hand < 2; ++hand) {
            filters[hand](frame);
            pinches[hand](frame);
            palms[hand](frame);
        }
        rays.play(frame, frame + 1);
        pokes.play(frame, frame + 1);
    });
}

void addSearches(std::vector<Plan>& plans, const Libraries& libraries, int largest)
{
    const auto add = [&](std::string name, Kind kind, auto makeScene) {
        plans.push_back({name, [&libraries, name, kind, makeScene] {
                             return searchJob(libraries, name, kind, makeScene());
                         }});
    };
    add("ray, empty 0", Kind::Ray, [] { return panels(0, 0); });
    add("poke, empty 0", Kind::Poke, [] { return keys(0, 0, false); });
    constexpr std::array<std::pair<const char*, std::size_t>, 3> kMotions{
        {{"", 0}, {", a tenth moves", 10}, {", all move", 1}}};
    for (const auto& [motion, every] : kMotions) {
        for (int count = every == 10 ? 10 : 1; count <= largest; count *= 10) {
            const std::string end = fmt::format("{} {}", motion, count);
            add("ray" + end, Kind::Ray, [count, every = every] { return panels(count, every); });
        }
        for (int count = every == 10 ? 10 : 1; count <= largest; count *= 10) {
            const std::string end = fmt::format("{} {}", motion, count);
            add("hover" + end, Kind::Poke, [count, every = every] { return keys(count, every, false); });
            if (every == 0) {
                add("press" + end, Kind::Poke, [count] { return keys(count, 0, true); });
            }
        }
    }
    add("104 keys, ten fingertips", Kind::Poke, keyboard);
    add("300 panels, two controllers", Kind::Ray, controllers);
    add("40 keys in the other hand", Kind::Poke, heldBoard);
}

} // namespace

std::vector<Plan> allPlans(const Libraries& libraries, int largest)
{
    std::vector<Plan> plans;
    addSearches(plans, libraries, largest);
    const auto addHand = [&](std::string name, auto makeFrame) {
        plans.push_back(
            {name, [&libraries, name, makeFrame] { return handJob(libraries, name, makeFrame); }});
    };
    addHand("hand filter", filterFrame);
    addHand("pinch", pinchFrame);
    addHand("palm", palmFrame);
    addHand("call", [](const Library& library) {
        const auto ray = library.RayInteractor_Create();
        return [&library, ray](int) {
            VelkInteractorState state;
            library.Interactor_GetState(ray, &state);
        };
    });
    addHand("call, checked kind", [](const Library& library) {
        const auto ray = library.RayInteractor_Create();
        return [&library, ray](int) {
            talpVector3f origin;
            library.RayInteractor_GetOrigin(ray, &origin);
        };
    });
    for (const std::size_t count : {std::size_t{1000}, std::size_t{100000}}) {
        plans.push_back({fmt::format("create and destroy {}", count),
                         [&libraries, count] { return creationJob(libraries, count); }});
    }
    for (const int count : {1000, 10000}) {
        const std::string name = fmt::format("everything {}", count);
        plans.push_back({name, [&libraries, name, count] {
                             Job job{name, {}};
                             forEachLibrary(libraries, true, [&](const char* who, const Library& library) {
                                 job.contestants.push_back(everything(who, library, count));
                             });
                             if (count != 1000) {
                                 job.contestants.push_back(everything("at 1000", libraries.small, 1000));
                             }
                             return job;
                         }});
    }
    return plans;
}

Result worstUpdate(const Libraries& libraries, int count, int runs)
{
    constexpr int kFrames = 3000;
    std::vector<double> least(kFrames, 1e18);
    for (int run = 0; run < runs; ++run) {
        // Rests, a tenth moves, rests, all move once, rests.
        const Library& library = libraries.velk;
        const Scene scene = panels(count, 0);
        std::vector<VelkPointableSurfaceHandle> planes;
        std::vector<VelkInteractableHandle> panels;
        for (const talpPosef& pose : scene.poses) {
            planes.push_back(library.PointablePlane_Create(&pose, &scene.half));
            panels.push_back(library.RayInteractable_Create(planes.back()));
        }
        const auto ray = library.RayInteractor_Create();
        library.RayInteractor_SetMaxRayLength(ray, 10.0f);
        for (int k = 0; k < kFrames; ++k) {
            const std::size_t every = k >= 1000 && k < 1500 ? 10 : k == 2200 ? 1 : 0;
            for (std::size_t i = 0; every != 0 && i < planes.size(); i += every) {
                const talpPosef pose = scene.poseAt(i, k);
                library.PointableSurface_SetPose(planes[i], &pose);
            }
            library.RayInteractor_SetPose(ray, &scene.pointerAt(0, k));
            const double begin = now();
            library.Interactor_Update(ray);
            auto& best = least[static_cast<std::size_t>(k)];
            best = std::min(best, now() - begin);
        }
        library.Interactor_Destroy(ray);
        for (std::size_t i = 0; i < planes.size(); ++i) {
            library.Interactable_Destroy(panels[i]);
            library.PointableSurface_Destroy(planes[i]);
        }
    }
    const double worst = *std::max_element(least.begin(), least.end());
    const double middle = median(least);
    return {fmt::format("worst update {}", count),
            {{"velk", worst, 1.0, 1.0, 1.0}, {"median", middle, worst / middle, worst / middle, 1.0}}};
}

} // namespace velk::compare
