// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/advice.h"

#include "tests/examples/klondike/play_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <set>
#include <utility>

namespace
{

using namespace klondike;

std::size_t Count(const Piles& piles, std::size_t first, std::size_t end, bool faceUp)
{
    std::size_t count = 0;
    for (std::size_t pile = first; pile < end; ++pile) {
        count += static_cast<std::size_t>(std::count_if(piles[pile].begin(), piles[pile].end(),
                                                        [=](const Card& card) { return card.faceUp == faceUp; }));
    }
    return count;
}

/// What no move takes back: cards gone from stock and waste, cards turned over.
std::size_t Gone(const Game& game)
{
    const Piles& piles = game.Table();
    return 100 - piles[kStock].size() - piles[kWaste].size() - Count(piles, kFirstTableau, kNumPiles, false);
}

std::size_t Home(const Game& game)
{
    return Count(game.Table(), kFirstFoundation, kFirstTableau, true);
}

enum class Search { Progress, None, TooLarge };

/// Tries every legal move of every position, drawing and recycling among them.
Search TryEverything(const Game& start, std::size_t mostHome)
{
    const auto key = [](const Game& game) {
        std::string text;
        for (const std::vector<Card>& pile : game.Table()) {
            for (const Card& card : pile) {
                text += static_cast<char>(card.rank * 4 + static_cast<int>(card.suit));
            }
            text += '|';
        }
        return text + std::to_string(game.RedealsUsed());
    };
    std::set<std::string> seen{key(start)};
    for (std::deque<Game> open{start}; !open.empty(); open.pop_front()) {
        for (const Move& move : LegalMoves(open.front())) {
            Game next = open.front();
            next.Apply(move);
            if (Gone(next) > Gone(start) || Home(next) > mostHome) {
                return Search::Progress;
            }
            if (seen.insert(key(next)).second) {
                open.push_back(next);
            }
        }
        if (seen.size() > 800) {
            return Search::TooLarge;
        }
    }
    return Search::None;
}

/// Random games, whose cards soon lie badly, and games well played as far as they go.
TEST(KlondikeAdvice, StuckIsWhatTryingEverythingFinds)
{
    std::mt19937 random(5);
    int found[3] = {};
    for (std::uint64_t deal = 0; deal < 100; ++deal) {
        const Options options{deal % 2 == 0, static_cast<std::uint32_t>(deal % 3), Scoring::None};
        const bool followsHints = deal % 4 < 2;
        Game game(deal, options);
        std::size_t mostHome = 0;
        bool goesOn = true;
        for (int step = 1; step <= 250 && goesOn; ++step) {
            const std::vector<Move> moves = followsHints ? Hints(game) : LegalMoves(game);
            goesOn = !moves.empty() && !game.IsWon();
            if (step % 25 == 0 || (!goesOn && !game.IsWon()) ||
                (followsHints && goesOn && IsFoundation(moves[0].from))) {
                const Search all = TryEverything(game, mostHome);
                ++found[static_cast<int>(all)];
                ASSERT_TRUE(all == Search::TooLarge || IsStuck(game) == (all == Search::None)) << deal << " " << step;
            }
            if (goesOn) {
                game.Apply(moves[followsHints ? 0 : random() % moves.size()]);
                mostHome = std::max(mostHome, Home(game));
            }
        }
    }
    EXPECT_TRUE(found[0] > 100 && found[1] > 100 && found[2] < 40) << found[0] << " " << found[1] << " " << found[2];
}

/// The rule for cards that can go home without regret, card by card.
bool IsSafe(const Game& game, const Card& card)
{
    int reached = 0;
    for (std::size_t pile = kFirstFoundation; pile < kFirstTableau; ++pile) {
        for (const Card& home : game.Table()[pile]) {
            reached += home.rank == card.rank - 1 && home.IsRed() != card.IsRed();
        }
    }
    return card.rank < 3 || reached == 2;
}

bool OnlyMovesColumn(const Game& game, const Move& move)
{
    const Piles& piles = game.Table();
    return IsTableau(move.from) && IsTableau(move.to) && piles[move.from].size() == move.count &&
           piles[move.to].empty();
}

/// Every move that takes a card from the waste or turns one over is a hint; empty piles are all the same.
void ExpectAllProgress(const Game& game, const std::vector<Move>& hints)
{
    for (const Move& move : LegalMoves(game)) {
        Game next = game;
        next.Apply(move);
        const auto isSame = [&](const Move& hint) {
            const bool bothEmpty = game.Table()[move.to].empty() && game.Table()[hint.to].empty();
            return hint.from == move.from && hint.count == move.count && (hint.to == move.to || bothEmpty);
        };
        ASSERT_TRUE(Gone(next) == Gone(game) || std::any_of(hints.begin(), hints.end(), isSame));
    }
}

void ExpectGoodHints(const Game& game)
{
    const std::vector<Move> hints = Hints(game);
    ASSERT_NO_FATAL_FAILURE(ExpectAllProgress(game, hints));
    ASSERT_EQ(hints.empty(), game.IsWon() || IsStuck(game));
    for (std::size_t i = 0; i < hints.size(); ++i) {
        const Move& move = hints[i];
        ASSERT_TRUE(game.IsLegal(move));
        if (move.kind != Move::Kind::Cards) {
            ASSERT_EQ(i + 1, hints.size());
            continue;
        }
        ASSERT_FALSE(OnlyMovesColumn(game, move));
        ASSERT_TRUE(!IsFoundation(move.from) || (i == 0 && hints.size() <= 2));
    }
}

void ExpectGoodMoves(const Game& game)
{
    std::size_t safe = 0;
    for (std::size_t pile = 0; pile <= kNumPiles; ++pile) {
        const std::optional<Move> home = SendHome(game, pile);
        ASSERT_TRUE(!home || (game.IsLegal(*home) && IsFoundation(home->to) && home->from == pile));
        safe += home && IsSafe(game, game.Table()[pile].back());
        for (std::size_t count = 0; count < 15; ++count) {
            const std::optional<Move> best = BestMove(game, pile, count);
            ASSERT_TRUE(!best || (game.IsLegal(*best) && best->from == pile && best->count == count));
            ASSERT_TRUE(count != 1 || !home || best == home);
            ASSERT_FALSE(best && OnlyMovesColumn(game, *best));
        }
    }
    const std::optional<Move> automatic = SafeAutoMove(game);
    ASSERT_EQ(automatic.has_value(), safe > 0);
    ASSERT_TRUE(!automatic || IsSafe(game, game.Table()[automatic->from].back()));
}

TEST(KlondikeAdvice, FitsEveryPosition)
{
    std::mt19937 random(6);
    for (std::uint64_t deal = 0; deal < 150; ++deal) {
        const Options options{deal % 2 == 0, deal % 3 == 0 ? std::nullopt : std::optional(1U), Scoring::None};
        for (const int moves : {0, 20, 60, 200}) {
            const Game game = RandomGame(deal, options, moves, random);
            ASSERT_NO_FATAL_FAILURE(ExpectGoodHints(game)) << deal << " " << moves;
            ASSERT_NO_FATAL_FAILURE(ExpectGoodMoves(game)) << deal << " " << moves;
        }
        for (const std::size_t moves : {70U, 90U, 110U}) {
            const Game game = HintedGame(deal, options, moves);
            ASSERT_NO_FATAL_FAILURE(ExpectGoodHints(game)) << deal << " hinted " << moves;
            ASSERT_NO_FATAL_FAILURE(ExpectGoodMoves(game)) << deal << " hinted " << moves;
        }
    }
}

TEST(KlondikeAdvice, FinishesOnceAllCardsLieOpen)
{
    for (const bool drawThree : {false, true}) {
        Game game = WonGame({drawThree, std::nullopt, Scoring::None});
        EXPECT_TRUE(Hints(game).empty() && !IsStuck(game) && !CanFinish(game));
        std::size_t hidden = 0;
        std::size_t finishes = 0;
        while (game.Undo() && hidden == 0) {
            const Piles& piles = game.Table();
            hidden = piles[kStock].size() + piles[kWaste].size() + Count(piles, kFirstTableau, kNumPiles, false);
            ASSERT_EQ(CanFinish(game), hidden == 0);
            Game finished = game;
            std::uint8_t lowest = 1;
            while (const std::optional<Move> move = FinishMove(finished)) {
                const std::uint8_t rank = finished.Table()[move->from].back().rank;
                ASSERT_GE(rank, std::exchange(lowest, rank));
                ASSERT_FALSE(finished.Apply(*move).empty());
            }
            ASSERT_EQ(finished.IsWon(), hidden == 0);
            finishes += hidden == 0;
        }
        EXPECT_GT(finishes, 10U);
    }
}

} // namespace
