// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/core/TimeProvider.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/interaction/ray/RayInteractable.h"
#include "velk_core/interaction/ray/RayInteractor.h"
#include "velk_core/interaction/search/SurfaceIndex.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace velk::test
{

/// A world of surfaces, rays and fingers that bytes build, move and tear down, and all that it answered.
/// Played twice, with the index and by asking every surface, it must answer the same bits.
class SearchWorld
{
public:
    static std::vector<uint32_t> play(std::string_view bytes, bool scansAll)
    {
        interaction::search::SurfaceIndex::setScansAll(scansAll);
        SearchWorld world(bytes);
        while (!world.bytes_.empty()) {
            world.step();
        }
        interaction::search::SurfaceIndex::setScansAll(false);
        return std::move(world.answers_);
    }

private:
    using Plane = interaction::surface::PointablePlane;
    using Box = interaction::surface::PointableAxisAlignedBox;
    using Patch = interaction::surface::ClippedPlaneSurface;

    /// Of classes that the index does not know: one moves unheard, one lets only one finger in.
    struct Drifting : Plane
    {
        using Plane::Plane;
        Posef getPose() const override { return {Plane::getPose().rotation, {drift, drift, drift}}; }
        bool raycast(const math::Ray& ray, interaction::surface::SurfaceHit& hit, float limit) const override
        {
            return Plane(getPose(), Vector2f(0.03f, 0.03f)).raycast(ray, hit, limit);
        }
        bool closestSurfacePoint(const Vector3f& point, interaction::surface::SurfaceHit& hit,
                                 float limit) const override
        {
            return Plane(getPose(), Vector2f(0.03f, 0.03f)).closestSurfacePoint(point, hit, limit);
        }
        static inline float drift = 0.0f;
    };
    struct ForOne : interaction::PokeInteractable
    {
        ForOne(const Config& config, std::shared_ptr<interaction::surface::ISurfacePatch> patch)
            : PokeInteractable(config, std::move(patch), nullptr)
        {
            maxInteractors_ = 1;
        }
    };
    struct Choosy : interaction::PokeInteractor
    {
        using PokeInteractor::PokeInteractor;
        bool canSelect(interaction::PokeInteractable* interactable) override
        {
            return interactable->getSlot().index() % 2 == 0;
        }
    };

    explicit SearchWorld(std::string_view bytes)
        : bytes_(bytes)
    {
        seconds() = 0.0f;
        Drifting::drift = 0.0f;
    }

    static float& seconds()
    {
        static float now = 0.0f;
        return now;
    }
    static core::TimeProvider& clock()
    {
        static core::TimeProvider provider([] { return seconds(); });
        return provider;
    }

    uint32_t byte()
    {
        if (bytes_.empty()) {
            return 0;
        }
        const auto value = static_cast<uint8_t>(bytes_.front());
        bytes_.remove_prefix(1);
        return value;
    }
    uint32_t below(std::size_t count) { return byte() % static_cast<uint32_t>(count); }
    template <typename T>
    T& any(std::vector<T>& all)
    {
        return all[below(all.size())];
    }

    float number(float scale)
    {
        constexpr float kInfinity = std::numeric_limits<float>::infinity();
        constexpr std::array<float, 8> kStrange{
            NAN, kInfinity, -kInfinity, 1e30f, -1.0f, 1e-30f, 0.0f, std::numeric_limits<float>::max()};
        const uint32_t code = byte();
        if (code >= 252) {
            return kStrange[below(kStrange.size())];
        }
        return scale * (static_cast<float>(code) / 126.0f - 1.0f);
    }
    Vector3f vector(float scale)
    {
        const float x = number(scale);
        const float y = number(scale);
        return {x, y, number(scale)};
    }
    Quatf rotation()
    {
        switch (below(10)) {
        case 8:
            return Quatf(number(1.0f), 0.0f, 0.0f, 1.0f).Normalized();
        case 9:
            return Quatf(0.0f, number(1.0f), 0.0f, 1.0f).Normalized();
        case 0: {
            const Vector3f imaginary = vector(1.0f);
            return Quatf(imaginary.x, imaginary.y, imaginary.z, 1.0f).Normalized();
        }
        case 1:
            return Quatf(0.0f, 0.0f, 0.7071f, 0.7071f);
        case 2:
            return Quatf(number(1.0f), 0.0f, number(1.0f), number(1.0f));
        default:
            return {};
        }
    }
    Posef pose()
    {
        const Vector3f position = vector(0.15f);
        return {rotation(), position};
    }

    std::shared_ptr<Plane> makePlane(float reach)
    {
        const Posef at = pose();
        const float x = number(2.0f * reach);
        const Vector2f size(std::fabs(x), below(16) == 0 ? -0.01f : reach);
        planes_.push_back(below(24) == 0 ? std::make_shared<Drifting>(at, size)
                                         : std::make_shared<Plane>(at, size));
        return planes_.back();
    }
    std::shared_ptr<Patch> makePatch()
    {
        // Beyond the end of a plane nothing crosses it; the index knows patches far from there.
        constexpr std::array<float, 6> kReaches{0.02f, 12.0f, 12.0f, 100.0f, 100.0f, 100.0f};
        const auto plane =
            !planes_.empty() && below(4) == 0 ? any(planes_) : makePlane(kReaches[below(kReaches.size())]);
        std::vector<interaction::surface::BoundsClipper> clippers;
        for (uint32_t left = below(16) == 0 ? 0 : 1 + below(2); left > 0; --left) {
            const auto frame = below(4) == 0 ? any(planes_) : plane;
            clippers.emplace_back(frame, vector(0.02f), Vector3f(0.024f, 0.024f, std::fabs(number(0.1f))));
        }
        return std::make_shared<Patch>(plane, std::move(clippers));
    }
    std::shared_ptr<interaction::surface::ISurface> makeSurface()
    {
        switch (below(4)) {
        case 0:
            boxes_.push_back(std::make_shared<Box>(vector(0.15f), vector(0.04f)));
            return boxes_.back();
        case 1:
            return makePatch();
        default:
            return makePlane(0.02f);
        }
    }

    void makeButtons()
    {
        for (uint32_t left = below(24); left > 0 && buttons_.size() < 120; --left) {
            interaction::PokeInteractable::Config config;
            config.dragThresholds.dragEaseCurve = utility::ProgressCurve(0.05f, clock());
            config.enterHoverTangent = below(4) == 0 ? number(0.01f) : 0.0f;
            config.minThresholds.enabled = below(4) == 0;
            config.minThresholds.minNormal = below(8) == 0 ? number(0.1f) : 0.01f;
            if (below(16) == 0) {
                buttons_.push_back(std::make_unique<ForOne>(config, makePatch()));
            } else {
                buttons_.push_back(
                    std::make_unique<interaction::PokeInteractable>(config, makePatch(), nullptr));
            }
            if (below(8) == 0) {
                buttons_.back()->setCloseDistanceThreshold(number(0.1f));
            }
        }
    }
    void makePanels()
    {
        for (uint32_t left = below(24); left > 0 && panels_.size() < 120; --left) {
            const auto surface = makeSurface();
            panels_.push_back(std::make_unique<interaction::RayInteractable>(
                surface, nullptr, nullptr, nullptr, below(16) == 0 ? makeSurface() : nullptr));
        }
    }

    void changeButton()
    {
        if (buttons_.empty()) {
            return;
        }
        auto& button = any(buttons_);
        switch (below(6)) {
        case 0:
            button.reset(); // in the middle of whatever happens on it
            std::erase(buttons_, nullptr);
            break;
        case 1:
            button->onDisable();
            break;
        case 2:
            // Comes back elsewhere: fingers still know where it was.
            button->onDisable();
            any(planes_)->setPose(pose());
            button->onEnable();
            break;
        case 3:
            button->setCloseDistanceThreshold(number(0.1f));
            break;
        default:
            button->setSurfacePatch(makePatch());
        }
    }
    void changePanel()
    {
        if (panels_.empty()) {
            return;
        }
        auto& panel = any(panels_);
        if (below(3) == 0) {
            panel.reset();
            std::erase(panels_, nullptr);
        } else {
            panel->setSurface(makeSurface());
        }
    }
    void moveSurfaces()
    {
        Drifting::drift = number(0.1f);
        for (uint32_t left = below(6); left > 0 && !planes_.empty(); --left) {
            auto& plane = any(planes_);
            const Posef at = plane->getPose();
            const Vector3f step = below(2) == 0 ? vector(0.01f) : Vector3f(number(0.01f), 0.0f, 0.0f);
            plane->setPose(below(2) == 0 ? pose() : Posef(at.rotation, at.translation + step));
            if (below(8) == 0) {
                plane->setSize(Vector2f(number(0.04f), number(0.04f)));
            }
        }
        if (!boxes_.empty()) {
            auto& box = any(boxes_);
            box->setCentroid(vector(0.15f));
            if (below(4) == 0) {
                box->setUpperBound(vector(0.2f));
            }
        }
    }
    void makeOrEndPointers()
    {
        if (below(3) != 0 || fingers_.empty()) {
            interaction::PokeInteractor::Config config;
            config.radius = below(8) == 0 ? number(0.02f) : config.radius;
            if (below(6) == 0) {
                fingers_.push_back(std::make_unique<Choosy>(config));
            } else {
                fingers_.push_back(std::make_unique<interaction::PokeInteractor>(config));
            }
            rays_.push_back(std::make_unique<interaction::RayInteractor>());
        } else {
            fingers_.erase(fingers_.begin() + below(fingers_.size()));
        }
    }

    void moveFinger()
    {
        if (fingers_.empty()) {
            return;
        }
        auto& finger = any(fingers_);
        seconds() += 0.011f;
        const bool jumps = below(8) == 0;
        // Towards a button, so that there are presses, or just somewhere.
        Vector3f point = finger->getOrigin() + vector(0.01f);
        if (below(8) == 0) {
            point = finger->getOrigin();
        } else if (jumps) {
            point = vector(below(4) == 0 ? 60.0f : 0.2f);
        } else if (!buttons_.empty() && below(4) == 0) {
            const Posef at = any(buttons_)->getSurfacePatch().getBackingSurface().getPose();
            point = at.Transform(Vector3f(0.0f, 0.0f, number(0.04f)));
        }
        finger->setPointPosition(point);
        finger->update();
        note(*finger);
        note(finger->getTouchPoint());
        note(finger->getTouchNormal());
        note(finger->getClosestPoint());
        answers_.push_back(finger->isPassedSurface() ? 1 : 0);
    }
    void moveRay()
    {
        if (rays_.empty()) {
            return;
        }
        auto& ray = any(rays_);
        if (below(4) == 0) {
            ray->setMaxRayLength(number(1.0f));
        }
        const Quatf turn =
            below(4) == 0 ? rotation() : Quatf(number(0.2f), number(0.2f), 0.001f, 1.0f).Normalized();
        Vector3f from = below(2) == 0 ? vector(0.5f) : Vector3f(0.01f, 0.0f, 0.3f);
        if (!boxes_.empty() && below(6) == 0) {
            // In the plane of a side.
            const Vector3f corner = any(boxes_)->getLowerBound();
            const uint32_t axis = below(3);
            (axis == 0   ? from.x
             : axis == 1 ? from.y
                         : from.z) = axis == 0   ? corner.x
                                     : axis == 1 ? corner.y
                                                 : corner.z;
        }
        ray->setRayOrigin({turn, from});
        ray->update();
        note(*ray);
        note(ray->getEnd());
        if (const auto hit = ray->getCollisionInfo()) {
            note(hit->point);
            note(hit->normal);
            answers_.push_back(std::bit_cast<uint32_t>(hit->distance));
        }
    }

    template <typename Pointer>
    void note(const Pointer& pointer) requires requires
    {
        pointer.getState();
    }
    {
        answers_.push_back(static_cast<uint32_t>(pointer.getState()));
        answers_.push_back(numberOf(pointer.getInteractablePtr()));
        answers_.push_back(numberOf(pointer.getSelectedInteractablePtr()));
    }
    void note(const Vector3f& vector)
    {
        for (const float component : {vector.x, vector.y, vector.z}) {
            answers_.push_back(std::bit_cast<uint32_t>(component));
        }
    }
    uint32_t numberOf(const interaction::IInteractable* interactable) const
    {
        uint32_t number = 1;
        for (const auto& button : buttons_) {
            if (button.get() == interactable) {
                return number;
            }
            ++number;
        }
        for (const auto& panel : panels_) {
            if (panel.get() == interactable) {
                return number;
            }
            ++number;
        }
        return 0;
    }

    void step()
    {
        using Step = void (SearchWorld::*)();
        constexpr Step kRare[] = {&SearchWorld::makeButtons,  &SearchWorld::makePanels,
                                  &SearchWorld::changeButton, &SearchWorld::changePanel,
                                  &SearchWorld::moveSurfaces, &SearchWorld::makeOrEndPointers};
        const uint32_t code = below(32);
        if (code < std::size(kRare)) {
            (this->*kRare[code])();
        } else if (code % 2 == 0) {
            moveFinger();
        } else {
            moveRay();
        }
    }

    std::string_view bytes_;
    std::vector<uint32_t> answers_;
    std::vector<std::shared_ptr<Plane>> planes_;
    std::vector<std::shared_ptr<Box>> boxes_;
    std::vector<std::unique_ptr<interaction::PokeInteractable>> buttons_;
    std::vector<std::unique_ptr<interaction::RayInteractable>> panels_;
    std::vector<std::unique_ptr<interaction::PokeInteractor>> fingers_;
    std::vector<std::unique_ptr<interaction::RayInteractor>> rays_;
};

} // namespace velk::test
