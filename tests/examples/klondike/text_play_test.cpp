// SPDX-License-Identifier: MIT
#include "examples/klondike/text/play.h"

#include "examples/klondike/rules/advice.h"
#include "examples/klondike/text/command.h"
#include "examples/klondike/text/describe.h"
#include "tests/examples/klondike/play_support.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{

using namespace klondike;

/// What is printed for the lines.
std::string Answers(const std::string& lines, Game& game, bool describe = false)
{
    std::istringstream in(lines);
    std::ostringstream out;
    EXPECT_EQ(RunText(in, out, game, describe), 0);
    return out.str();
}

bool Contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

TEST(KlondikePlay, AWholeGameIsWonByCommands)
{
    for (const bool drawThree : {false, true}) {
        const Game won = WonGame({drawThree, std::nullopt, Scoring::Standard});
        std::string lines;
        for (const Move& move : won.Played()) {
            lines += CommandText(move) + "\n";
        }
        Game game(won.DealNumber(), won.GameOptions());
        const std::string answers = Answers(lines, game, true);
        EXPECT_TRUE(game.IsWon() && game.Table() == won.Table());
        EXPECT_TRUE(Contains(answers, "the game is won, score " + std::to_string(won.Score())));
        EXPECT_FALSE(Contains(answers, "rules"));
        EXPECT_EQ(answers.rfind(Describe(Game(won.DealNumber(), won.GameOptions())), 0), 0U);
    }
}

TEST(KlondikePlay, AutoFinishesOnlyWhenNothingIsHidden)
{
    Game game = WonGame({});
    for (int undo = 0; undo < 10; ++undo) {
        game.Undo();
    }
    ASSERT_TRUE(CanFinish(game) && !game.IsWon());
    EXPECT_TRUE(Contains(Answers("auto\n", game), "the game is won"));
    Game fresh(1, {});
    EXPECT_EQ(Answers("auto\n", fresh), "not yet: stock and waste must be empty, and no card face down\n");
    EXPECT_TRUE(fresh.Played().empty());
}

TEST(KlondikePlay, AnswersEachLine)
{
    Game game(1, {});
    EXPECT_EQ(Answers("move t1 t2\nundo\nredo\nwhat\n\nhome t1", game),
              "the rules do not allow this move\nthere is nothing to undo\nthere is nothing to redo\n"
              "there is no command 'what'; help lists them\ntype a command, or help\n"
              "the rules do not allow this move\n");
    EXPECT_EQ(Answers("draw\nundo\nredo\nquit\ndraw\n", game), "");
    EXPECT_EQ(game.Played().size(), 1U);
    EXPECT_EQ(Answers("restart\ndescribe\n", game), Describe(Game(1, {})));
    EXPECT_EQ(Answers("new 5\n", game, true), Describe(Game(1, {})) + Describe(Game(5, {})));
    const std::string anyDeal = Answers("new\ndescribe", game);
    EXPECT_EQ(anyDeal, Describe(game));
    EXPECT_NE(game.DealNumber(), 5U);
    const std::string help = Answers("help", game);
    for (const char* const command :
         {"move", "draw", "home", "auto", "undo", "redo", "hint", "new", "restart", "describe", "help", "quit"}) {
        EXPECT_TRUE(Contains("\n" + help, std::string("\n") + command)) << command;
    }
    EXPECT_EQ(Answers(std::string(100000, 'd') + "\ndraw", game).find("there is no command 'ddd"), 0U);
    EXPECT_EQ(game.Played().size(), 1U);
}

TEST(KlondikePlay, HintsLeadToAnEndThatIsTold)
{
    bool wasWon = false;
    bool wasStuck = false;
    for (std::uint64_t deal = 0; deal < 20; ++deal) {
        Game game(deal, {});
        bool ended = false;
        for (int move = 0; move < 500 && !ended; ++move) {
            const std::string hint = Answers("hint", game);
            ASSERT_EQ(hint.rfind("try: ", 0), 0U);
            const std::string answer = Answers(hint.substr(5), game);
            ASSERT_EQ(Contains(answer, "the game is stuck"), IsStuck(game));
            ASSERT_EQ(Contains(answer, "the game is won"), game.IsWon());
            ended = !answer.empty();
        }
        EXPECT_TRUE(ended);
        EXPECT_EQ(Answers("hint", game), "no move brings the game on\n");
        wasWon = wasWon || game.IsWon();
        wasStuck = wasStuck || IsStuck(game);
    }
    EXPECT_TRUE(wasWon && wasStuck);
}

TEST(KlondikePlay, AnOutputThatFailsEndsTheGame)
{
    Game game(1, {});
    std::istringstream in("draw\nundo\ndescribe\ndraw\ndraw\n");
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(RunText(in, out, game, true), 1);
    EXPECT_TRUE(game.Played().empty());
}

} // namespace
