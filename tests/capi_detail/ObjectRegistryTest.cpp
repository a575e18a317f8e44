// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_core/core/IPayload.h"
#include "velk_core/interaction/ray/RayInteractable.h"
#include "velk_core/interaction/ray/RayInteractor.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <velk/velk.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>

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

// Some stay for long, most come and go.
TEST(ObjectRegistry, FindsWhatLivesHoweverMuchHasGone)
{
    Registry registry;
    std::map<int32_t, int> living;
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        const bool makes = living.size() < 10 || (living.size() < 300 && random() % 2 == 0);
        if (makes) {
            living[number(registry.insert(std::make_shared<int>(round)))] = round;
        } else {
            auto gone = living.begin();
            std::advance(gone, random() % 8 == 0 ? random() % living.size() : living.size() - 1);
            EXPECT_EQ(registry.destroy(Handle{gone->first}), 0);
            EXPECT_EQ(registry.getRawPointer(Handle{gone->first}), nullptr);
            living.erase(gone);
        }
        if (round % 64 == 0) {
            for (const auto& [handle, value] : living) {
                ASSERT_EQ(*registry.getRawPointer(Handle{handle}), value);
            }
        }
    }
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
