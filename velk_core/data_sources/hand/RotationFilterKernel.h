// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Lanes.h"
#include "velk_core/data_sources/hand/RotationLanes.h"

/// OneEuroFilter<Quatf> by lanes: the operations of math/Quat.h and math/TALF.h, in their order. Only
/// templates of the lanes' width may be called here: other functions, compiled for AVX2, could take the place
/// of those for every processor when the library is linked.
namespace velk::data_source::kernel
{

template <typename F>
struct Rotations
{
    F x, y, z, w;

    static Rotations load(const RotationLanes& from, int at)
    {
        return {F::load(from.x + at), F::load(from.y + at), F::load(from.z + at), F::load(from.w + at)};
    }
    void store(RotationLanes& to, int at) const
    {
        x.store(to.x + at);
        y.store(to.y + at);
        z.store(to.z + at);
        w.store(to.w + at);
    }
};

/// Zero in lanes that are finite, else NaN.
template <typename F>
F nothingOf(const Rotations<F>& q)
{
    return ((q.x - q.x) + (q.y - q.y)) + ((q.z - q.z) + (q.w - q.w));
}

template <typename F>
Rotations<F> product(const Rotations<F>& a, const Rotations<F>& b)
{
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

template <typename F>
Rotations<F> normalized(const Rotations<F>& q)
{
    const F length = squareRoot(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
    const F multiplier = select(length == 0.0f, length, 1.0f / length);
    return {q.x * multiplier, q.y * multiplier, q.z * multiplier, q.w * multiplier};
}

/// TALF::scale(). Adds NaN to `trouble` where the angle is one that lanes can't reduce.
template <typename F>
Rotations<F> scaled(const Rotations<F>& q, const F& factor, F& trouble)
{
    const F sinHalf = squareRoot(q.x * q.x + q.y * q.y + q.z * q.z);
    const F arc = TAL::angles::arcTan2OfLanes(sinHalf, q.w);
    const F half = select(q.w < 0.0f, arc - TAL::kPi, arc);
    const F perSine = select(sinHalf > 0.0f, 2.0f * half / sinHalf, 0.0f);
    const F x = q.x * perSine * factor;
    const F y = q.y * perSine * factor;
    const F z = q.z * perSine * factor;
    const F lengthSq = x * x + y * y + z * z;
    const F angle = squareRoot(lengthSq);
    F sine = angle;
    F cosine = angle;
    TAL::angles::sinCosOfLanes(0.5f * angle, sine, cosine);
    const auto turns = lengthSq > 0.0f;
    const F s = select(turns, sine / angle, 0.0f);
    trouble = trouble + select(angle >= TAL::angles::kLarge, __builtin_inff() - F(__builtin_inff()), 0.0f);
    return {s * x, s * y, s * z, select(turns, cosine, 1.0f)};
}

/// TALF::diff().
template <typename F>
Rotations<F> difference(const Rotations<F>& a, const Rotations<F>& b)
{
    return product(a, {-b.x, -b.y, -b.z, b.w});
}

/// TALF::lerp().
template <typename F>
Rotations<F> turned(const Rotations<F>& a, const Rotations<F>& b, const F& t, F& trouble)
{
    return product(scaled(difference(b, a), t, trouble), a);
}

/// The share of the new value, from the speed.
template <typename F>
F gainAt(const Rotations<F>& speed, const RotationFilterStep& step)
{
    const F turn = 2.0f * TAL::angles::arcCosOfLanes(absolute(speed.w));
    const F cutoff = TAL::fusedMultiplyAdd(F(step.beta), turn, F(step.minCutoff));
    return step.deltaTime / (1.0f / (6.2831855f * cutoff) + step.deltaTime);
}

/// A frame of a hand. Each step is done for all lanes before the next one, since its operations wait for each
/// other, while the processor works on several lanes at once.
template <typename F>
struct Frame // NOLINT(cppcoreguidelines-pro-type-member-init): each step writes what the next one reads
{
    static constexpr int kWidth = static_cast<int>(F::kCount);

    RotationFilterLanes next;
    RotationLanes values;
    F trouble = 0.0f; // NaN where numbers alone give the bits

    void findChanges(const RotationLanes& rotations, const RotationLanes& last, float rate)
    {
        for (int at = 0; at < RotationLanes::kCount; at += kWidth) {
            const auto value = normalized(Rotations<F>::load(rotations, at));
            value.store(values, at);
            trouble = trouble + nothingOf(value);
            scaled(difference(value, Rotations<F>::load(last, at)), F(rate), trouble).store(next.speed, at);
        }
    }
    void smoothSpeeds(const RotationLanes& speeds, float gain)
    {
        for (int at = 0; at < RotationLanes::kCount; at += kWidth) {
            const auto change = Rotations<F>::load(next.speed, at);
            const auto speed = turned(Rotations<F>::load(speeds, at), change, F(gain), trouble);
            trouble = trouble + nothingOf(speed);
            speed.store(next.speed, at);
        }
    }
    void smoothValues(const RotationLanes& last, const RotationFilterStep& step)
    {
        for (int at = 0; at < RotationLanes::kCount; at += kWidth) {
            const F gain = gainAt(Rotations<F>::load(next.speed, at), step);
            const auto value = Rotations<F>::load(values, at);
            const auto result = turned(Rotations<F>::load(last, at), value, gain, trouble);
            trouble = trouble + nothingOf(result);
            result.store(next.last, at);
        }
    }
};

template <typename F>
[[gnu::flatten]] bool filterRotations(RotationFilterLanes& filters, RotationLanes& rotations,
                                      const RotationFilterStep& step)
{
    Frame<F> frame;
    frame.findChanges(rotations, filters.last, step.rate);
    frame.smoothSpeeds(filters.speed, step.speedGain);
    frame.smoothValues(filters.last, step);
    if (!isZero(frame.trouble)) {
        return false;
    }
    filters = frame.next;
    rotations = frame.next.last;
    return true;
}

} // namespace velk::data_source::kernel
