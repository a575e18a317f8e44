// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Measures the errors of math/Angles.h, or hashes their answers: see scripts/angles. The C runtime's
// functions of double are what they are held against: these err by about one of their own units, 2^-29 of a
// float's.
#include "tests/math/AngleSweep.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

namespace
{

struct Errors
{
    void add(float y, float x, float answer, double exact)
    {
        const int exponent = exact == 0.0 ? -126 : std::max(std::ilogb(exact), -126);
        const double error = std::ldexp(std::fabs(answer - exact), 23 - exponent);
        ++count;
        notNearest += error > 0.5 ? 1 : 0;
        if (!(error <= worst)) {
            worst = error;
            worstY = y;
            worstX = x;
        }
    }

    void print(const char* what) const
    {
        std::printf("%-28s %.7f units at (%a, %a); %" PRIu64 " of %" PRIu64 " are not the nearest float\n",
                    what, worst, static_cast<double>(worstY), static_cast<double>(worstX), notNearest, count);
        std::fflush(stdout);
    }

    double worst = 0.0;
    float worstY = 0.0f;
    float worstX = 0.0f;
    std::uint64_t count = 0;
    std::uint64_t notNearest = 0;
};

float fromBits(std::uint32_t bits)
{
    return std::bit_cast<float>(bits);
}

/// Over the floats from `first` to `last`, whose signs are alike.
template <typename Function, typename Exact>
Errors sweep(float first, float last, Function function, Exact exact)
{
    Errors errors;
    for (auto bits = std::bit_cast<std::uint32_t>(first); bits <= std::bit_cast<std::uint32_t>(last);
         ++bits) {
        const float x = fromBits(bits);
        errors.add(x, 1.0f, function(x), exact(static_cast<double>(x)));
    }
    return errors;
}

/// Exact opposites for opposite angles, or the same if the function is even.
void checkSymmetry(float (*function)(float), float sign)
{
    for (float x = 0.0f; x < std::numeric_limits<float>::max();
         x = fromBits(std::bit_cast<std::uint32_t>(x) + 1)) {
        if (function(-x) != sign * function(x)) {
            std::printf("not symmetric at %a\n", static_cast<double>(x));
            std::exit(1);
        }
    }
}

void addPoint(Errors& errors, float y, float x)
{
    if (std::isfinite(x) && std::isfinite(y)) {
        errors.add(y, x, TAL::angles::ArcTan2(y, x),
                   std::atan2(static_cast<double>(y), static_cast<double>(x)));
    }
}

/// Points of all sizes, and as many at whose coordinates' sizes are alike.
Errors randomPoints(int count)
{
    Errors errors;
    std::mt19937 random(1);
    for (int i = 0; i < count; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        addPoint(errors, fromBits(bits), fromBits(static_cast<std::uint32_t>(random())));
        addPoint(errors, fromBits(bits),
                 fromBits(bits ^ (static_cast<std::uint32_t>(random()) & 0x81FFFFFFU)));
    }
    return errors;
}

/// All pairs of exponents and signs, each with mantissas about the ends and the middle.
Errors gridOfPoints()
{
    constexpr std::uint32_t kMantissas[] = {0, 1, 0x3FFFFF, 0x400000, 0x7FFFFE, 0x7FFFFF};
    Errors errors;
    for (std::uint32_t i = 0; i < 512 * 512; ++i) {
        for (const std::uint32_t mantissaOfY : kMantissas) {
            for (const std::uint32_t mantissaOfX : kMantissas) {
                addPoint(errors, fromBits((i / 512) << 23U | mantissaOfY),
                         fromBits((i % 512) << 23U | mantissaOfX));
            }
        }
    }
    return errors;
}

void measure()
{
    using namespace TAL::angles;
    constexpr float kOrdinary = 0x1p20f;
    constexpr float kLargest = std::numeric_limits<float>::max();
    const auto sine = [](float angle) { return SinCos(angle).sine; };
    const auto cosine = [](float angle) { return SinCos(angle).cosine; };
    const auto exactSin = [](double x) { return std::sin(x); };
    const auto exactCos = [](double x) { return std::cos(x); };
    const auto exactAcos = [](double x) { return std::acos(x); };
    sweep(0.0f, 1.0f, ArcCos, exactAcos).print("acos, from 0 to 1");
    sweep(-0.0f, -1.0f, ArcCos, exactAcos).print("acos, from 0 to -1");
    sweep(0.0f, kOrdinary, sine, exactSin).print("sin, up to 2^20");
    sweep(0.0f, kOrdinary, cosine, exactCos).print("cos, up to 2^20");
    randomPoints(1 << 26).print("atan2, random points");
    gridOfPoints().print("atan2, grid of exponents");
    sweep(
        0.0f, kLargest, [](float y) { return ArcTan2(y, 1.0f); }, [](double y) { return std::atan(y); })
        .print("atan2, x = 1 and all y > 0");
    sweep(kOrdinary, kLargest, sine, exactSin).print("sin, beyond 2^20");
    sweep(kOrdinary, kLargest, cosine, exactCos).print("cos, beyond 2^20");
    checkSymmetry(sine, -1.0f);
    checkSymmetry(cosine, 1.0f);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "accuracy") == 0) {
        measure();
        return 0;
    }
    if (argc == 3 && std::strcmp(argv[1], "hash") == 0) {
        const auto step = static_cast<std::uint32_t>(std::atoi(argv[2]));
        for (const auto& [name, call] : velk::test::kAngleFunctions) {
            std::printf("%s %016" PRIx64 " ", name, velk::test::hashOfAnswers(call, step));
        }
        std::printf("\n");
        return 0;
    }
    std::fputs("usage: angle_accuracy accuracy | hash STEP\n", stderr);
    return 2;
}
