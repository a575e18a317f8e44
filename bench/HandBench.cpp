// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// One frame of a filtered hand: 26 one euro filters over a moving hand. `allocations` counts those of a
// frame.
#include "tests/support/AllocationCounter.h"
#include "velk_capi/detail/HandDataConversions.h"
#include "velk_capi/detail/VelkDataSource.h"
#include "velk_core/data_sources/hand/ExternalHandSource.h"
#include "velk_core/data_sources/hand/OneEuroHandFilter.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <velk/velk.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace
{

using velk::data::HandData;

constexpr std::size_t kFrames = 256;
constexpr int kJoints = 24;

/// Every joint bends to and fro, and the root sways.
talpQuatf turnAt(std::size_t frame, int joint)
{
    const float phase = 6.2831853f * static_cast<float>(frame) / static_cast<float>(kFrames);
    const float half = 0.5f * std::sin(phase + 0.1f * static_cast<float>(joint));
    return {0.0f, 0.0f, std::sin(half), std::cos(half)};
}

velk_HandData recordAt(std::size_t frame)
{
    velk_HandData record{};
    for (int i = 0; i < kJoints; ++i) {
        record.joints[i] = turnAt(frame, i);
    }
    record.rootPose.orientation = turnAt(frame, kJoints);
    record.rootPose.position = {record.rootPose.orientation.z, 1.0f, 0.0f};
    return record;
}

/// Calls `frame` with 0, 1, 2 and so on, round and round.
template <typename Frame>
void run(benchmark::State& state, const Frame& frame)
{
    frame(0); // the first one seeds the filters
    const long before = velk::test::allocations;
    std::size_t i = 0;
    for (auto _ : state) {
        frame(++i % kFrames);
    }
    const auto allocations = static_cast<double>(velk::test::allocations - before);
    state.counters["allocations"] = benchmark::Counter(allocations, benchmark::Counter::kAvgIterations);
}

void FilteredHand(benchmark::State& state)
{
    std::vector<HandData> hands;
    for (std::size_t i = 0; i < kFrames; ++i) {
        SpaceConversions::capiToCore(recordAt(i), hands.emplace_back(kJoints));
    }
    const auto source = std::make_shared<velk::data_source::ExternalHandSource>(kJoints);
    velk::data_source::OneEuroHandFilter filter(source, true);
    run(state, [&](std::size_t i) {
        source->setData(hands[i]);
        benchmark::DoNotOptimize(filter.updateData());
    });
}

void FilteredHandWithRecordsInAndOut(benchmark::State& state)
{
    std::array<velk_HandData, kFrames> records{};
    for (std::size_t i = 0; i < kFrames; ++i) {
        records[i] = recordAt(i);
    }
    velk::telemetry::disableSendingThread(); // or the program's end would wait for it
    namespace capi = velk::capi;
    const auto source = capi::data_source::create(VelkDataSourceType_External);
    const auto filter = capi::data_modifier::create(VelkDataModifierType_OneEuroHandFilter, source);
    velk_HandData filtered{};
    run(state, [&](std::size_t i) {
        capi::external_hand_source::setData(source, &records[i]);
        capi::data_source::update(filter);
        capi::data_source::getData(filter, &filtered);
    });
    capi::data_source::destroy(filter);
    capi::data_source::destroy(source);
}

BENCHMARK(FilteredHand);
BENCHMARK(FilteredHandWithRecordsInAndOut);

} // namespace
