// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AllocationCounter.h"
#include "tests/support/PokeScene.h"
#include "tests/support/SearchWorld.h"
#include "velk_core/interaction/poke/PokeGathering.h"
#include "velk_core/interaction/ray/RayGathering.h"

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

    /// How many are gathered by a finger and a ray over the board; the finger has been there before.
    std::size_t countGathered(const Vector3f& point, const PokeInteractor::Config& config)
    {
        interaction::PokeFrame frame;
        frame.moveTo(point);
        frame.moveTo(point + units(0, 0, 1));
        frame.rememberSurfaces(finger_);
        std::vector<PokeInteractable*> touched;
        gatherAround(frame, config, nullptr, touched);
        return touched.size();
    }
    static std::size_t countGathered(const math::Ray& ray)
    {
        std::vector<interaction::RayInteractable*> met;
        gatherAlong(ray, met);
        return met.size();
    }

    static constexpr int kCount = 600;

private:
    static Vector3f placeOf(int i) { return units(static_cast<float>(i) * 110.0f, 0.0f, 0.0f); }

    std::vector<Button> buttons_;
    std::vector<std::unique_ptr<interaction::RayInteractable>> panels_;
    PokeInteractor finger_{PokeInteractor::Config()};
    interaction::RayInteractor ray_;
    int selects_ = 0;
};

TEST(Search, GathersFewUnlessNumbersAreOdd)
{
    Board board;
    constexpr std::size_t kAll = Board::kCount;
    constexpr float kFar = 1.1e5f;
    for (int number = 0; number < Board::kCount; ++number) {
        board.frame(number); // they come to rest in the index, or stay in its list
    }
    PokeInteractor::Config config;
    EXPECT_LE(board.countGathered(units(5500, 0, 8), config), 3U);
    EXPECT_EQ(board.countGathered({kFar, 0, 0}, config), kAll);
    EXPECT_EQ(board.countGathered({0, kFar, 0}, config), kAll);
    EXPECT_EQ(board.countGathered({0, 0, -kFar}, config), kAll);
    config.radius = 0.0f;
    EXPECT_EQ(board.countGathered(units(5500, 0, 8), config), kAll);
    config.radius = 1.1e3f;
    EXPECT_EQ(board.countGathered(units(5500, 0, 8), config), kAll);
    config.radius = 0.01f;
    config.equalDistanceEpsilon = -1.0f;
    EXPECT_EQ(board.countGathered(units(5500, 0, 8), config), kAll);

    const Vector3f down(0, 0, -1);
    EXPECT_LE(Board::countGathered({units(5500, 0, 1024), down}), 3U);
    EXPECT_LE(Board::countGathered({units(5500, 0, 1024), down * 900.0f}), 3U);
    EXPECT_EQ(Board::countGathered({units(5500, 0, 1024), down * 1.1e3f}), kAll);
    EXPECT_EQ(Board::countGathered({units(5500, 0, 1024), down * 0.9e-3f}), kAll);
    EXPECT_EQ(Board::countGathered({{kFar, 0, 0}, down}), kAll);
    EXPECT_EQ(Board::countGathered({{0, -kFar, 0}, down}), kAll);
    EXPECT_EQ(Board::countGathered({{0, 0, kFar}, down}), kAll);
}

TEST(Search, ASteadyFrameAllocatesNothing)
{
    Board board;
    constexpr int kRound = 3 * Board::kCount; // ends with a jump back to the first
    for (int number = 0; number <= kRound; ++number) {
        board.frame(number);
    }
    const int selectsBefore = board.getSelects();
    const long before = allocations;
    for (int number = kRound + 1; number <= 2 * kRound; ++number) {
        board.frame(number);
    }
    EXPECT_EQ(allocations, before);
    EXPECT_GT(board.getSelects(), selectsBefore);
}

} // namespace
} // namespace velk::test
