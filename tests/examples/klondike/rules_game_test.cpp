// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/game.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace
{

using namespace klondike;

std::vector<Move> LegalMoves(const Game& game)
{
    std::vector<Move> moves;
    for (const Move& move : {Move{Move::Kind::Draw}, Move{Move::Kind::Recycle}}) {
        if (game.IsLegal(move)) {
            moves.push_back(move);
        }
    }
    for (std::size_t from = 0; from <= kNumPiles; ++from) {
        for (std::size_t to = 0; to <= kNumPiles; ++to) {
            for (std::size_t count = 0; count <= 14; ++count) {
                const Move move{Move::Kind::Cards, from, to, count};
                if (game.IsLegal(move)) {
                    moves.push_back(move);
                }
            }
        }
    }
    return moves;
}

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

TEST(KlondikeGame, RandomGamesStaySoundAndCanBeTakenBack)
{
    std::mt19937 random(1);
    for (std::uint64_t deal = 0; deal < 300; ++deal) {
        const Options options{deal % 2 == 1, deal % 3 == 0 ? std::optional<std::uint32_t>(2) : std::nullopt,
                              static_cast<Scoring>(deal % 3)};
        Game game(deal, options);
        std::vector<std::pair<Piles, std::int64_t>> seen{{game.Table(), game.Score()}};
        for (int step = 0; step < 150; ++step) {
            const std::vector<Move> moves = LegalMoves(game);
            if (moves.empty()) {
                break;
            }
            ASSERT_FALSE(game.Apply(moves[random() % moves.size()]).empty());
            ASSERT_NO_FATAL_FAILURE(ExpectSound(game.Table()));
            seen.emplace_back(game.Table(), game.Score());
        }
        for (std::size_t i = seen.size() - 1; i-- > 0;) {
            ASSERT_TRUE(game.Undo());
            ASSERT_TRUE(game.Table() == seen[i].first && game.Score() == seen[i].second);
        }
        ASSERT_FALSE(game.Undo());
        while (game.Redo()) {
        }
        ASSERT_TRUE(game.Table() == seen.back().first && game.Score() == seen.back().second);
    }
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
