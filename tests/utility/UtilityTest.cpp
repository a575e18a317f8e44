// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/core/TimeProvider.h"
#include "velk_core/select/Selector.h"
#include "velk_core/select/SelectorQueue.h"
#include "velk_core/utility/AssignableRef.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/OrderedSet.h"
#include "velk_core/utility/ProgressCurve.h"
#include "velk_core/utility/SlotTable.h"
#include "velk_core/utility/Subscription.h"
#include "velk_core/utility/UniqueIdentifier.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

using namespace velk;
using testing::ElementsAre;
using utility::MultiAction;
using utility::ProgressCurve;

TEST(MultiAction, HandsOutRisingTokensAndCallsInTheirOrder)
{
    MultiAction<int> action;
    std::vector<int> calls;
    EXPECT_EQ(action.subscribe([&](int value) { calls.push_back(value); }), 1u);
    EXPECT_EQ(action.subscribe([&](int value) { calls.push_back(10 * value); }), 2u);
    action.unsubscribe(1);
    EXPECT_EQ(action.subscribe([&](int value) { calls.push_back(100 * value); }), 3u);
    for (const uint32_t stale : {0u, 1u, 99u, utility::kNoToken}) {
        action.unsubscribe(stale);
    }
    action.invoke(7);
    EXPECT_THAT(calls, ElementsAre(70, 700));
}

TEST(MultiAction, PassesOverASnapshot)
{
    MultiAction<> action;
    std::vector<char> calls;
    uint32_t second = 0;
    action.subscribe([&] {
        calls.push_back('a');
        action.unsubscribe(second);
        if (calls.size() == 1) {
            action.subscribe([&] { calls.push_back('c'); });
            action.invoke(); // nested: sees the table as it stands now
        }
    });
    second = action.subscribe([&] { calls.push_back('b'); });
    action.invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'a', 'c', 'b')); // b once more, being in the outer snapshot
    calls.clear();
    calls.push_back('-');
    action.invoke();
    EXPECT_THAT(calls, ElementsAre('-', 'a', 'c'));
}

TEST(MultiAction, CallsInItsPassWhoLeavesDuringIt)
{
    MultiAction<> action;
    std::vector<char> calls;
    uint32_t self = 0;
    action.subscribe([&] {
        calls.push_back('a');
        if (calls.size() == 3) {
            action.unsubscribe(self); // twice
            action.invoke();          // began without it
        }
    });
    self = action.subscribe([&] {
        calls.push_back('b');
        action.unsubscribe(self);
        action.invoke(); // neither has it
    });
    action.invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'b', 'a', 'a'));
}

TEST(MultiAction, OutlivesItsListInAllPasses)
{
    auto action = std::make_unique<MultiAction<>>();
    std::vector<char> calls;
    const auto alive = std::make_shared<int>(0);
    action->subscribe([&, alive] {
        calls.push_back('a');
        if (calls.size() == 1) {
            action->invoke();
        } else {
            action.reset();
        }
    });
    action->subscribe([&, alive] { calls.push_back('b'); });
    action->invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'a', 'b', 'b'));
    EXPECT_EQ(alive.use_count(), 1);
}

TEST(MultiAction, TakesASubscriptionOver)
{
    MultiAction<> former;
    MultiAction<> next;
    std::vector<char> calls;
    next.subscribe([&] { calls.push_back('a'); });
    uint32_t token = former.subscribe([&] { calls.push_back('b'); });
    token = next.takeOver(former, token);
    EXPECT_EQ(token, 2u);
    former.invoke();
    next.invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'b'));

    // In a pass of either: called in that of the former list, not yet in that of the next.
    calls.clear();
    uint32_t moved = 0;
    former.subscribe([&] { token = next.takeOver(former, moved); });
    moved = former.subscribe([&] { calls.push_back('c'); });
    next.subscribe([&] { former.invoke(); });
    next.invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'b', 'c'));
    calls.clear();
    next.unsubscribe(3);
    next.invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'b', 'c'));
    next.unsubscribe(token);
    next.invoke();
    EXPECT_THAT(calls, ElementsAre('a', 'b', 'c', 'a', 'b'));
}

TEST(MultiAction, AnExceptionEndsThePass)
{
    MultiAction<> action;
    bool later = false;
    action.subscribe([] { throw 1; });
    action.subscribe([&] { later = true; });
    EXPECT_THROW(action.invoke(), int);
    EXPECT_FALSE(later);
    action.unsubscribe(1); // no pass is left that would still call it
    action.invoke();
    EXPECT_TRUE(later);
    MultiAction<> empty;
    empty.subscribe(nullptr);
    EXPECT_THROW(empty.invoke(), std::bad_function_call);
}

TEST(HandlerToken, EndsWithItsScopeUnlessReleased)
{
    auto action = std::make_unique<MultiAction<>>();
    int calls = 0;
    {
        const auto token = action->registerHandler([&] { ++calls; });
        action->invoke();
    }
    action->invoke();
    EXPECT_EQ(calls, 1);
    {
        const MultiAction<>::HandlerToken none(*action, utility::kNoToken);
    }
    auto token = action->registerHandler([] {});
    token.release();
    action.reset(); // the token must not touch it any more
}

TEST(SelectorQueue, KeepsItsSelectorWhenTheNextCannotBeHeard)
{
    struct Broken : select::Selector
    {
        uint32_t subscribeToWhenUnselected(std::function<void()>&&) override { throw std::bad_alloc(); }
    };
    int heard = 0;
    const auto first = std::make_shared<select::Selector>();
    const auto broken = std::make_shared<Broken>();
    select::SelectorQueue queue([&] { ++heard; }, [&] { ++heard; });
    queue.setSelector(first);
    EXPECT_THROW(queue.setSelector(broken), std::bad_alloc);
    EXPECT_EQ(queue.getSelector(), first);
    broken->select();
    EXPECT_EQ(heard, 0);
    first->select();
    EXPECT_EQ(heard, 1);
}

TEST(SlotTable, AnEntryDiesWithItsOwner)
{
    utility::SlotTable<int> table;
    const utility::SlotIndex first;
    std::optional<utility::SlotIndex> second(std::in_place);
    EXPECT_EQ(table.find(first), nullptr);
    table.assign(*second) = 2;
    table.assign(first) = 1;
    EXPECT_EQ(*table.find(*second), 2);
    const std::size_t place = second->index();
    second.reset();
    const utility::SlotIndex successor;
    EXPECT_EQ(successor.index(), place);
    EXPECT_EQ(table.find(successor), nullptr);
    EXPECT_EQ(*table.find(first), 1);
    const std::vector<utility::SlotIndex> many(200);
    table.assign(many.back()) = 3;
    EXPECT_EQ(table.find(many[100]), nullptr);
    EXPECT_EQ(*table.find(many.back()), 3);
    EXPECT_EQ(*table.find(first), 1);
}

TEST(UniqueIdentifier, Rises)
{
    const utility::UniqueIdentifier first;
    const utility::UniqueIdentifier second;
    EXPECT_EQ(second.get(), first.get() + 1);
}

TEST(OrderedSet, KeepsTheOrderOfInsertion)
{
    utility::OrderedSet<int> set;
    EXPECT_TRUE(set.insert(3) && set.insert(1) && set.insert(2));
    EXPECT_FALSE(set.insert(3));
    EXPECT_TRUE(set.erase(1));
    EXPECT_FALSE(set.erase(1));
    EXPECT_THAT(set, ElementsAre(3, 2));
}

namespace
{

struct Curve : testing::Test
{
    float time = 100.0f;
    core::TimeProvider clock{[this] { return time; }};
    ProgressCurve curve{2.0f, clock};
};

} // namespace

TEST_F(Curve, EasesFromStartToEnd)
{
    curve.start();
    const std::pair<float, float> rows[] = {{100.0f, 0.0f}, {100.5f, 0.15625f}, {101.0f, 0.5f},
                                            {102.0f, 1.0f}, {200.0f, 1.0f},     {99.9f, 1.0f}};
    for (const auto& [now, expected] : rows) {
        time = now;
        EXPECT_EQ(curve.progress(), expected) << now;
    }
    time = 100.5f;
    curve.start();
    EXPECT_EQ(curve.progress(), 0.0f);
    curve.end();
    EXPECT_EQ(curve.progress(), 1.0f);
}

TEST_F(Curve, NeverStartedReadsFromTimeZero)
{
    time = 1.0f;
    EXPECT_EQ(curve.progress(), 0.5f);
    time = 2.0f;
    EXPECT_EQ(curve.progress(), 1.0f);
}

TEST_F(Curve, WithoutDurationIsNotANumberAtItsStartOnly)
{
    ProgressCurve instant(0.0f, clock);
    instant.start();
    EXPECT_TRUE(std::isnan(instant.progress()));
    time += 1.0f;
    EXPECT_EQ(instant.progress(), 1.0f);
}

TEST_F(Curve, ReportsTheEasedEnd)
{
    ProgressCurve custom([](float x) { return 3.0f * x; }, 2.0f, clock);
    custom.start();
    time += 1.0f;
    EXPECT_EQ(custom.progress(), 1.5f);
    custom.end();
    EXPECT_EQ(custom.progress(), 3.0f);
}

TEST_F(Curve, OfAFloatClockMeasuresInFloats)
{
    const auto raw = [](float x) { return x; };
    const auto finished = [](float x) { return 0.0f > x || x >= 1.0f ? 1.0f : x; };
    for (const float duration : {0.05f, 0.1f, 0.7f}) {
        ProgressCurve started(raw, duration, clock);
        ProgressCurve ended(raw, duration, clock);
        float begin = 0.001f;
        while (begin < 1e6f) {
            time = begin;
            started.start();
            ended.end();
            for (int step = 0; step < 50; ++step) {
                time = begin + 0.003f * static_cast<float>(step);
                EXPECT_EQ(started.progress(), finished((time - begin) / duration)) << begin;
                EXPECT_EQ(ended.progress(), finished((time - (begin - duration)) / duration)) << begin;
            }
            begin *= 1.37f;
        }
    }
}

TEST(CurveOfADoubleClock, IsAsFineAfterAYearAsAfterAMinute)
{
    double time = 0.0;
    core::TimeProvider clock([&time] { return time; });
    ProgressCurve curve(0.1f, clock);
    const auto play = [&](double begin) {
        std::vector<float> values;
        time = begin;
        curve.end();
        values.push_back(curve.progress());
        curve.start();
        for (int frame = 0; frame < 12; ++frame) {
            time = begin + frame / 90.0;
            values.push_back(curve.progress());
        }
        return values;
    };
    const std::vector<float> young = play(60.0);
    EXPECT_EQ(young.front(), 1.0f);
    EXPECT_EQ(young.back(), 1.0f);
    EXPECT_THAT(play(365 * 86400.0), testing::Pointwise(testing::FloatNear(1e-6f), young));
    EXPECT_EQ(clock.now(), static_cast<float>(time));
}

TEST_F(Curve, ACopyKeepsTheRunningStateAndTheClock)
{
    core::TimeProvider frozen([] { return 0.0f; });
    ProgressCurve copy(8.0f, frozen);
    curve.start();
    time += 1.0f;
    copy = curve;
    EXPECT_EQ(copy.progress(), 0.5f);
    const ProgressCurve moved = std::move(copy);
    EXPECT_EQ(ProgressCurve(moved).progress(), 0.5f);
}

TEST(DefaultTimeProvider, RunsForwardFromTheLoad)
{
    core::TimeProvider& clock = core::TimeProvider::defaultTimeProvider();
    const float first = clock.now();
    EXPECT_GE(first, 0.0f);
    EXPECT_GE(clock.now(), first);
}
