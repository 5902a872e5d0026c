// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/game.h"

#include "tests/examples/klondike/play_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <set>

namespace
{

using namespace klondike;

void ExpectSound(const Piles& piles)
{
    std::set<int> cards;
    for (std::size_t p = 0; p < kNumPiles; ++p) {
        for (std::size_t i = 0; i < piles[p].size(); ++i) {
            const Card& card = piles[p][i];
            cards.insert(card.rank * 4 + static_cast<int>(card.suit));
            if (IsFoundation(p)) {
                ASSERT_TRUE(card.rank == i + 1 && card.suit == piles[p][0].suit && card.faceUp);
            } else if (!IsTableau(p)) {
                ASSERT_EQ(card.faceUp, p == kWaste);
            } else if (i > 0 && piles[p][i - 1].faceUp) {
                const Card& below = piles[p][i - 1];
                ASSERT_TRUE(card.faceUp && card.rank + 1 == below.rank && card.IsRed() != below.IsRed());
            }
        }
        ASSERT_TRUE(!IsTableau(p) || piles[p].empty() || piles[p].back().faceUp);
    }
    ASSERT_EQ(cards.size(), kNumCards);
}

void ExpectSame(const Game& a, const Game& b)
{
    ASSERT_TRUE(a.Table() == b.Table() && a.Score() == b.Score() && a.RedealsUsed() == b.RedealsUsed());
}

/// Changes what is shown as an event says.
void Show(const Event& event, Piles& shown)
{
    std::vector<Card>& from = shown[event.from];
    if (event.kind == Event::Kind::TurnedOver) {
        from.back().faceUp = true;
        return;
    }
    std::vector<Card> cards(from.end() - static_cast<std::ptrdiff_t>(event.count), from.end());
    from.resize(from.size() - event.count);
    if (event.reversed) {
        std::reverse(cards.begin(), cards.end());
        for (Card& card : cards) {
            card.faceUp = !card.faceUp;
        }
    }
    shown[event.to].insert(shown[event.to].end(), cards.begin(), cards.end());
}

/// The rules once more, written from where each card lies: as a player would tell them.
class Model
{
public:
    explicit Model(const Game& game) : m_options(game.GameOptions()), m_table(game.Table()), m_points(game.Score()) {}

    /// False when the move is not allowed, and nothing done then.
    bool Play(const Move& move)
    {
        if (move.kind == Move::Kind::Draw) {
            return Draw();
        }
        return move.kind == Move::Kind::Recycle ? Recycle() : MoveCards(move);
    }

    void ExpectSameAs(const Game& game) const
    {
        ASSERT_TRUE(game.Table() == m_table);
        const auto home = std::accumulate(
            m_table.begin() + kFirstFoundation, m_table.begin() + kFirstTableau, std::int64_t{0},
            [](std::int64_t sum, const auto& pile) { return sum + static_cast<std::int64_t>(pile.size()); });
        const Scoring scoring = m_options.scoring;
        ASSERT_EQ(game.Score(), scoring == Scoring::Vegas ? 5 * home - 52 : scoring == Scoring::None ? 0 : m_points);
    }

private:
    bool Draw()
    {
        auto& stock = m_table[kStock];
        for (int i = 0; i < (m_options.drawThree ? 3 : 1); ++i) {
            if (stock.empty()) {
                return i > 0;
            }
            stock.back().faceUp = true;
            m_table[kWaste].push_back(stock.back());
            stock.pop_back();
        }
        return true;
    }

    bool Recycle()
    {
        if (!m_table[kStock].empty() || m_table[kWaste].empty() || m_options.redeals == m_recycled) {
            return false;
        }
        m_table[kStock].assign(m_table[kWaste].rbegin(), m_table[kWaste].rend());
        for (Card& card : m_table[kStock]) {
            card.faceUp = false;
        }
        m_table[kWaste].clear();
        ++m_recycled;
        AddPoints(!m_options.drawThree ? -100 : m_recycled > 3 ? -20 : 0);
        return true;
    }

    bool MoveCards(const Move& move)
    {
        if (move.from < 1 || move.from > 12 || move.to < 2 || move.to > 12 || move.from == move.to) {
            return false;
        }
        std::vector<Card>& from = m_table[move.from];
        std::vector<Card>& to = m_table[move.to];
        const bool fromColumn = move.from >= 6;
        const bool toColumn = move.to >= 6;
        if (move.count < 1 || move.count > from.size() || (move.count > 1 && !(fromColumn && toColumn))) {
            return false;
        }
        const Card card = from[from.size() - move.count];
        const int wanted = to.empty() ? (toColumn ? 13 : 1) : to.back().rank + (toColumn ? -1 : 1);
        const auto isRed = [](const Card& c) { return c.suit == Suit::Diamonds || c.suit == Suit::Hearts; };
        const auto fits = [&](const Card& c) {
            return toColumn ? isRed(to.back()) != isRed(c) : to.back().suit == c.suit;
        };
        if (!card.faceUp || card.rank != wanted || (!to.empty() && !fits(card))) {
            return false;
        }
        for (std::size_t i = from.size() - move.count; i < from.size(); ++i) {
            to.push_back(from[i]);
        }
        from.resize(from.size() - move.count);
        if (move.from == 1) {
            AddPoints(toColumn ? 5 : 10);
        } else if (fromColumn != toColumn) {
            AddPoints(toColumn ? -15 : 10);
        }
        if (fromColumn && !from.empty() && !from.back().faceUp) {
            from.back().faceUp = true;
            AddPoints(5);
        }
        return true;
    }

    void AddPoints(std::int64_t points) { m_points = std::max<std::int64_t>(0, m_points + points); }

    Options m_options;
    Piles m_table;
    std::int64_t m_points;
    std::uint32_t m_recycled = 0;
};
/// A move of any kind, mostly against the rules, or one of the legal ones.
Move AnyMove(const Game& game, std::mt19937& random)
{
    const std::vector<Move> legal = LegalMoves(game);
    if (random() % 2 == 0 && !legal.empty()) {
        return legal[random() % legal.size()];
    }
    const auto kind = static_cast<Move::Kind>(random() % 8 == 0 ? random() % 3 : 0);
    return {kind, random() % 14, random() % 14, random() % 8 == 0 ? random() : random() % 5};
}

TEST(KlondikeGame, FollowsTheRulesAndCanBeTakenBack)
{
    std::mt19937 random(1);
    for (std::uint64_t deal = 0; deal < 300; ++deal) {
        const Options options{deal % 2 == 1, deal % 3 == 0 ? std::optional<std::uint32_t>(2) : std::nullopt,
                              static_cast<Scoring>(deal / 3 % 3)};
        Game game(deal, options);
        Model model(game);
        std::vector<Game> seen{game};
        for (int step = 0; step < 200; ++step) {
            const Move move = AnyMove(game, random);
            const bool played = model.Play(move);
            ASSERT_EQ(game.IsLegal(move), played);
            ASSERT_EQ(game.Apply(move).empty(), !played);
            ASSERT_NO_FATAL_FAILURE(model.ExpectSameAs(game));
            ASSERT_NO_FATAL_FAILURE(ExpectSound(game.Table()));
            if (played) {
                seen.push_back(game);
            }
        }
        const std::vector<Move> played = game.Played();
        for (std::size_t i = seen.size() - 1; i-- > 0;) {
            ASSERT_TRUE(game.Undo());
            ASSERT_NO_FATAL_FAILURE(ExpectSame(game, seen[i]));
        }
        ASSERT_FALSE(game.Undo());
        while (game.Redo()) {
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSame(game, seen.back()));
        ASSERT_TRUE(game.Played() == played && game.Undone().empty());
    }
}

TEST(KlondikeGame, EventsTellWhatAMoveDid)
{
    std::mt19937 random(2);
    for (std::uint64_t deal = 0; deal < 100; ++deal) {
        Game game(deal, {deal % 2 == 1, std::nullopt, Scoring::Standard});
        Piles shown = game.Table();
        for (int step = 0; step < 100; ++step) {
            for (const Event& event : game.Apply(AnyMove(game, random))) {
                Show(event, shown);
            }
            ASSERT_TRUE(shown == game.Table());
        }
    }
}

TEST(KlondikeGame, ANewMoveForgetsWhatCouldBeRedone)
{
    Game game(7, {});
    game.Apply({Move::Kind::Draw});
    game.Apply({Move::Kind::Draw});
    game.Undo();
    EXPECT_TRUE(game.Apply({Move::Kind::Recycle}).empty());
    EXPECT_EQ(game.Undone().size(), 1U);
    game.Apply(game.Undone().back());
    EXPECT_FALSE(game.Redo());
    EXPECT_EQ(game.Played().size(), 2U);
    game.Restart();
    EXPECT_FALSE(game.Undo() || game.Redo());
    ExpectSame(game, Game(7, {}));
}

TEST(KlondikeGame, EndsAtTheLastMove)
{
    Game game(7, {});
    while (!game.Apply({game.Table()[kStock].empty() ? Move::Kind::Recycle : Move::Kind::Draw}).empty()) {
    }
    EXPECT_EQ(game.Played().size(), kMostMoves);
    EXPECT_TRUE(LegalMoves(game).empty());
    EXPECT_TRUE(game.Undo() && !LegalMoves(game).empty() && game.Redo());
}

TEST(KlondikeGame, TimeCostsPointsAndPaysForAFastGame)
{
    Game won = WonGame({false, std::nullopt, Scoring::Standard});
    std::int64_t points = won.Score();
    EXPECT_GT(points, 0);
    struct Case {
        std::uint32_t seconds;
        std::int64_t score;
    };
    won.Undo();
    ASSERT_FALSE(won.IsWon());
    points = won.Score();
    for (const auto& [seconds, score] : {Case{9, points + 10},
                                         {10, points + 10 - 2},
                                         {29, points + 10 - 4},
                                         {30, points + 10 - 6 + 23333},
                                         {700, points + 10 - 140 + 1000}}) {
        Game game = won;
        game.AddSeconds(seconds);
        EXPECT_EQ(game.Score(), std::max<std::int64_t>(0, points - 2 * (seconds / 10)));
        game.Redo();
        EXPECT_EQ(game.Score(), score) << seconds;
        game.AddSeconds(1000);
        EXPECT_EQ(game.Score(), score) << "time stands still once the game is won";
    }
    Game late(1, {});
    late.AddSeconds(4000000000U);
    late.AddSeconds(4000000000U);
    EXPECT_EQ(late.Seconds(), 4294967295U);
    EXPECT_EQ(late.Score(), 0);
    Game vegas = WonGame({false, std::nullopt, Scoring::Vegas});
    vegas.AddSeconds(100);
    EXPECT_EQ(vegas.Score(), 208);
}

TEST(KlondikeGame, RedealsAreLimited)
{
    Game game(7, {true, 1, Scoring::Vegas});
    EXPECT_EQ(game.Score(), -52);
    for (int pass = 0; pass < 2; ++pass) {
        for (int draw = 0; draw < 8; ++draw) {
            EXPECT_FALSE(game.Apply({Move::Kind::Draw}).empty());
        }
        EXPECT_TRUE(game.Apply({Move::Kind::Draw}).empty());
        EXPECT_EQ(game.Apply({Move::Kind::Recycle}).empty(), pass == 1);
    }
}

} // namespace
