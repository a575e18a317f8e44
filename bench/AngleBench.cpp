// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The angle functions beside those of the C runtime, over angles of half a turn and cosines of all sizes:
// nanoseconds a call, of calls that don't wait for each other.
#include "math/Angles.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <random>

namespace
{

template <typename Function>
void run(benchmark::State& state, float limit, Function function)
{
    std::array<float, 1024> values{};
    std::mt19937 random(1);
    for (float& value : values) {
        value = limit * (static_cast<float>(random()) * 0x1p-31f - 1.0f);
    }
    std::size_t i = 0;
    for (auto _ : state) {
        ++i;
        benchmark::DoNotOptimize(function(values[i % values.size()], values[(i + 7) % values.size()]));
    }
}

float sumOwn(float angle, float)
{
    const TAL::angles::SineAndCosine both = TAL::angles::SinCos(angle);
    return both.sine + both.cosine;
}

} // namespace

BENCHMARK_CAPTURE(run, sinAndCos_own, 1.57f, sumOwn);
BENCHMARK_CAPTURE(run, sinAndCos_runtime, 1.57f, [](float a, float) { return std::sin(a) + std::cos(a); });
BENCHMARK_CAPTURE(run, acos_own, 1.0f, [](float x, float) { return TAL::angles::ArcCos(x); });
BENCHMARK_CAPTURE(run, acos_runtime, 1.0f, [](float x, float) { return std::acos(x); });
BENCHMARK_CAPTURE(run, atan2_own, 1.0f, [](float y, float x) { return TAL::angles::ArcTan2(y, x); });
BENCHMARK_CAPTURE(run, atan2_runtime, 1.0f, [](float y, float x) { return std::atan2(y, x); });
