// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "tests/support/EventLog.h"
#include "velk_core/core/TimeProvider.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace velk::test
{

using interaction::PokeInteractable;
using interaction::PokeInteractor;
using interaction::surface::BoundsClipper;
using interaction::surface::ClippedPlaneSurface;
using interaction::surface::PointablePlane;

/// Metres, about a millimetre. The lengths of a scene are whole numbers of units, which a float holds
/// exactly: "at the threshold" means at the threshold.
constexpr float kUnit = 1.0f / 1024.0f;
constexpr float kFrame = 0.25f; // seconds

inline Vector3f units(float x, float y, float z)
{
    return Vector3f(x, y, z) * kUnit;
}

/// A square patch of 100 units on a plane of its own, facing +z of its pose.
struct Button
{
    explicit Button(const PokeInteractable::Config& config, const Posef& pose = {})
        : plane(std::make_shared<PointablePlane>(pose, Vector2f(100.0f, 100.0f)))
        , interactable(std::make_shared<PokeInteractable>(config, clippedTo({}, {}), nullptr))
    {
    }

    /// What the squares around both points have in common.
    std::shared_ptr<ClippedPlaneSurface> clippedTo(Vector3f one, Vector3f other) const
    {
        const Vector3f size = units(100, 100, 64);
        return std::make_shared<ClippedPlaneSurface>(
            plane, std::vector<BoundsClipper>{{plane, one, size}, {plane, other, size}});
    }

    void moveTo(float x, float height) const
    {
        plane->setPose({plane->getPose().rotation, units(x, 0, height)});
    }

    std::shared_ptr<PointablePlane> plane;
    std::shared_ptr<PokeInteractable> interactable;
};

struct PokeScene : testing::Test
{
    /// Moved by the case: by x and the height of its skin over z = 0, where a button lies unless it is placed
    /// elsewhere.
    struct Finger
    {
        /// One frame; the events that it raises.
        std::string at(float x, float height)
        {
            scene.now += kFrame;
            const Vector3f skin(0, 0, interactor->getRadius());
            interactor->setPointPosition(scene.frame.Transform(units(x, 0, height) + skin));
            interactor->update();
            return scene.events.take();
        }

        /// The frames of a script, "x,height:events" or "x,height:events@touch" each, with the x of the touch
        /// point: the same script, with what really came.
        std::string play(const std::string& script)
        {
            std::istringstream steps(script);
            std::ostringstream played;
            float x = 0;
            float height = 0;
            char mark = 0;
            for (std::string wanted; steps >> x >> mark >> height >> mark >> wanted;) {
                played << (played.tellp() > 0 ? " " : "") << x << ',' << height << ':' << at(x, height);
                if (wanted.find('@') != std::string::npos) {
                    played << '@' << interactor->getTouchPoint().x / kUnit;
                }
            }
            return played.str();
        }

        PokeInteractor* operator->() const { return interactor.get(); }

        PokeScene& scene;
        std::unique_ptr<PokeInteractor> interactor;
    };

    PokeScene()
    {
        config.enterHoverNormal = 32 * kUnit;
        config.exitHoverNormal = 64 * kUnit;
        config.cancelSelectNormal = 256 * kUnit;
        config.cancelSelectTangent = 32 * kUnit;
        config.dragThresholds = {true, 8 * kUnit, 8 * kUnit, {4 * kFrame, clock}};
        config.minThresholds.minNormal = 8 * kUnit;
        config.recoilAssist = {true, 16 * kUnit, 16 * kUnit};
        park(); // there is nothing to meet yet on the way from the world's origin
    }

    /// Visited in the order of making.
    Button& add(const std::string& name = "", const Posef& pose = {})
    {
        Button& button = buttons.emplace(name, Button(config, frame * pose)).first->second;
        listen(*button.interactable, name);
        return button;
    }
    PokeInteractable& addAt(const std::string& name, float x, float height)
    {
        return *add(name, {{}, units(x, 0, height)}).interactable;
    }
    void listen(PokeInteractable& interactable, const std::string& name)
    {
        interactable.subscribeToWhenPointerEventRaised([this, name](const interaction::PointerEvent& event) {
            events.record(fingerNames[event.identifier] + name, event.type);
        });
    }

    template <typename... Args>
    Finger makeFinger(const std::string& name, Args&&... args)
    {
        auto made = std::make_unique<PokeInteractor>(fingerConfig, std::forward<Args>(args)...);
        made->subscribeToWhenPassedSurfaceChanged([this](bool passed) { events.note(passed ? "(" : ")"); });
        fingerNames[made->getIdentifier()] = name;
        return {*this, std::move(made)};
    }

    /// Takes the finger away from everything; nothing lies between.
    void park() { finger.at(0, 500); }
    void clear()
    {
        park();
        buttons.clear();
    }

    EventLog events; // with ( and ) for a finger that gets past a surface and away from it
    float now = 100; // seconds; each frame takes a quarter of the time that a drag eases
    core::TimeProvider clock{[this] { return now; }};
    Posef frame; // all of the scene is seen from here
    PokeInteractable::Config config;
    // Release at 2 units, equally far within less than 1, radius 4.
    PokeInteractor::Config fingerConfig{2 * kUnit, 0, kUnit, 4 * kUnit};
    std::map<int, std::string> fingerNames;
    std::map<std::string, Button> buttons;
    Finger finger = makeFinger("");
};

/// Holds a script against what the finger makes of it.
#define EXPECT_PLAYS(finger, script) EXPECT_EQ((finger).play(script), script)

} // namespace velk::test
