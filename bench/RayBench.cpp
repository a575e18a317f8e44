// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// One ray against N panels, and the look-up of one handle, as a host has them: through the shared library.
#include "tests/support/AllocationCounter.h"

#include <velk/velk.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace
{

constexpr float kSpacing = 0.25f;  // metres between the middles of panels
constexpr float kHalfSize = 0.1f;  // metres
constexpr float kDistance = 0.75f; // metres from the ray to the wall
constexpr std::size_t kFrames = 256;

/// N panels in rows of ten, facing +z, around the ray's middle direction.
class Wall
{
public:
    explicit Wall(int count)
    {
        for (int i = 0; i < count; ++i) {
            const float x = kSpacing * (static_cast<float>(i % 10) - 4.5f);
            const float y = kSpacing * (static_cast<float>(i / 10) - 4.5f);
            const talpPosef pose{{0.0f, 0.0f, 0.0f, 1.0f}, {x, y, -kDistance}};
            const talpVector2f size{kHalfSize, kHalfSize};
            surfaces_.push_back(velk_PointablePlane_Create(&pose, &size));
            panels_.push_back(velk_RayInteractable_Create(surfaces_.back()));
        }
    }
    Wall(const Wall&) = delete;
    Wall& operator=(const Wall&) = delete;
    ~Wall()
    {
        for (const auto panel : panels_) {
            velk_Interactable_Destroy(panel);
        }
        for (const auto surface : surfaces_) {
            velk_PointableSurface_Destroy(surface);
        }
    }

private:
    std::vector<VelkPointableSurfaceHandle> surfaces_;
    std::vector<VelkInteractableHandle> panels_;
};

/// Poses that sweep over the wall, or with no reach point at the middle of the panel right above the origin.
std::array<talpPosef, kFrames> sweep(float reach)
{
    std::array<talpPosef, kFrames> poses{};
    for (std::size_t i = 0; i < kFrames; ++i) {
        const float phase = 6.2831853f * static_cast<float>(i) / static_cast<float>(kFrames);
        const float x = 0.5f * kSpacing + reach * std::sin(phase);
        const float y = 0.5f * kSpacing + reach * std::sin(3.0f * phase);
        poses[i] = {{0.0f, 0.0f, 0.0f, 1.0f}, {x, y, 0.0f}};
    }
    return poses;
}

void run(benchmark::State& state, float reach)
{
    const Wall wall(static_cast<int>(state.range(0)));
    const auto ray = velk_RayInteractor_Create();
    const auto poses = sweep(reach);
    const long before = velk::test::allocations;
    std::size_t frame = 0;
    for (auto _ : state) {
        velk_RayInteractor_SetPose(ray, &poses[frame++ % kFrames]);
        velk_Interactor_Update(ray);
    }
    const auto allocations = static_cast<double>(velk::test::allocations - before);
    state.counters["allocations"] = benchmark::Counter(allocations, benchmark::Counter::kAvgIterations);
    velk_Interactor_Destroy(ray);
}

void RayHoldsOnePanel(benchmark::State& state)
{
    run(state, 0.0f);
}

void RaySweepsOverPanels(benchmark::State& state)
{
    run(state, 1.0f);
}

void HandleLookUp(benchmark::State& state)
{
    std::vector<VelkInteractorHandle> rays;
    for (int i = 0; i < 8; ++i) {
        rays.push_back(velk_RayInteractor_Create());
    }
    VelkInteractorState result{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(velk_Interactor_GetState(rays[5], &result));
    }
    for (const auto ray : rays) {
        velk_Interactor_Destroy(ray);
    }
}

BENCHMARK(RayHoldsOnePanel)->Arg(10)->Arg(100);
BENCHMARK(RaySweepsOverPanels)->Arg(10)->Arg(100);
BENCHMARK(HandleLookUp);

} // namespace
