// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AllocationCounter.h"
#include "tests/support/PokeScene.h"
#include "tests/support/SearchWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace velk::test
{
namespace
{

std::string randomBytes(uint32_t seed, std::size_t count)
{
    std::mt19937 random(seed);
    std::string bytes(count, '\0');
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random() & 0xFF); });
    return bytes;
}

TEST(Search, AnswersAsIfItAskedEverySurface)
{
    for (uint32_t seed = 0; seed < 300; ++seed) {
        const std::string bytes = randomBytes(seed, 4000);
        const auto searched = SearchWorld::play(bytes, false);
        const auto scanned = SearchWorld::play(bytes, true);
        const auto difference =
            std::mismatch(searched.begin(), searched.end(), scanned.begin(), scanned.end());
        ASSERT_EQ(difference.first - searched.begin(), static_cast<std::ptrdiff_t>(scanned.size()))
            << "seed " << seed;
    }
}

/// A board of buttons that are panels too, some of which move, under a fingertip and a ray that wander over
/// all of it.
class Board
{
public:
    Board()
    {
        for (int i = 0; i < kCount; ++i) {
            buttons_.emplace_back(PokeInteractable::Config(), Posef({}, placeOf(i)));
            panels_.push_back(std::make_unique<interaction::RayInteractable>(
                buttons_.back().clippedTo({}, {}), nullptr, nullptr, nullptr, nullptr));
        }
    }

    void frame(int number)
    {
        for (int i = 0; i < kCount; i += 10) {
            // Rests now and then, for longer than the index takes to believe it.
            if (number % 300 < 200) {
                buttons_[static_cast<std::size_t>(i)].moveTo(placeOf(i).x / kUnit,
                                                             static_cast<float>(number % 6));
            }
        }
        const Vector3f over =
            placeOf((number / 3) % kCount) + units(0, 0, static_cast<float>(number % 30 - 9));
        finger_.setPointPosition(over);
        finger_.update();
        ray_.setRayOrigin({{}, over + Vector3f(0.0f, 0.0f, 1.0f)});
        ray_.update();
        selects_ += finger_.getState() == interaction::InteractorState::Select ? 1 : 0;
    }

    int getSelects() const { return selects_; }

    static constexpr int kCount = 600;

private:
    static Vector3f placeOf(int i) { return units(static_cast<float>(i) * 110.0f, 0.0f, 0.0f); }

    std::vector<Button> buttons_;
    std::vector<std::unique_ptr<interaction::RayInteractable>> panels_;
    PokeInteractor finger_{PokeInteractor::Config()};
    interaction::RayInteractor ray_;
    int selects_ = 0;
};

TEST(Search, ASteadyFrameAllocatesNothing)
{
    Board board;
    constexpr int kRound = 3 * Board::kCount;
    for (int number = 0; number < kRound; ++number) {
        board.frame(number);
    }
    const int selectsBefore = board.getSelects();
    const long before = allocations;
    for (int number = kRound; number < 2 * kRound; ++number) {
        board.frame(number);
    }
    EXPECT_EQ(allocations, before);
    EXPECT_GT(board.getSelects(), selectsBefore);
}

} // namespace
} // namespace velk::test
