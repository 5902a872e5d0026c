// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/save.h"

#include "tests/examples/klondike/play_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace
{

using namespace klondike;

void ExpectSame(const Game& a, const Game& b)
{
    ASSERT_TRUE(a.DealNumber() == b.DealNumber() && a.GameOptions() == b.GameOptions());
    ASSERT_TRUE(a.Table() == b.Table() && a.Score() == b.Score() && a.Seconds() == b.Seconds());
    ASSERT_TRUE(a.RedealsUsed() == b.RedealsUsed() && a.Played() == b.Played() && a.Undone() == b.Undone());
}

/// The text gives the game, or is refused with one line.
void ExpectSameOrRefused(const std::string& text, const Game& game)
{
    try {
        ASSERT_NO_FATAL_FAILURE(ExpectSame(FromText(text), game));
    } catch (const std::runtime_error& error) {
        const std::string message = error.what();
        ASSERT_FALSE(message.empty());
        ASSERT_TRUE(std::all_of(message.begin(), message.end(), [](char c) { return c >= ' ' && c <= '~'; }));
    }
}

TEST(KlondikeSave, KeepsAnyGame)
{
    std::mt19937 random(3);
    for (std::uint64_t deal = 0; deal < 100; ++deal) {
        const Options options{deal % 2 == 1, deal % 3 == 0 ? std::nullopt : std::optional(std::uint32_t{4294967295U}),
                              static_cast<Scoring>(deal / 3 % 3)};
        Game game = RandomGame(deal * 0x0123456789ABCDEFU, options, static_cast<int>(random() % 300), random);
        game.AddSeconds(static_cast<std::uint32_t>(deal * deal * deal));
        for (std::size_t undo = random() % 40; undo > 0; --undo) {
            game.Undo();
        }
        Game loaded = FromText(ToText(game));
        ASSERT_NO_FATAL_FAILURE(ExpectSame(loaded, game));
        ASSERT_EQ(loaded.Redo(), game.Redo());
        ASSERT_NO_FATAL_FAILURE(ExpectSame(loaded, game));
    }
    Game won = WonGame({});
    won.AddSeconds(5);
    ExpectSame(FromText(ToText(won)), won);
}

TEST(KlondikeSave, TakesTheLongestGame)
{
    Game game(7, {});
    while (!game.Apply({game.Table()[kStock].empty() ? Move::Kind::Recycle : Move::Kind::Draw}).empty()) {
    }
    for (int undo = 0; undo < 60000; ++undo) {
        game.Undo();
    }
    ExpectSame(FromText(ToText(game)), game);
}

TEST(KlondikeSave, RefusesEveryDamage)
{
    std::mt19937 random(4);
    Game game = RandomGame(11, {true, 3, Scoring::Vegas}, 40, random);
    game.AddSeconds(123);
    game.Undo();
    const std::string text = ToText(game);
    for (std::size_t size = 0; size < text.size(); ++size) {
        EXPECT_THROW(FromText(text.substr(0, size)), std::runtime_error) << size;
    }
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int change = 1; change < 256; ++change) {
            std::string damaged = text;
            damaged[place] = static_cast<char>(damaged[place] ^ change);
            ASSERT_THROW(FromText(damaged), std::runtime_error) << place << " " << change;
        }
    }
    for (int round = 0; round < 5000; ++round) {
        std::string damaged = text;
        damaged.erase(random() % damaged.size(), random() % 5);
        damaged.insert(random() % damaged.size(), text.substr(random() % text.size(), random() % 20));
        ASSERT_NO_FATAL_FAILURE(ExpectSameOrRefused(damaged, game));
    }
    EXPECT_THROW(FromText(std::string(kMostSaveSize + 1, 'd')), std::runtime_error);
}

} // namespace
