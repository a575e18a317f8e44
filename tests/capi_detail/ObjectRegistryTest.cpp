// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/ObjectRegistry.h"
#include "math/Aliases.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_core/core/IPayload.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/interaction/ray/RayInteractable.h"
#include "velk_core/interaction/ray/RayInteractor.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"
#include "velk_core/select/IHasSelector.h"

#include <velk/velk.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <typeinfo>

using namespace velk;

namespace
{

enum class Handle : int32_t
{
};
using Registry = capi::ObjectRegistry<int, Handle>;

int32_t number(Handle handle)
{
    return static_cast<int32_t>(handle);
}

} // namespace

TEST(ObjectRegistry, IssuesEachHandleOnce)
{
    Registry registry;
    EXPECT_EQ(number(registry.create<int>()), 0);
    EXPECT_EQ(registry.destroy(Handle{0}), 0);
    EXPECT_EQ(registry.destroy(Handle{0}), -1);
    EXPECT_EQ(registry.getRawPointer(Handle{0}), nullptr);
    EXPECT_EQ(number(registry.create<int>()), 1);
}

// With handles of 8 bits: -2 lives, 7 is free again, all others are used up.
TEST(ObjectRegistry, HandlesInUseAreSkippedWhenTheCounterComesRound)
{
    enum class Small : int8_t
    {
    };
    capi::ObjectRegistry<int, Small> registry(0xFFFFFFFEu);
    for (int issued = 0; issued < 255; ++issued) {
        registry.create<int>();
    }
    registry.destroy(Small{-1});
    registry.destroy(Small{7});
    EXPECT_EQ(registry.create<int>(), Small{-3});
    EXPECT_EQ(registry.create<int>(), Small{-1});
}

TEST(ObjectRegistry, TheCounterWrapsOverMinusOne)
{
    Registry registry(0xFFFFFFFEu);
    const std::shared_ptr<int> object = std::make_shared<int>(5);
    EXPECT_EQ(number(registry.insert(object)), -2);
    EXPECT_EQ(number(registry.insert(object)), -1); // handed out like any other
    EXPECT_EQ(registry.get(Handle{-1}), object);
    EXPECT_EQ(number(registry.insert(object)), 0);
}

TEST(ObjectRegistry, SharesOwnership)
{
    Registry registry;
    const std::weak_ptr<int> watched = registry.get(registry.create<int>());
    const std::shared_ptr<int> held = registry.get(Handle{0});
    registry.destroy(Handle{0});
    EXPECT_FALSE(watched.expired());
    // An empty pointer can be inserted, and reads back as an unknown handle.
    EXPECT_EQ(number(registry.insert(nullptr)), 1);
    EXPECT_EQ(registry.getRawPointer(Handle{1}), nullptr);
}

// Against a table that can't be wrong. Those alive are any of those made, and few or many of them in turn.
TEST(ObjectRegistry, FindsWhatLivesAmongManyThatCameAndWent)
{
    Registry registry(0xFFFFF000u);
    std::map<int32_t, const int*> living;
    std::mt19937 random(1);
    for (int round = 0; round < 100; ++round) {
        for (int i = 0; i < 300; ++i) {
            const Handle made = registry.create<int>();
            ASSERT_TRUE(living.emplace(number(made), registry.getRawPointer(made)).second);
        }
        const std::size_t left = random() % 300;
        while (living.size() > left) {
            const auto gone = std::next(living.begin(), static_cast<long>(random() % living.size()));
            ASSERT_EQ(registry.destroy(Handle{gone->first}), 0);
            ASSERT_EQ(registry.destroy(Handle{gone->first}), -1);
            living.erase(gone);
        }
        for (const auto& [handle, object] : living) {
            ASSERT_EQ(registry.getRawPointer(Handle{handle}), object);
        }
    }
    for (const auto& each : living) {
        EXPECT_EQ(registry.destroy(Handle{each.first}), 0);
    }
    EXPECT_TRUE(registry.isEmpty());
}

// A destructor may come back to the table: it is whole by then, and its own handle is already unknown.
TEST(ObjectRegistry, ADestructorFindsAWholeTable)
{
    struct Ending
    {
        std::function<void()> end;
        ~Ending() { end(); }
    };
    capi::ObjectRegistry<Ending, Handle> registry;
    int ended = 0;
    for (int32_t handle = 0; handle < 20; ++handle) {
        const auto object = std::make_shared<Ending>();
        object->end = [&registry, &ended, handle] {
            ++ended;
            EXPECT_EQ(registry.getRawPointer(Handle{handle}), nullptr);
            EXPECT_EQ(registry.destroy(Handle{handle}), -1);
            registry.destroy(Handle{handle + 1});
        };
        registry.insert(object);
    }
    EXPECT_EQ(registry.destroy(Handle{5}), 0);
    EXPECT_EQ(ended, 15);
    EXPECT_NE(registry.getRawPointer(Handle{4}), nullptr);
    registry.destroy(Handle{0});
    EXPECT_EQ(ended, 20);
    EXPECT_TRUE(registry.isEmpty());
}

namespace
{

template <typename U, typename T>
void expectCastsAsTheLanguage(const capi::ObjectRegistry<T, Handle>& registry)
{
    for (int32_t handle = 0; handle < 4; ++handle) {
        EXPECT_EQ(capi::getRawPointerAs<U>(registry, Handle{handle}),
                  dynamic_cast<U*>(registry.getRawPointer(Handle{handle})))
            << typeid(U).name() << " of " << handle;
    }
}

} // namespace

TEST(ObjectRegistry, CastsToTheOwnClassToBasesAndAcross)
{
    using namespace interaction;
    struct Finger : PokeInteractor
    {
    };
    capi::ObjectRegistry<IInteractor, Handle> interactors;
    interactors.create<RayInteractor>();
    interactors.create<PokeInteractor>();
    interactors.create<Finger>();
    expectCastsAsTheLanguage<RayInteractor>(interactors);
    expectCastsAsTheLanguage<PokeInteractor>(interactors);
    expectCastsAsTheLanguage<Finger>(interactors);
    expectCastsAsTheLanguage<InteractorMachine>(interactors);
    expectCastsAsTheLanguage<IInteractor>(interactors);
    expectCastsAsTheLanguage<select::IHasSelector>(interactors);
    EXPECT_NE(capi::getRawPointerAs<PokeInteractor>(interactors, Handle{2}), nullptr);

    capi::ObjectRegistry<surface::ISurface, Handle> surfaces;
    surfaces.create<surface::PointablePlane>();
    surfaces.insert(
        std::make_shared<surface::PointableAxisAlignedBox>(Vector3f::ZERO, Vector3f(1.0f, 1.0f, 1.0f)));
    surfaces.insert(nullptr);
    expectCastsAsTheLanguage<surface::PointablePlane>(surfaces);
    expectCastsAsTheLanguage<surface::PointableAxisAlignedBox>(surfaces);
    expectCastsAsTheLanguage<surface::ISurfacePatch>(surfaces);
    EXPECT_NE(capi::getRawPointerAs<surface::PointablePlane>(surfaces, Handle{0}), nullptr);
}

TEST(InteractableTables, AnInteractableWithoutHandleIsOutOfRange)
{
    const auto plane = std::make_shared<interaction::surface::PointablePlane>();
    const auto kept = std::make_shared<interaction::RayInteractable>(plane);
    const VelkInteractableHandle handle = capi::interactable::insert(kept);
    EXPECT_EQ(capi::interactable::getHandle(kept.get()), handle);
    EXPECT_EQ(capi::interactable::destroy(handle), 0); // kept alive by the test
    EXPECT_THROW(capi::interactable::getHandle(kept.get()), std::out_of_range);
    EXPECT_EQ(capi::interactable::destroy(handle), -1);
}

TEST(InteractableTables, APayloadOfAnotherKindIsNoHostsPayload)
{
    const auto ray = std::make_shared<interaction::RayInteractor>();
    const VelkInteractorHandle handle = capi::interactor::getRegistry().insert(ray);
    int value = 0;
    auto* const host = reinterpret_cast<VelkPayload*>(&value);
    VelkPayload* out = host;
    ray->setPayload(std::make_shared<core::IPayload>());
    EXPECT_EQ(capi::interactor::getPayload(handle, &out), -1);
    EXPECT_EQ(out, host);
    EXPECT_EQ(capi::interactor::setPayload(handle, nullptr), -1);
    capi::interactor::destroy(handle);
}
