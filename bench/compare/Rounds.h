// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velk::compare
{

/// Frame by frame what each pointer is on: the number of a surface, or -1.
using Answers = std::vector<int>;

/// One who does a job: plays frames in a loop of its own, so that none is called through a pointer.
struct Contestant
{
    std::string name;
    std::function<void(int first, int last)> play;
    /// Plays a frame and adds its answers; not given where there are none.
    std::function<void(int frame, Answers&)> answer;
    /// The answer of one who counts otherwise is left out of the comparison.
    bool mustAgree = false;
};

/// Of `frame(int)`, whose result is of no further use.
template <typename Frame>
Contestant contestant(std::string name, Frame frame)
{
    return {std::move(name),
            [frame](int first, int last) {
                for (int k = first; k < last; ++k) {
                    frame(k);
                }
            },
            nullptr};
}

struct Job
{
    std::string name;
    std::vector<Contestant> contestants; ///< The first is the library.
    int warmUp = 4096;                   ///< Frames before the first that counts.
};

struct Figure
{
    std::string contestant;
    double nanoseconds; ///< A frame's, median of all rounds.
    double ratio;       ///< The library's to this one's, median of the ratios of each round.
    double lessEmpty;   ///< Of the library's less the last contestant's, if that is "empty".
    double agreement;   ///< Part of the library's answers that are this one's too; 1 where there are none.
};

struct Result
{
    std::string name;
    std::vector<Figure> figures;
};

/// Nanoseconds of processor time of this thread.
double now();
double median(std::vector<double> values);

/// Compares the answers, then lets all do the same frames in turn, round by round. Throws when one who must
/// agree does not.
Result measure(const Job& job, double seconds);

} // namespace velk::compare
