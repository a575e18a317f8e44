// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/visuals/HandPokeLimiterVisual.h"

#include "tests/data_sources/hand/HandChain.h"
#include "velk_core/core/TimeProvider.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"

#include <algorithm>
#include <memory>
#include <string>

namespace velk::interaction
{
namespace
{

using data_source::ExternalHandSource;
using data_source::SyntheticHand;
using utility::ProgressCurve;

constexpr float kResting = 0.005f;  // where a fingertip of this radius rests on the surface
constexpr float kTolerance = 1e-6f; // a few roundings at a distance of a metre

// A finger over a button that fills the plane z = 0, and the hand, whose wrist is a metre to the side of the
// fingertip. Transitions take a second.
struct Scene
{
    float now = 100.0f;
    core::TimeProvider clock{[this] { return now; }};
    ProgressCurve curve{[](float t) { return t; }, 1.0f, clock};
    std::shared_ptr<ExternalHandSource> tracked = std::make_shared<ExternalHandSource>(1);
    std::shared_ptr<PokeInteractor> interactor = std::make_shared<PokeInteractor>();
    std::shared_ptr<SyntheticHand> synthetic =
        std::make_shared<SyntheticHand>(tracked, true, SyntheticHand::Config(curve, curve, curve, curve));
    std::unique_ptr<HandPokeLimiterVisual> limiter = makeLimiter();
    std::unique_ptr<PokeInteractable> button;

    Scene()
    {
        tipAt(0.5f); // before there is anything to sweep through on the way from the world's origin
        const auto plane = std::make_shared<surface::PointablePlane>();
        const auto patch = std::make_shared<surface::ClippedPlaneSurface>(plane);
        button = std::make_unique<PokeInteractable>(PokeInteractable::Config(), patch, nullptr);
    }
    std::unique_ptr<HandPokeLimiterVisual> makeLimiter() const
    {
        return std::make_unique<HandPokeLimiterVisual>(tracked, interactor, synthetic);
    }
    // One frame of all that is left, some seconds later. The result is the height of the drawn fingertip.
    float tipAt(float z, float seconds = 0.0f)
    {
        now += seconds;
        if (tracked) {
            data::HandData hand = data_source::handAt(1.0f, {0.0f, z, 0.0f, 1.0f});
            hand.rootPose.translation.z = z;
            tracked->setData(hand);
        }
        if (interactor) {
            interactor->setPointPosition({0.0f, 0.0f, z});
            interactor->update();
        }
        if (limiter) {
            limiter->update();
        }
        return synthetic && synthetic->updateData() == data_source::Result::Updated
                   ? synthetic->getData().rootPose.translation.z
                   : 0.0f;
    }
};

TEST(HandPokeLimiterVisual, HoldsTheWristWhileTheFingerIsPastTheSurface)
{
    Scene scene;
    EXPECT_NEAR(scene.tipAt(0.02f), 0.02f, kTolerance); // hover
    for (const float z : {0.003f, -0.025f, -0.01f}) {
        EXPECT_NEAR(scene.tipAt(z), kResting, kTolerance) << z;
        EXPECT_EQ(scene.interactor->getState(), InteractorState::Select);
        EXPECT_NEAR(scene.synthetic->getData().rootPose.rotation.y, z, 1e-3f);            // not held
        EXPECT_NEAR(scene.synthetic->getData().rootPose.translation.x, 1.0f, kTolerance); // of the tip
    }
    for (const float z : {-0.004f, 0.006f}) {
        EXPECT_NEAR(scene.tipAt(z), kResting, kTolerance) << z;
        EXPECT_EQ(scene.interactor->getState(), InteractorState::Hover); // recoiled
    }
    EXPECT_NEAR(scene.tipAt(0.02f), kResting, kTolerance); // released, and eased
    EXPECT_NEAR(scene.tipAt(0.02f, 0.5f), 0.0125f, kTolerance);
    EXPECT_NEAR(scene.tipAt(0.03f, 0.5f), 0.03f, kTolerance);
}

TEST(HandPokeLimiterVisual, OutlivesItsPartnersInEveryOrder)
{
    std::string order = "bilst"; // button, interactor, limiter, synthetic, tracked
    do {
        Scene scene;
        scene.tipAt(-0.025f);
        EXPECT_NEAR(scene.tipAt(-0.004f), kResting, kTolerance); // recoiled
        for (const char gone : order) {
            scene.button.reset(gone == 'b' ? nullptr : scene.button.release());
            scene.limiter.reset(gone == 'l' ? nullptr : scene.limiter.release());
            scene.interactor = gone == 'i' ? nullptr : scene.interactor;
            scene.synthetic = gone == 's' ? nullptr : scene.synthetic;
            scene.tracked = gone == 't' ? nullptr : scene.tracked;
            scene.tipAt(-0.02f, 2.0f);
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(HandPokeLimiterVisual, FreesTheWristAtItsEndOnlyWhileTheInteractorLives)
{
    Scene scene;
    scene.tipAt(-0.01f);
    scene.limiter.reset();
    EXPECT_NEAR(scene.tipAt(-0.02f, 1.0f), -0.02f, kTolerance);
    scene.limiter = scene.makeLimiter();
    scene.tipAt(0.02f);
    EXPECT_NEAR(scene.tipAt(-0.02f), kResting, kTolerance);
    scene.interactor.reset();
    scene.limiter.reset();
    EXPECT_NEAR(scene.tipAt(-0.03f, 1.0f), kResting, kTolerance);
}

} // namespace
} // namespace velk::interaction
