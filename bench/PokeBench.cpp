// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// One poke update against N buttons on a wall: with the fingertip far from all, moving among them, and
// holding one pressed. And one patch moved, as a host does it: another made, exchanged, the old one
// destroyed. `allocations` counts those of one update or move.
#include "math/Aliases.h"
#include "tests/support/AllocationCounter.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"

#include <benchmark/benchmark.h>
#include <velk/velk.h>

#include <cmath>
#include <memory>
#include <vector>

namespace
{

using velk::Posef;
using velk::Vector2f;
using velk::Vector3f;
using velk::interaction::InteractorState;
using velk::interaction::PokeInteractable;
using velk::interaction::PokeInteractor;
using velk::interaction::surface::BoundsClipper;
using velk::interaction::surface::ClippedPlaneSurface;
using velk::interaction::surface::PointablePlane;
using velk::test::allocations;

constexpr float kButtonSize = 0.02f; // metres
constexpr float kSpacing = 0.03f;

/// N buttons as near to a square as can be, around the origin, facing +z.
class Wall
{
public:
    explicit Wall(int count)
        : columns_(static_cast<int>(std::ceil(std::sqrt(static_cast<float>(count)))))
    {
        for (int i = 0; i < count; ++i) {
            buttons_.push_back(makeButton(place(i)));
        }
    }

    /// Wanders over the buttons of a square of ten by ten; on a smaller wall, over all of them.
    Vector3f wander(int frame, float height) const
    {
        const float reach = 0.5f * kSpacing * std::fmin(static_cast<float>(columns_), 10.0f);
        const float angle = 0.02f * static_cast<float>(frame);
        return {reach * std::sin(angle), reach * std::sin(1.618f * angle), height};
    }

private:
    Vector3f place(int i) const
    {
        const float middle = 0.5f * static_cast<float>(columns_ - 1);
        return {kSpacing * (static_cast<float>(i % columns_) - middle),
                kSpacing * (static_cast<float>(i / columns_) - middle), 0.0f};
    }

    static std::unique_ptr<PokeInteractable> makeButton(const Vector3f& position)
    {
        auto plane = std::make_shared<PointablePlane>(Posef({}, position), Vector2f(100.0f, 100.0f));
        const Vector3f size(kButtonSize, kButtonSize, kButtonSize);
        std::vector<BoundsClipper> clippers{{plane, Vector3f(), size}};
        auto patch = std::make_shared<ClippedPlaneSurface>(plane, std::move(clippers));
        return std::make_unique<PokeInteractable>(PokeInteractable::Config(), patch, nullptr);
    }

    int columns_;
    std::vector<std::unique_ptr<PokeInteractable>> buttons_;
};

/// Updates a finger frame after frame at where `path` has it.
template <typename Path>
void run(benchmark::State& state, PokeInteractor& finger, const Path& path)
{
    int frame = 0;
    const auto update = [&] {
        finger.setPointPosition(path(frame++));
        finger.update();
    };
    for (int warmUp = 0; warmUp < 10; ++warmUp) {
        update();
    }
    const long before = allocations;
    for (auto _ : state) {
        update();
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}

void PokeFarFromAll(benchmark::State& state)
{
    const Wall wall(static_cast<int>(state.range(0)));
    PokeInteractor finger;
    run(state, finger, [&](int frame) { return wall.wander(frame, 2.0f); });
}

void PokeAmongThem(benchmark::State& state)
{
    const Wall wall(static_cast<int>(state.range(0)));
    PokeInteractor finger;
    run(state, finger, [&](int frame) { return wall.wander(frame, 0.02f); });
}

void PokeHeldPress(benchmark::State& state)
{
    const Wall wall(static_cast<int>(state.range(0)));
    const Vector3f button =
        wall.wander(0, 0.0f) - Vector3f(state.range(0) == 1 ? 0.0f : 0.5f * kSpacing, 0.0f, 0.0f);
    PokeInteractor finger;
    for (const float height : {0.1f, 0.01f, -0.01f}) {
        finger.setPointPosition(button + Vector3f(0.0f, 0.0f, height));
        finger.update();
    }
    run(state, finger, [&](int frame) {
        return button + Vector3f(0.0005f * std::sin(0.1f * static_cast<float>(frame)), 0.0f, -0.01f);
    });
    if (finger.getState() != InteractorState::Select) {
        state.SkipWithError("the press was lost");
    }
}

void PatchMoved(benchmark::State& state)
{
    const velk_BoundsClipper clipper{{0, 0, 0}, {kButtonSize, kButtonSize, kButtonSize}};
    talpPosef pose{{0, 0, 0, 1}, {0, 0, 0}};
    VelkSurfacePatchHandle patch = velk_ClippedPlaneSurface_Create(&pose, &clipper, 1);
    const VelkInteractableHandle button = velk_PokeInteractable_Create(patch);
    const long before = allocations;
    for (auto _ : state) {
        pose.position.x += 0.001f;
        const VelkSurfacePatchHandle moved = velk_ClippedPlaneSurface_Create(&pose, &clipper, 1);
        velk_PokeInteractable_SetSurface(button, moved);
        velk_SurfacePatch_Destroy(patch);
        patch = moved;
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
    velk_Interactable_Destroy(button);
    velk_SurfacePatch_Destroy(patch);
}

void buttonCounts(benchmark::internal::Benchmark* bench)
{
    for (const int count : {1, 10, 100, 1000, 10000}) {
        bench->Arg(count);
    }
}

BENCHMARK(PokeFarFromAll)->Apply(buttonCounts);
BENCHMARK(PokeAmongThem)->Apply(buttonCounts);
BENCHMARK(PokeHeldPress)->Apply(buttonCounts);
BENCHMARK(PatchMoved);

} // namespace
