// SPDX-License-Identifier: MIT
// The parts of the windowed game that need no window.
#include "examples/klondike/app/command_reader.h"
#include "examples/klondike/app/cursor.h"
#include "examples/klondike/app/layout.h"
#include "examples/klondike/app/options.h"
#include "examples/klondike/app/play_clock.h"
#include "examples/klondike/rules/deal.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <set>
#include <thread>
#include <tuple>

#include <unistd.h>

using namespace klondike;

namespace
{

TEST(KlondikeLayout, EveryPileHasItsPlaceInEveryWindow)
{
    for (const auto& [width, height] : {std::pair{400, 300}, std::pair{800, 600}, std::pair{1280, 720},
                                        std::pair{1920, 1080}, std::pair{700, 1200}}) {
        for (const bool leftHanded : {false, true}) {
            const Layout layout = MakeLayout(width, height, {0.7, leftHanded, 3});
            ASSERT_EQ(layout.piles.size(), kNumPiles);
            std::set<std::pair<int, int>> places;
            for (std::size_t pile = 0; pile < kNumPiles; ++pile) {
                const render::Rectangle<int> place = layout.Place(pile);
                EXPECT_GE(place.x, 0);
                EXPECT_LE(place.x + place.width, width);
                EXPECT_LE(place.y + place.height, layout.toolBar.y);
                EXPECT_GE(layout.piles[pile].roomY, 0);
                places.insert({place.x, place.y});
            }
            EXPECT_EQ(places.size(), kNumPiles) << "two piles at one place";
            EXPECT_EQ(layout.Place(kStock).x > width / 2, leftHanded);
            const auto next = layout.piles[kWaste].stepUp.x * 2;
            EXPECT_LE(std::abs(next), layout.card.width) << "three cards of the waste keep clear of the foundations";
        }
    }
    for (const auto& [width, height] : {std::pair{1, 1}, std::pair{20000, 3}, std::pair{3, 20000}}) {
        const Layout layout = MakeLayout(width, height, {50.0, false, 1});
        EXPECT_GE(layout.card.width, kSmallestCardSide);
        EXPECT_GE(layout.card.height, kSmallestCardSide);
    }
}

TEST(KlondikeCursor, ReachesEveryPileByTheArrows)
{
    const Piles piles = Deal(3);
    for (const bool leftHanded : {false, true}) {
        const Layout layout = MakeLayout(800, 600, {0.7, leftHanded, 1});
        Cursor cursor;
        std::set<std::size_t> seen;
        for (int i = 0; i < 6; ++i) {
            seen.insert(cursor.Pile());
            const int x = layout.piles[cursor.Pile()].place.x;
            cursor.Step(Cursor::Direction::Right, piles, layout);
            EXPECT_TRUE(layout.piles[cursor.Pile()].place.x > x ||
                        cursor.Pile() == (leftHanded ? kFirstFoundation : kStock));
        }
        cursor.Step(Cursor::Direction::Down, piles, layout);
        EXPECT_TRUE(IsTableau(cursor.Pile()));
        for (int i = 0; i < 7; ++i) {
            seen.insert(cursor.Pile());
            cursor.Step(Cursor::Direction::Left, piles, layout);
        }
        EXPECT_EQ(seen.size(), kNumPiles);
        cursor.Step(Cursor::Direction::Up, piles, layout);
        EXPECT_FALSE(IsTableau(cursor.Pile()));
    }
}

TEST(KlondikeCursor, TakesRunsAndWhatIsLeftOfThem)
{
    Piles piles;
    piles[kFirstTableau] = {{9, Suit::Clubs, false}, {8, Suit::Hearts, true}, {7, Suit::Spades, true}};
    const Layout layout = MakeLayout(800, 600, {});
    Cursor cursor;
    cursor.GoTo(kFirstTableau);
    EXPECT_EQ(cursor.Place(piles).position, 3);
    cursor.Step(Cursor::Direction::Up, piles, layout);
    EXPECT_EQ(cursor.Place(piles).position, 2);
    piles[kFirstTableau].pop_back();
    piles[kFirstTableau].pop_back();
    EXPECT_EQ(cursor.Place(piles).position, 1) << "one card, face down";
    piles[kFirstTableau].clear();
    EXPECT_EQ(cursor.Place(piles).position, 0);
    cursor.Step(Cursor::Direction::Up, piles, layout);
    EXPECT_EQ(cursor.Pile(), kStock);
}

TEST(KlondikeCommandReader, GivesLinesInPiecesAndEndsAtOnce)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    {
        CommandReader reader(ends[0], [] {});
        const auto next = [&] {
            for (int i = 0; i < 5000 && !reader.HasLines() && !reader.HasEnded(); ++i) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            return reader.Take();
        };
        const std::string text = "one\n\nth" + std::string(5000, 'x') + "\n";
        ASSERT_EQ(write(ends[1], text.data(), 2), 2);
        ASSERT_EQ(write(ends[1], text.data() + 2, text.size() - 2), static_cast<ssize_t>(text.size() - 2));
        EXPECT_EQ(next(), "one");
        EXPECT_EQ(next(), "");
        EXPECT_LT(next().value_or("").size(), 2000U) << "a line longer than any command is cut";
        std::string many;
        for (int i = 0; i < 1000; ++i) {
            many += std::to_string(i) + "\n";
        }
        many += "last";
        ASSERT_EQ(write(ends[1], many.data(), many.size()), static_cast<ssize_t>(many.size()));
        close(ends[1]);
        for (int i = 0; i < 1000; ++i) {
            EXPECT_EQ(next(), std::to_string(i));
        }
        EXPECT_EQ(next(), "last");
        EXPECT_EQ(next(), std::nullopt);
        EXPECT_TRUE(reader.HasEnded());
    }
    close(ends[0]);
    ASSERT_EQ(pipe(ends.data()), 0);
    const auto start = std::chrono::steady_clock::now();
    {
        const CommandReader waiting(ends[0], [] {});
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    close(ends[0]);
    close(ends[1]);
}

TEST(KlondikeClock, PausesAreNotPlayed)
{
    constexpr std::uint64_t kSecond = 1000000;
    PlayClock clock;
    std::uint64_t now = 1000 * kSecond;
    clock.Input(now);
    EXPECT_EQ(clock.Input(now += kSecond / 2), 0U);
    EXPECT_EQ(clock.Input(now += kSecond / 2), 1U);
    EXPECT_EQ(clock.Input(now += 59 * kSecond), 59U);
    EXPECT_EQ(clock.Input(now += 3600 * kSecond), 0U);
    EXPECT_EQ(clock.Input(now -= 5 * kSecond), 0U) << "a clock that goes back";
}

TEST(KlondikeOptions, CallsAreReadOrRefused)
{
    const auto read = ParseArguments({"--deal", "18446744073709551615", "--size", "800x600", "--draw-one", "--deck",
                                      "a b", "--picture", "x.png", "--frames", "0", "--describe"});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->deal, 18446744073709551615U);
    EXPECT_EQ(std::tuple(read->width, read->height), std::tuple(800, 600));
    EXPECT_EQ(read->drawThree, false);
    EXPECT_EQ(read->deck, "a b");
    EXPECT_EQ(read->frames, 0);
    using Words = std::vector<std::string_view>;
    for (const Words& words :
         {Words{"--deal"}, Words{"--deal", "-1"}, Words{"--deal", "18446744073709551616"}, Words{"--size", "800"},
          Words{"--size", "0x600"}, Words{"--size", "800x600x"}, Words{"--size", "99999x9"}, Words{"--frames", "-1"},
          Words{"--deck", ""}, Words{"stray"}, Words{""}}) {
        EXPECT_FALSE(ParseArguments(words)) << words[0];
    }
}

} // namespace
