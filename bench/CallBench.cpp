// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// What a call costs before anything is decided, and what an object costs over its life.
#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/IInteractor.h"
#include "velk_core/interaction/ray/RayInteractor.h"

#include <velk/velk.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace
{

enum class Handle : int32_t
{
};
using Registry = velk::capi::ObjectRegistry<velk::interaction::IInteractor, Handle>;

constexpr std::size_t kRays = 16; // a power of two

/// Rays with handles that don't follow on each other.
std::vector<Handle> fill(Registry& registry)
{
    std::vector<Handle> handles;
    while (handles.size() < kRays) {
        registry.destroy(registry.create<velk::interaction::RayInteractor>());
        handles.push_back(registry.create<velk::interaction::RayInteractor>());
    }
    return handles;
}

void LookUp(benchmark::State& state)
{
    Registry registry;
    const std::vector<Handle> handles = fill(registry);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(registry.getRawPointer(handles[i++ % kRays]));
    }
}

void CheckedCast(benchmark::State& state)
{
    Registry registry;
    const std::vector<Handle> handles = fill(registry);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            velk::capi::getRawPointerAs<velk::interaction::RayInteractor>(registry, handles[i++ % kRays]));
    }
}

void RayFrameWithEmptyScene(benchmark::State& state)
{
    const auto ray = velk_RayInteractor_Create();
    const talpPosef pose{{0.0f, 0.0f, 0.0f, 1.0f}, {0.0f, 0.0f, 0.0f}};
    VelkInteractorState result{};
    for (auto _ : state) {
        velk_RayInteractor_SetPose(ray, &pose);
        velk_Interactor_Update(ray);
        velk_Interactor_GetState(ray, &result);
        benchmark::DoNotOptimize(velk_Interactor_GetInteractable(ray));
    }
    velk_Interactor_Destroy(ray);
}

template <typename Create>
void createAndDestroy(benchmark::State& state, const Create& create)
{
    const talpPosef pose{{0.0f, 0.0f, 0.0f, 1.0f}, {0.0f, 0.0f, 0.0f}};
    const talpVector2f size{0.1f, 0.1f};
    const auto surface = velk_PointablePlane_Create(&pose, &size);
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<VelkInteractableHandle> made(count);
    std::mt19937 random(1);
    for (auto _ : state) {
        for (auto& each : made) {
            each = create(surface);
        }
        state.PauseTiming();
        std::shuffle(made.begin(), made.end(), random);
        state.ResumeTiming();
        for (const auto each : made) {
            velk_Interactable_Destroy(each);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    velk_PointableSurface_Destroy(surface);
}

void RayInteractablesInAnyOrder(benchmark::State& state)
{
    createAndDestroy(state, velk_RayInteractable_Create);
}

BENCHMARK(LookUp);
BENCHMARK(CheckedCast);
BENCHMARK(RayFrameWithEmptyScene);
BENCHMARK(RayInteractablesInAnyOrder)->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
