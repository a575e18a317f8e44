// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/ray/RayInteractor.h"
#include "math/Aliases.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"
#include "velk_core/select/Selector.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace velk::interaction
{
namespace
{

using Type = PointerEventType;

constexpr float kTolerance = 1e-5f; // a few rounding errors at distances of metres

MATCHER_P3(IsAt, x, y, z, "")
{
    return arg.IsEqual(Vector3f(x, y, z), kTolerance);
}

// A pointer event and where it happens; `facing` is the z of where its pose looks.
MATCHER_P4(IsEvent, type, x, z, facing, "")
{
    return arg.type == type && arg.pose.translation.IsEqual(Vector3f(x, 0.0f, z), kTolerance) &&
           arg.pose.Rotate({0.0f, 0.0f, -1.0f}).IsEqual(Vector3f(0.0f, 0.0f, facing), kTolerance);
}

// A panel of 2 by 2 that faces +z, towards a ray at the origin that looks ahead.
std::shared_ptr<surface::ISurface> planeAhead(float distance, float x = 0.0f)
{
    const Posef pose(Quatf(), {x, 0.0f, -distance});
    return std::make_shared<surface::PointablePlane>(pose, Vector2f(1.0f, 1.0f));
}

// A ray with a selector, and interactables in the order of their making.
struct RayTest : testing::Test
{
    std::shared_ptr<select::Selector> selector = std::make_shared<select::Selector>();
    std::vector<PointerEvent> events;
    std::unique_ptr<RayInteractor> ray =
        std::make_unique<RayInteractor>(RayInteractor::Config(), nullptr, selector, nullptr, nullptr);
    std::vector<std::unique_ptr<RayInteractable>> panels;

    template <typename... Args>
    RayInteractable& add(Args&&... args)
    {
        panels.push_back(std::make_unique<RayInteractable>(std::forward<Args>(args)...));
        panels.back()->subscribeToWhenPointerEventRaised([this](auto& event) { events.push_back(event); });
        return *panels.back();
    }
    void aim(Vector3f origin, Vector3f forward)
    {
        ray->setRayOrigin(Posef(Quatf::LookRotation(forward, {0.0f, 1.0f, 0.0f}), origin));
        ray->update();
    }
    // The place of the hovered interactable, or their count.
    std::ptrdiff_t hovered() const
    {
        const auto isHovered = [this](const auto& panel) { return panel.get() == ray->getInteractablePtr(); };
        return std::find_if(panels.begin(), panels.end(), isHovered) - panels.begin();
    }
};

TEST_F(RayTest, TakesTheNearestButLeavesTiesToTheOrderOfRegistration)
{
    struct Choice
    {
        std::vector<float> distances; // of the planes, in the order of registration
        int chosen;
        float length; // of the ray
        float threshold = RayInteractor::Config().equalDistanceThreshold;
    };
    const Choice choices[] = {
        {{}, 0, 1.0f},
        {{1.5f}, 1, 1.0f}, // beyond the length of the ray
        {{0.5f, 0.6f}, 0, 0.5f},
        {{0.6f, 0.5f}, 1, 0.5f},
        {{0.505f, 0.5f}, 0, 0.505f},
        {{0.5115f, 0.5f}, 1, 0.5f},        // more than a centimetre
        {{0.5f, 0.495f, 0.48f}, 2, 0.48f}, // the second is too near to the best to take over
        {{0.5f, 0.25f}, 1, 0.25f, 0.25f},  // exactly the threshold apart is not equal
        {{0.5f, 0.5f}, 0, 0.5f, 0.0f},     // so nothing is without one, and the first stays all the same
    };
    for (const Choice& choice : choices) {
        SCOPED_TRACE(testing::PrintToString(choice.distances));
        panels.clear();
        ray = std::make_unique<RayInteractor>(RayInteractor::Config{1.0f, choice.threshold});
        for (const float distance : choice.distances) {
            add(planeAhead(distance));
        }
        ray->update();
        EXPECT_EQ(hovered(), choice.chosen);
        EXPECT_THAT(ray->getEnd(), IsAt(0.0f, 0.0f, -choice.length));
    }
    EXPECT_EQ(panels.back()->getTiebreakerScore(), 0); // what a host's scores are held against
}

TEST_F(RayTest, HitsABoxFromWithinBehindTheOriginAndForgetsItWhenItIsGone)
{
    add(planeAhead(0.1f));
    add(std::make_shared<surface::PointableAxisAlignedBox>(Vector3f(), Vector3f(2.0f, 2.0f, 2.0f)));
    ray->update();
    EXPECT_EQ(hovered(), 1);
    EXPECT_THAT(ray->getEnd(), IsAt(0.0f, 0.0f, 1.0f));
    using Properties = RayInteractor::RayCandidateProperties;
    const auto properties = std::static_pointer_cast<Properties>(ray->getCandidateProperties().lock());
    EXPECT_THAT(properties->getCandidatePosition(), IsAt(0.0f, 0.0f, 1.0f));
    const RayInteractable* const box = panels.back().get();
    panels.erase(panels.begin());
    EXPECT_EQ(properties->getInteractable(), box);
    panels.clear();
    EXPECT_EQ(properties->getInteractable(), nullptr);
}

TEST_F(RayTest, FallsBackOnTheMagnetismSurfaceNearestToItsTrueSurface)
{
    // All true surfaces are off to the side; the gap to each is that from (0, 0, -distance).
    const auto addMagnet = [this](float distance, float gap) {
        add(planeAhead(distance + gap, 5.0f), nullptr, nullptr, nullptr, planeAhead(distance));
    };
    add(planeAhead(0.1f, 5.0f)); // no magnetism: never drawn to
    addMagnet(0.25f, 2.0f);      // however far its surface is
    ray->update();
    EXPECT_EQ(hovered(), 1);
    addMagnet(0.25f, 0.5f);
    addMagnet(0.5f, 0.25f);
    addMagnet(0.25f, 0.25f); // the same gap: the earlier one stays
    ray->update();
    EXPECT_EQ(hovered(), 3);
    EXPECT_THAT(ray->getCollisionInfo()->point, IsAt(0.0f, 0.0f, -0.5f));
    EXPECT_THAT(ray->getEnd(), IsAt(0.0f, 0.0f, -0.75f)); // reaches for the true surface
    add(planeAhead(0.9f));                                // a direct hit, however far, comes first
    ray->update();
    EXPECT_EQ(hovered(), 5);
}

TEST_F(RayTest, LooksOutOfASlantedSurfaceUprightAsTheRayIs)
{
    const Posef slanted(Quatf::FromRotationVector({0.0f, 0.7853982f, 0.0f}), {0.0f, 0.0f, -0.5f});
    add(std::make_shared<surface::PointablePlane>(slanted, Vector2f(1.0f, 1.0f)));
    ray->update();
    EXPECT_THAT(events.back().pose.Rotate({0.0f, 1.0f, 0.0f}), IsAt(0.0f, 1.0f, 0.0f));
    EXPECT_THAT(events.back().pose.Rotate({0.0f, 0.0f, -1.0f}), IsAt(0.7071068f, 0.0f, 0.7071068f));
}

TEST_F(RayTest, GoesOnPointingAtTheSurfaceSelectedFirstAndStaysSelectedOffIt)
{
    RayInteractable& panel = add(planeAhead(0.5f));
    selector->select();
    ray->update();
    panel.setSurface(planeAhead(0.25f));
    ray->update();
    EXPECT_THAT(ray->getEnd(), IsAt(0.0f, 0.0f, -0.5f));
    aim({}, {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(ray->getState(), InteractorState::Select);
    EXPECT_FALSE(ray->getCollisionInfo().has_value());
    EXPECT_THAT(ray->getEnd(), IsAt(1.0f, 0.0f, 0.0f));
    EXPECT_THAT(events.back(), IsEvent(Type::Move, 0.0f, 0.0f, -1.0f)); // the identity
}

// Goes half of the way to its target at each tick.
struct ScriptedMovement : movement::IMovement, movement::IMovementProvider
{
    Posef pose;
    Posef target;

    std::unique_ptr<IMovement> createMovement(const Posef& from, const Posef&) override
    {
        pose = from;
        return std::make_unique<ScriptedMovement>(*this);
    }
    Posef getPose() override { return pose; }
    Posef getTarget() override { return target; }
    bool hasArrived() override { return false; }
    void moveTo(const Posef& to) override { target = to; }
    void stopAndSetPose(const Posef&) override { pose.translation.x += 8.0f; } // to be seen in the events
    void tick() override { pose.translation = pose.translation.Lerp(target.translation, 0.5f); }
};

TEST_F(RayTest, LetsTheHitRideOnAMovementAndRaisesItsPose)
{
    add(planeAhead(0.5f), nullptr, nullptr, std::make_unique<ScriptedMovement>());
    selector->select();
    ray->update(); // the movement starts at the hit, and the same update ticks it once
    EXPECT_THAT(ray->getEnd(), IsAt(0.0f, 0.0f, -0.25f));
    aim({1.0f, 0.0f, -0.25f}, {0.0f, 0.0f, -1.0f}); // no ray is cast: what it meets does not matter
    EXPECT_THAT(ray->getEnd(), IsAt(0.5f, 0.0f, -0.25f));
    EXPECT_THAT(ray->getCollisionInfo()->normal, IsAt(0.0f, 0.0f, 1.0f));
    EXPECT_FLOAT_EQ(ray->getCollisionInfo()->distance, 0.5f); // still that of the selection
    panels.clear();                                           // destroyed in the midst of it
    // A hit faces out of the surface, a movement into it.
    EXPECT_THAT(events, testing::ElementsAre(IsEvent(Type::Hover, 0.0f, -0.5f, 1.0f),
                                             IsEvent(Type::Select, 0.0f, -0.5f, -1.0f),
                                             IsEvent(Type::Move, 0.0f, -0.25f, -1.0f),
                                             IsEvent(Type::Move, 0.5f, -0.25f, -1.0f),
                                             IsEvent(Type::Unselect, 8.5f, -0.25f, -1.0f),
                                             IsEvent(Type::Unhover, 0.5f, -0.25f, 1.0f)));
}

TEST(RayOrigin, TakesThePoseOfItsOwnSourceAndNoOther)
{
    RayInteractor ray({}, planeAhead(2.0f), nullptr, nullptr, nullptr);
    ray.setLocalForwardVector({-2.0f, 0.0f, 0.0f}); // taken as it is, not normalised
    ray.update();
    EXPECT_THAT(ray.getEnd(), IsAt(-2.0f, 0.0f, -2.0f));
    EXPECT_DEATH(ray.setRayOrigin(Posef()), "");
}

} // namespace
} // namespace velk::interaction
