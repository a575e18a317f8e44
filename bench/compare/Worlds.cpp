// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Worlds.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace velk::compare
{

namespace
{

/// What both kinds need; `Surface` is the handle's type.
template <typename Surface>
class World
{
public:
    World(const Library& library, SharedScene scene)
        : library_(library)
        , scene_(std::move(scene))
    {
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    void answer(Answers& answers) const
    {
        for (const VelkInteractorHandle pointer : pointers_) {
            const auto found = numbers_.find(library_.Interactor_GetInteractable(pointer));
            answers.push_back(found == numbers_.end() ? -1 : found->second);
        }
    }

protected:
    ~World()
    {
        for (const VelkInteractorHandle pointer : pointers_) {
            library_.Interactor_Destroy(pointer);
        }
        for (const VelkInteractableHandle interactable : interactables_) {
            library_.Interactable_Destroy(interactable);
        }
    }

    void add(Surface surface, VelkInteractableHandle interactable)
    {
        numbers_.emplace(interactable, static_cast<int>(surfaces_.size()));
        surfaces_.push_back(surface);
        interactables_.push_back(interactable);
    }
    void read(VelkInteractorHandle pointer)
    {
        VelkInteractorState state{};
        library_.Interactor_Update(pointer);
        library_.Interactor_GetState(pointer, &state);
        library_.Interactor_GetInteractable(pointer);
    }
    template <typename Move>
    void move(const Move& move)
    {
        if (scene_->movesEvery != 0) {
            for (std::size_t i = 0; i < surfaces_.size(); i += scene_->movesEvery) {
                move(i);
            }
        }
    }

    const Library& library_;
    SharedScene scene_;
    std::vector<Surface> surfaces_;
    std::vector<VelkInteractableHandle> interactables_;
    std::vector<VelkInteractorHandle> pointers_;
    std::unordered_map<int, int> numbers_;
};

class RayWorld : public World<VelkPointableSurfaceHandle>
{
public:
    RayWorld(const Library& library, const SharedScene& scene)
        : World(library, scene)
    {
        for (const talpPosef& pose : scene_->poses) {
            const auto plane = library_.PointablePlane_Create(&pose, &scene_->half);
            add(plane, library_.RayInteractable_Create(plane));
        }
        for (std::size_t i = 0; i < scene_->pointers.size(); ++i) {
            pointers_.push_back(library_.RayInteractor_Create());
            library_.RayInteractor_SetMaxRayLength(pointers_.back(), 10.0f);
        }
    }
    RayWorld(const RayWorld&) = delete;
    RayWorld& operator=(const RayWorld&) = delete;
    ~RayWorld()
    {
        for (const VelkPointableSurfaceHandle plane : surfaces_) {
            library_.PointableSurface_Destroy(plane);
        }
    }

    void frame(int frame)
    {
        move([&](std::size_t i) {
            const talpPosef pose = scene_->poseAt(i, frame);
            library_.PointableSurface_SetPose(surfaces_[i], &pose);
        });
        for (std::size_t i = 0; i < pointers_.size(); ++i) {
            library_.RayInteractor_SetPose(pointers_[i], &scene_->pointerAt(i, frame));
            read(pointers_[i]);
        }
    }
};

class PokeWorld : public World<VelkSurfacePatchHandle>
{
public:
    PokeWorld(const Library& library, const SharedScene& scene)
        : World(library, scene)
        , clipper_{{0.0f, 0.0f, 0.0f}, {2.0f * scene->half.x, 2.0f * scene->half.y, 0.01f}}
    {
        for (const talpPosef& pose : scene_->poses) {
            const auto patch = library_.ClippedPlaneSurface_Create(&pose, &clipper_, 1);
            add(patch, library_.PokeInteractable_Create(patch));
        }
        for (std::size_t i = 0; i < scene_->pointers.size(); ++i) {
            pointers_.push_back(library_.PokeInteractor_Create());
        }
    }
    PokeWorld(const PokeWorld&) = delete;
    PokeWorld& operator=(const PokeWorld&) = delete;
    ~PokeWorld()
    {
        for (const VelkSurfacePatchHandle patch : surfaces_) {
            library_.SurfacePatch_Destroy(patch);
        }
    }

    void frame(int frame)
    {
        move([&](std::size_t i) {
            const talpPosef pose = scene_->poseAt(i, frame);
            const auto moved = library_.ClippedPlaneSurface_Create(&pose, &clipper_, 1);
            library_.PokeInteractable_SetSurface(interactables_[i], moved);
            library_.SurfacePatch_Destroy(surfaces_[i]);
            surfaces_[i] = moved;
        });
        for (std::size_t i = 0; i < pointers_.size(); ++i) {
            library_.PokeInteractor_SetPointTransform(pointers_[i], &scene_->pointerAt(i, frame));
            read(pointers_[i]);
        }
    }

private:
    velk_BoundsClipper clipper_;
};

template <typename AnyWorld>
Contestant framesOf(std::string name, const Library& library, const SharedScene& scene)
{
    const auto world = std::make_shared<AnyWorld>(library, scene);
    Contestant made = contestant(std::move(name), [world](int frame) { world->frame(frame); });
    if (!scene->poses.empty()) {
        made.answer = [world](int frame, Answers& answers) {
            world->frame(frame);
            world->answer(answers);
        };
        made.mustAgree = true;
    }
    return made;
}

} // namespace

Contestant libraryFrames(std::string name, const Library& library, Kind kind, const SharedScene& scene)
{
    return kind == Kind::Ray ? framesOf<RayWorld>(std::move(name), library, scene)
                             : framesOf<PokeWorld>(std::move(name), library, scene);
}

} // namespace velk::compare
