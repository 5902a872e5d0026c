// SPDX-License-Identifier: MIT
#include "examples/klondike/text/command.h"

#include "examples/klondike/rules/advice.h"
#include "tests/examples/klondike/play_support.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace klondike
{

/// What GoogleTest prints.
void PrintTo(const Command& command, std::ostream* out)
{
    *out << static_cast<int>(command.kind) << " from " << command.from << " to " << command.to.value_or(99);
}

} // namespace klondike

namespace
{

using namespace klondike;
using Kind = Command::Kind;

TEST(KlondikeCommand, IsRead)
{
    const std::pair<const char*, Command> cases[] = {
        {"move t3 f1", {Kind::Move, 8, 2}},
        {"move t3 t5 4", {Kind::Move, 8, 10, 4}},
        {"  MOVE\tWaste   F \r", {Kind::Move, kWaste}},
        {"move f4 t7 1", {Kind::Move, 5, 12, 1}},
        {"draw", {Kind::Draw}},
        {"undo", {Kind::Undo}},
        {"redo", {Kind::Redo}},
        {"hint", {Kind::Hint}},
        {"auto", {Kind::Auto}},
        {"home t4", {Kind::Home, 9}},
        {"home waste", {Kind::Home, kWaste}},
        {"new", {Kind::New}},
        {"new 0", {Kind::New, kStock, std::nullopt, std::nullopt, 0}},
        {"new 18446744073709551615", {Kind::New, kStock, std::nullopt, std::nullopt, 18446744073709551615U}},
        {"restart", {Kind::Restart}},
        {"describe", {Kind::Describe}},
        {"help", {Kind::Help}},
        {"Quit", {Kind::Quit}},
    };
    for (const auto& [line, expected] : cases) {
        const std::variant<Command, std::string> read = ParseCommand(line);
        ASSERT_TRUE(std::holds_alternative<Command>(read)) << line;
        EXPECT_EQ(std::get<Command>(read), expected) << line;
    }
}

TEST(KlondikeCommand, IsRefusedInPlainWords)
{
    using namespace std::string_literals;
    const std::string lines[] = {"",
                                 "   ",
                                 "move",
                                 "move t1",
                                 "move t1 t2 3 4",
                                 "move t8 t1",
                                 "move t0 f",
                                 "move f t1",
                                 "move t1 f5",
                                 "move t1 t2 0",
                                 "move t1 t2 -1",
                                 "move t1 t2 99999999999999999999",
                                 "move t1 t2 x",
                                 "home",
                                 "home f",
                                 "home t1 t2",
                                 "new x",
                                 "new 18446744073709551616",
                                 "new -1",
                                 "new 1 2",
                                 "draw 3",
                                 "quit now",
                                 "mov t1 t2",
                                 "draw\0"s,
                                 "\x1B[2Jmove",
                                 "move \x1B]0;x\x07 f",
                                 "\xFF\xFE\x7F",
                                 std::string(100000, 'x'),
                                 std::string(100000, ' ') + "undo x",
                                 "new" + std::string(1000, '\0')};
    for (const std::string& line : lines) {
        const std::variant<Command, std::string> read = ParseCommand(line);
        ASSERT_TRUE(std::holds_alternative<std::string>(read)) << line.substr(0, 40);
        const std::string& error = std::get<std::string>(read);
        EXPECT_TRUE(!error.empty() && error.size() < 150) << error;
        EXPECT_TRUE(std::all_of(error.begin(), error.end(), [](char c) { return c >= ' ' && c <= '~'; })) << error;
    }
}

TEST(KlondikeCommand, OfAMoveMakesThatMove)
{
    std::mt19937 random(9);
    for (std::uint64_t deal = 0; deal < 100; ++deal) {
        const Game game = RandomGame(deal, {}, 80, random);
        for (const Move& move : LegalMoves(game)) {
            const Command command = std::get<Command>(ParseCommand(CommandText(move)));
            const std::optional<Move> made = ToMove(game, command);
            ASSERT_TRUE(made && made->kind == move.kind);
            ASSERT_TRUE(move.kind != Move::Kind::Cards || *made == move) << CommandText(move);
        }
    }
}

/// Without a count the longest run that fits, without a foundation's number the one that fits; nothing that is illegal.
TEST(KlondikeCommand, FillsInWhatIsLeftOut)
{
    std::mt19937 random(10);
    std::size_t runs = 0;
    for (std::uint64_t deal = 0; deal < 100; ++deal) {
        const Game game = RandomGame(deal, {}, 80, random);
        for (std::size_t from = 0; from < kNumPiles; ++from) {
            EXPECT_EQ(ToMove(game, {Kind::Move, from}), SendHome(game, from));
            EXPECT_EQ(ToMove(game, {Kind::Home, from}), SendHome(game, from));
            EXPECT_FALSE(ToMove(game, {Kind::Move, from, std::nullopt, 2}));
            for (std::size_t to = 0; to < kNumPiles; ++to) {
                std::optional<Move> longest;
                for (std::size_t count = 1; count <= 14; ++count) {
                    const Move move{Move::Kind::Cards, from, to, count};
                    longest = game.IsLegal(move) ? move : longest;
                }
                EXPECT_EQ(ToMove(game, {Kind::Move, from, to}), longest);
                runs += longest && longest->count > 1;
            }
        }
    }
    EXPECT_GT(runs, 20U);
}

} // namespace
