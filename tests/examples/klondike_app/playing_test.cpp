// SPDX-License-Identifier: MIT
// The game in its window, played by mouse, fingers, keys and words.
#include "examples/klondike/rules/advice.h"
#include "examples/klondike/rules/save_file.h"
#include "tests/examples/klondike_app/window_game_test.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

#include <unistd.h>

using namespace klondike;

namespace
{

/// A move of cards between columns, or from the waste to one.
std::optional<Move> ColumnMove(const klondike::Game& game)
{
    for (const Move& move : Hints(game)) {
        if (move.kind == Move::Kind::Cards && IsTableau(move.to)) {
            return move;
        }
    }
    return std::nullopt;
}

long PositionOf(const klondike::Game& game, const Move& move)
{
    return static_cast<long>(game.Table()[move.from].size() - move.count + 1);
}

/// The first deal from that number on that begins with a move between columns.
std::uint64_t DealWithColumnMove(std::uint64_t number)
{
    while (!ColumnMove({number, {}})) {
        ++number;
    }
    return number;
}

} // namespace

class PlayingTest : public WindowGame
{
protected:
    PlayingTest()
    {
        klondike::Setup setup = SetupOf(DealWithColumnMove(1));
        setup.settings.autoMove = false;
        Start(std::move(setup));
        move = *ColumnMove(Game());
    }

    Move move;
};

TEST_F(PlayingTest, CardsAreDraggedAndTheDropIsUndone)
{
    ExpectRight();
    const Piles before = Game().Table();
    Drag(On(move.from, PositionOf(Game(), move)), OnTop(move.to));
    ASSERT_EQ(Game().Played().size(), 1U);
    EXPECT_EQ(Game().Played()[0].from, move.from);
    EXPECT_EQ(Game().Played()[0].to, move.to);
    UntilQuiet();
    ExpectRight();
    Key(SDLK_z, KMOD_CTRL);
    UntilQuiet();
    EXPECT_EQ(Game().Table(), before);
    Key(SDLK_y);
    UntilQuiet();
    EXPECT_NE(Game().Table(), before);
    ExpectRight();
}

TEST_F(PlayingTest, ADropThatIsNotAllowedASecondButtonAndEscapeBringTheCardsBack)
{
    const auto before = Screen();
    const cardkit::Pixel from = On(move.from, PositionOf(Game(), move));
    Drag(from, OnTop(kStock));
    UntilQuiet();
    EXPECT_EQ(Screen() == before, true);

    Mouse(SDL_MOUSEBUTTONDOWN, from);
    Mouse(SDL_MOUSEMOTION, OnTop(move.to));
    Frame();
    EXPECT_EQ(Screen() == before, false);
    Mouse(SDL_MOUSEBUTTONDOWN, OnTop(move.to), SDL_BUTTON_RIGHT);
    Mouse(SDL_MOUSEBUTTONUP, OnTop(move.to), SDL_BUTTON_RIGHT);
    Mouse(SDL_MOUSEBUTTONUP, OnTop(move.to));
    UntilQuiet();
    EXPECT_EQ(Screen() == before, true);

    Mouse(SDL_MOUSEBUTTONDOWN, from);
    Mouse(SDL_MOUSEMOTION, OnTop(move.to));
    Frame();
    Key(SDLK_ESCAPE);
    Mouse(SDL_MOUSEBUTTONUP, OnTop(move.to));
    UntilQuiet();
    EXPECT_EQ(Screen() == before, true);
    EXPECT_TRUE(Game().Played().empty());
}

TEST_F(PlayingTest, TapsSelectAndPlay)
{
    const cardkit::Pixel from = On(move.from, PositionOf(Game(), move));
    Tap(from);
    Tap(OnTop(move.to));
    ASSERT_EQ(Game().Played().size(), 1U);
    EXPECT_EQ(Game().Played()[0].to, move.to);
    Key(SDLK_u);
    UntilQuiet();
    // A second finger takes the first one's press away.
    Finger(SDL_FINGERDOWN, from, 3);
    Finger(SDL_FINGERDOWN, {5, 5}, 4);
    Finger(SDL_FINGERUP, from, 3);
    Finger(SDL_FINGERUP, {5, 5}, 4);
    Tap(OnTop(move.to));
    EXPECT_TRUE(Game().Played().empty());
    Key(SDLK_ESCAPE);
    UntilQuiet();

    // Twice on the same cards: where they go best.
    const std::optional<Move> best = BestMove(Game(), move.from, move.count);
    ASSERT_TRUE(best);
    Click(from);
    Click(from);
    ASSERT_EQ(Game().Played().size(), 1U);
    EXPECT_EQ(Game().Played()[0].to, best->to);
    UntilQuiet();
    ExpectRight();
}

TEST_F(PlayingTest, ARightClickSendsHome)
{
    for (std::uint64_t deal = 1; Game().Played().empty(); ++deal) {
        Start(SetupOf(deal));
        for (std::size_t pile = kFirstTableau; pile < kNumPiles; ++pile) {
            if (SendHome(Game(), pile)) {
                Click(OnTop(pile), SDL_BUTTON_RIGHT);
                break;
            }
        }
    }
    EXPECT_TRUE(IsFoundation(Game().Played()[0].to));
    UntilQuiet();
    ExpectRight();
}

TEST_F(PlayingTest, KeysAlonePlay)
{
    const auto before = Screen();
    Key(SDLK_DOWN); // the first key shows where the cursor is
    UntilQuiet();
    EXPECT_EQ(Screen() == before, false);
    Key(SDLK_1 + static_cast<int>(move.from - kFirstTableau));
    for (std::size_t i = 1; i < move.count; ++i) {
        Key(SDLK_UP);
    }
    Key(SDLK_RETURN);
    for (std::size_t column = move.from; column != move.to;) {
        Key(column < move.to ? SDLK_RIGHT : SDLK_LEFT);
        column = column < move.to ? column + 1 : column - 1;
    }
    Key(SDLK_SPACE);
    UntilQuiet();
    ASSERT_EQ(Game().Played().size(), 1U);
    EXPECT_EQ(Game().Played()[0].from, move.from);
    EXPECT_EQ(Game().Played()[0].to, move.to);
    EXPECT_EQ(Game().Played()[0].count, move.count);
    Key(SDLK_d);
    Key(SDLK_BACKSPACE);
    Key(SDLK_TAB); // to the buttons; the first one deals anew
    Key(SDLK_RETURN);
    Key(SDLK_DOWN); // not yet: the question is about giving up
    Key(SDLK_RETURN);
    UntilQuiet();
    EXPECT_EQ(Game().Played().size(), 1U);
    Key(SDLK_ESCAPE);
    Key(SDLK_ESCAPE);
    UntilQuiet();
    EXPECT_EQ(before.size(), Screen().size());
}

TEST_F(PlayingTest, LeftHandedResizedAndInFullScreen)
{
    Key(SDLK_d);
    const cardkit::Pixel right = OnTop(kStock);
    Key(SDLK_m);
    for (int i = 0; i < 7; ++i) {
        Key(SDLK_DOWN);
    }
    Key(SDLK_RETURN);
    Key(SDLK_ESCAPE);
    UntilQuiet();
    EXPECT_GT(OnTop(kStock).x, kWidth / 2);
    EXPECT_LT(right.x, kWidth / 2);
    ExpectRight();
    EXPECT_NE(ReadText(folder / "settings", 10000)->find("left-handed=yes"), std::string::npos);
    for (const auto& [width, height] :
         {std::pair{901, 333}, std::pair{100, 700}, std::pair{1, 1}, std::pair{1280, 720}}) {
        window.SetSize(width, height);
        Frame();
        Key(SDLK_d);
        UntilQuiet();
        ExpectRight();
    }
    EXPECT_EQ(program->View().Places().card.width, program->View().Cards().Size().width);
    Key(SDLK_F11);
    UntilQuiet();
    EXPECT_TRUE(window.IsFullScreen());
    ExpectRight();
    Key(SDLK_F11);
    UntilQuiet();
    ExpectRight();
}

TEST_F(PlayingTest, CommandsPlayTheSameGame)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    klondike::Setup setup = SetupOf(2);
    setup.commands = ends[0];
    setup.describe = true;
    Start(std::move(setup));
    EXPECT_NE(answers.str().find("deal 2"), std::string::npos);
    const auto say = [&](const std::string& text) {
        ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    };
    say("draw\nnonsense\ndra");
    say("w\nundo\nnew 17");
    close(ends[1]);
    while (!program->AwaitsInput() && program->TheGame().DealNumber() != 17) {
        UntilQuiet();
    }
    while (Game().DealNumber() != 17) {
        UntilQuiet();
    }
    UntilQuiet();
    EXPECT_NE(answers.str().find("nonsense"), std::string::npos);
    EXPECT_NE(answers.str().find("stock: 22 cards"), std::string::npos);
    EXPECT_NE(answers.str().find("deal 17"), std::string::npos);
    answers.str("");
    Key(SDLK_d); // what is played by hand is told too
    UntilQuiet();
    EXPECT_NE(answers.str().find("stock: 23 cards"), std::string::npos);
    ExpectRight();
    program.reset();
    close(ends[0]);
}

TEST_F(PlayingTest, AWonGameIsCelebratedUntilAClick)
{
    klondike::Game game(0, {});
    std::uint64_t deal = 0;
    for (bool won = false; !won; ++deal) {
        game = klondike::Game(deal, {});
        for (int moves = 0; moves < 300 && !game.IsWon() && !CanFinish(game); ++moves) {
            const std::vector<Move> hints = Hints(game);
            if (hints.empty() || game.Apply(hints.front()).empty()) {
                break;
            }
        }
        won = CanFinish(game);
    }
    for (const bool clicks : {true, false}) {
        klondike::Setup setup = SetupOf(deal);
        setup.game = game;
        Start(std::move(setup));
        Key(SDLK_f);
        for (int i = 0; i < 3000 && program->View().Cards().NumInAir() < 10; ++i) {
            Frame();
        }
        EXPECT_TRUE(Game().IsWon());
        ASSERT_GE(program->View().Cards().NumInAir(), 10U) << "no celebration";
        if (clicks) {
            Click({kWidth / 2, kHeight / 2});
            EXPECT_EQ(program->View().Cards().NumInAir(), 0U);
            Key(SDLK_ESCAPE); // of the message
            UntilQuiet();
            ExpectRight();
        } else {
            UntilQuiet();
        }
    }
    Key(SDLK_RETURN); // a new game
    UntilQuiet();
    EXPECT_FALSE(Game().IsWon());
    ExpectRight();
}

TEST_F(PlayingTest, TheGameIsKeptWhenItIsLeftAlone)
{
    std::filesystem::remove(folder / "game");
    Key(SDLK_d);
    UntilQuiet();
    LeaveAlone();
    LoadedGame loaded = LoadOrSetAside(folder / "game");
    ASSERT_TRUE(loaded.game) << loaded.message;
    EXPECT_EQ(loaded.game->Table(), Game().Table());
    Key(SDLK_d);
    Key(SDLK_q);
    Frame();
    EXPECT_TRUE(program->Loop().HasEnded());
    EXPECT_EQ(LoadOrSetAside(folder / "game").game->Played().size(), 2U);
}

TEST_F(PlayingTest, NothingHappensWhileNothingHappens)
{
    LeaveAlone();
    const orvane::LoopCounters before = program->Loop().Counters();
    EXPECT_EQ(program->Loop().Step(), std::nullopt) << "nothing but input wakes the game";
    for (int i = 0; i < 100; ++i) {
        Frame();
    }
    EXPECT_EQ(program->Loop().Counters().framesRun, before.framesRun);
    EXPECT_EQ(program->Loop().Counters().pixelsPresented, before.pixelsPresented);
    Mouse(SDL_MOUSEMOTION, {kWidth / 2, kHeight * 3 / 4}); // over bare table
    Frame();
    EXPECT_EQ(program->Loop().Counters().pixelsPresented, before.pixelsPresented);
    EXPECT_EQ(program->Loop().Step(), std::nullopt);
}

TEST_F(PlayingTest, AnotherDeckTakesThePlaceOfTheFirst)
{
    const auto before = Screen();
    std::filesystem::create_directories(folder / "more");
    WriteSheet(folder / "more/wide.png", 13, 5, 60, 56);
    Write(folder / "more/wide.deck", "name Wide\n");
    klondike::Setup setup = SetupOf(DealWithColumnMove(1));
    setup.decks.folders = {(folder / "more").string()};
    Start(std::move(setup));
    Key(SDLK_c);
    Key(SDLK_DOWN);
    Key(SDLK_RETURN);
    Key(SDLK_ESCAPE);
    UntilQuiet();
    const cardkit::CardSize card = program->View().Cards().Size();
    EXPECT_GT(card.width, card.height);
    ExpectRight();
    // A deck that has gone is no reason not to play.
    setup = SetupOf(DealWithColumnMove(1));
    setup.settings.deckName = "Wide";
    setup.settings.autoMove = false;
    Start(std::move(setup));
    EXPECT_EQ(Screen() == before, true);
}
