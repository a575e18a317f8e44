// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velk::interaction::search
{

/// Four floats that are computed with at once. Only the broad search uses them, which decides nothing.
#if defined(__SSE2__)
class Lanes
{
public:
    static constexpr int kCount = 4;

    explicit Lanes(float value)
        : values_(_mm_set1_ps(value))
    {
    }

    /// `from` is aligned to 16 bytes.
    static Lanes load(const float* from) { return Lanes(_mm_load_ps(from)); }

    Lanes operator-(Lanes b) const { return Lanes(_mm_sub_ps(values_, b.values_)); }
    Lanes operator*(Lanes b) const { return Lanes(_mm_mul_ps(values_, b.values_)); }
    static Lanes min(Lanes a, Lanes b) { return Lanes(_mm_min_ps(a.values_, b.values_)); }
    static Lanes max(Lanes a, Lanes b) { return Lanes(_mm_max_ps(a.values_, b.values_)); }

    /// One bit for each lane, the lowest for the first.
    static uint32_t lessOrEqual(Lanes a, Lanes b)
    {
        return static_cast<uint32_t>(_mm_movemask_ps(_mm_cmple_ps(a.values_, b.values_)));
    }

private:
    explicit Lanes(__m128 values)
        : values_(values)
    {
    }

    __m128 values_;
};
#else
class Lanes
{
public:
    static constexpr int kCount = 4;

    explicit Lanes(float value) { std::fill_n(values_, kCount, value); }

    static Lanes load(const float* from)
    {
        Lanes result(0.0f);
        std::copy_n(from, kCount, result.values_);
        return result;
    }

    Lanes operator-(Lanes b) const
    {
        return combine(*this, b, [](float x, float y) { return x - y; });
    }
    Lanes operator*(Lanes b) const
    {
        return combine(*this, b, [](float x, float y) { return x * y; });
    }
    static Lanes min(Lanes a, Lanes b)
    {
        return combine(a, b, [](float x, float y) { return x < y ? x : y; });
    }
    static Lanes max(Lanes a, Lanes b)
    {
        return combine(a, b, [](float x, float y) { return x > y ? x : y; });
    }

    static uint32_t lessOrEqual(Lanes a, Lanes b)
    {
        uint32_t bits = 0;
        for (int lane = 0; lane < kCount; ++lane) {
            bits |= a.values_[lane] <= b.values_[lane] ? 1u << lane : 0u;
        }
        return bits;
    }

private:
    template <typename Operation>
    static Lanes combine(Lanes a, Lanes b, Operation operation)
    {
        for (int lane = 0; lane < kCount; ++lane) {
            a.values_[lane] = operation(a.values_[lane], b.values_[lane]);
        }
        return a;
    }

    float values_[kCount];
};
#endif

} // namespace velk::interaction::search
