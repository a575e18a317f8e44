// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <vector>

#include "host/recording/Recording.h"
#include "host/scene/Scene.h"
#include "play/States.h"
#include "world/Observation.h"

namespace velk_tools
{

class World;

/// One thing that changed between two frames.
struct Transition
{
    std::size_t frame = 0;
    double time = 0;
    Kind kind{};
    std::string name; ///< Whose state it is: a name of the scene, or a hand and finger.
    State from{};
    State to{};
    std::string target; ///< The panel, box or patch it is about; empty for none.
};

/// Whether something begins to be held: a press, a grip or the wanted direction.
inline bool isStart(const Transition& change)
{
    return change.to == heldState(change.kind) && change.from != change.to;
}

/// What a whole run came to.
struct Summary
{
    std::size_t frames = 0;
    std::size_t transitions = 0;
    double meanMicroseconds = 0; ///< Inside the library, a frame.
    double worstMicroseconds = 0;
};

/// Watches a run. All outputs are observers, and a new kind of output is a new one.
class Observer
{
public:
    virtual ~Observer() = default;

    /// Called once, before the first frame. The world lives until the last one.
    virtual void begin(const World& /*world*/) {}

    /// Called once a frame, with what changed in it.
    virtual void frame(const Observation& seen, const std::vector<Transition>& changes) = 0;
    virtual void end(const Summary& /*summary*/) {}
};

} // namespace velk_tools
