// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Rounds.h"

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <stdexcept>

namespace velk::compare
{

namespace
{

constexpr int kFewestRounds = 5;
constexpr int kMostRounds = 41;
constexpr double kLongestTurn = 4e6; // nanoseconds: long enough to warm what the others left cold

double timeOf(const Contestant& contestant, int first, int last)
{
    const double begin = now();
    contestant.play(first, last);
    return (now() - begin) / (last - first);
}

/// Frames up to `end` or until half a second has gone, so that an index has come to rest.
void warmUp(const Contestant& contestant, int end)
{
    const double begin = now();
    for (int k = 0; k < end && now() - begin < 5e8; k += 64) {
        contestant.play(k, std::min(k + 64, end));
    }
}

/// Part of the library's answers that are another's too.
double agreement(const Answers& library, const Answers& other)
{
    std::size_t asked = 0;
    std::size_t agreed = 0;
    for (std::size_t i = 0; i < std::min(library.size(), other.size()); ++i) {
        if (library[i] >= 0) {
            ++asked;
            agreed += library[i] == other[i] ? 1 : 0;
        }
    }
    return asked == 0 ? 1.0 : static_cast<double>(agreed) / static_cast<double>(asked);
}

std::vector<double> agreements(const Job& job, int first, int count)
{
    std::vector<Answers> answers(job.contestants.size());
    std::vector<double> parts;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const Contestant& one = job.contestants[i];
        for (int k = first; one.answer && k < first + count; ++k) {
            one.answer(k, answers[i]);
        }
        if (one.mustAgree && answers[i] != answers[0]) {
            throw std::runtime_error(job.name + ": " + one.name + " answers otherwise than the library");
        }
        parts.push_back(agreement(answers[0], answers[i]));
    }
    return parts;
}

} // namespace

double now()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Result measure(const Job& job, double seconds)
{
    const std::size_t count = job.contestants.size();
    double slowest = 0.0;
    for (const Contestant& one : job.contestants) {
        slowest = std::max(slowest, timeOf(one, 0, 4));
    }
    const int compared = std::clamp(static_cast<int>(2e8 / slowest), 16, 2048);
    const std::vector<double> agreed = agreements(job, 4, compared);
    for (const Contestant& one : job.contestants) {
        warmUp(one, job.warmUp);
    }
    std::vector<int> frames; // in a turn: all of the path, unless that takes too long
    for (const Contestant& one : job.contestants) {
        frames.push_back(
            std::clamp(static_cast<int>(kLongestTurn / timeOf(one, job.warmUp, job.warmUp + 4)), 2, 4096));
    }
    std::vector<std::vector<double>> times(count);
    const double begin = now();
    for (int round = 0; round < kMostRounds; ++round) {
        if (round >= kFewestRounds && now() - begin > 1e9 * seconds) {
            break;
        }
        for (std::size_t i = 0; i < count; ++i) {
            const int first = job.warmUp + 4 + round * frames[i];
            times[i].push_back(timeOf(job.contestants[i], first, first + frames[i]));
        }
    }
    const bool hasEmpty = job.contestants.back().name == "empty";
    Result result{job.name, {}};
    for (std::size_t i = 0; i < count; ++i) {
        std::vector<double> ratios;
        std::vector<double> alone;
        for (std::size_t round = 0; round < times[i].size(); ++round) {
            ratios.push_back(times[0][round] / times[i][round]);
            alone.push_back((times[0][round] - (hasEmpty ? times.back()[round] : 0.0)) / times[i][round]);
        }
        result.figures.push_back(
            {job.contestants[i].name, median(times[i]), median(ratios), median(alone), agreed[i]});
    }
    return result;
}

} // namespace velk::compare
