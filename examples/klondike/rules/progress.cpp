// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/progress.h"

#include <algorithm>
#include <deque>
#include <string>
#include <unordered_set>
#include <utility>

namespace klondike
{

namespace
{

std::size_t NumHome(const Piles& piles)
{
    std::size_t count = 0;
    for (std::size_t pile = kFirstFoundation; pile < kFirstTableau; ++pile) {
        count += piles[pile].size();
    }
    return count;
}

/// The most cards the foundations held at any time of this game.
std::size_t MostHome(const Game& game)
{
    std::size_t home = NumHome(game.Table());
    std::size_t most = home;
    for (auto move = game.Played().rbegin(); move != game.Played().rend(); ++move) {
        home += IsFoundation(move->from) ? 1 : 0;
        home -= IsFoundation(move->to) ? 1 : 0;
        most = std::max(most, home);
    }
    return most;
}

std::size_t NumFaceUp(const std::vector<Card>& pile)
{
    return static_cast<std::size_t>(
        std::count_if(pile.begin(), pile.end(), [](const Card& card) { return card.faceUp; }));
}

void AddTargets(const Piles& piles, std::size_t from, std::size_t count, std::vector<Move>& moves)
{
    const Card& lowest = piles[from][piles[from].size() - count];
    const bool mayGoHome = count == 1 && !IsFoundation(from);
    bool triedEmpty = false;
    for (std::size_t to = mayGoHome ? kFirstFoundation : kFirstTableau; to < kNumPiles; ++to) {
        if (to == kFirstTableau) {
            triedEmpty = false;
        }
        if (to == from || (piles[to].empty() && std::exchange(triedEmpty, true))) {
            continue;
        }
        if (IsFoundation(to) ? FitsFoundation(lowest, piles[to]) : FitsTableau(lowest, piles[to])) {
            moves.push_back({Move::Kind::Cards, from, to, count});
        }
    }
}

/// The moves between piles. Of several empty piles only the first is a target: the others give the same position.
std::vector<Move> CardMoves(const Piles& piles, bool withPullBacks)
{
    std::vector<Move> moves;
    for (std::size_t from = kWaste; from < kNumPiles; ++from) {
        if (piles[from].empty() || (IsFoundation(from) && !withPullBacks)) {
            continue;
        }
        const std::size_t most = IsTableau(from) ? NumFaceUp(piles[from]) : 1;
        for (std::size_t count = 1; count <= most; ++count) {
            AddTargets(piles, from, count, moves);
        }
    }
    return moves;
}

bool IsProgress(const Piles& piles, const Move& move, std::size_t mostHome)
{
    const std::vector<Card>& from = piles[move.from];
    const bool turnsOver =
        IsTableau(move.from) && from.size() > move.count && !from[from.size() - move.count - 1].faceUp;
    return move.from == kWaste || turnsOver || (IsFoundation(move.to) && NumHome(piles) + 1 > mostHome);
}

/// The cards that draws and recyclings alone bring to the top of the waste.
std::vector<Card> CardsToCome(Game game)
{
    std::vector<Card> cards;
    const auto addDraws = [&] {
        while (!game.Apply({Move::Kind::Draw}).empty()) {
            cards.push_back(game.Table()[kWaste].back());
        }
    };
    addDraws();
    if (!game.Apply({Move::Kind::Recycle}).empty()) {
        addDraws(); // every later round brings the same
    }
    return cards;
}

class Search
{
public:
    Search(const Game& game, Reach reach) : m_withPullBacks(reach == Reach::PullBacks), m_mostHome(MostHome(game))
    {
        if (reach != Reach::Table) {
            m_toCome = CardsToCome(game);
            m_turnStock.kind = game.Table()[kStock].empty() ? Move::Kind::Recycle : Move::Kind::Draw;
        }
        Piles piles = game.Table();
        piles[kStock].clear();
        Add(piles, std::nullopt);
    }

    ProgressSearch Run()
    {
        for (; !m_open.empty(); m_open.pop_front()) {
            Position& position = m_open.front();
            const std::vector<Move> moves = CardMoves(position.piles, m_withPullBacks);
            for (const Move& move : moves) {
                if (IsProgress(position.piles, move, m_mostHome)) {
                    return {ProgressSearch::Outcome::Found, position.first.value_or(move)};
                }
            }
            if (TakesCardToCome(position.piles)) {
                return {ProgressSearch::Outcome::Found, position.first.value_or(m_turnStock)};
            }
            for (const Move& move : moves) {
                Piles& piles = position.piles;
                MoveTop(piles[move.from], piles[move.to], move.count);
                Add(piles, position.first.value_or(move));
                MoveTop(piles[move.to], piles[move.from], move.count);
            }
            if (m_seen.size() > kMostPositions) {
                return {ProgressSearch::Outcome::Unknown, std::nullopt};
            }
        }
        return {ProgressSearch::Outcome::None, std::nullopt};
    }

private:
    struct Position {
        Piles piles;
        std::optional<Move> first;
    };

    /// A letter a card, none of them 0.
    static char Letter(const Card& card) { return static_cast<char>(card.rank * 4 + static_cast<int>(card.suit)); }
    /// The open cards of the columns, in which alone positions differ before progress: a card that is in none of them
    /// is home. Columns without a hidden card may stand in any order, so the columns are sorted, by their bottom cards.
    /// One with a hidden card is still known by its lowest open card, which stays where it is.
    static std::string Key(const Piles& piles)
    {
        std::array<std::pair<int, const std::vector<Card>*>, kNumTableau> columns;
        std::transform(piles.begin() + kFirstTableau, piles.end(), columns.begin(), [](const std::vector<Card>& pile) {
            return std::pair(pile.empty() ? 0 : Letter(pile.front()), &pile);
        });
        std::sort(columns.begin(), columns.end());
        std::string key;
        key.reserve(kNumCards + kNumTableau);
        for (const auto& column : columns) {
            for (const Card& card : *column.second) {
                if (card.faceUp) {
                    key += Letter(card);
                }
            }
            key += '\0';
        }
        return key;
    }

    void Add(const Piles& piles, const std::optional<Move>& first)
    {
        if (m_seen.insert(Key(piles)).second) {
            m_open.push_back({piles, first});
        }
    }

    bool TakesCardToCome(const Piles& piles) const
    {
        return std::any_of(m_toCome.begin(), m_toCome.end(), [&piles](const Card& card) {
            return std::any_of(piles.begin() + kFirstFoundation, piles.begin() + kFirstTableau,
                               [&card](const auto& pile) { return FitsFoundation(card, pile); }) ||
                   std::any_of(piles.begin() + kFirstTableau, piles.end(),
                               [&card](const auto& pile) { return FitsTableau(card, pile); });
        });
    }

    bool m_withPullBacks;
    std::size_t m_mostHome;
    std::vector<Card> m_toCome;
    Move m_turnStock;
    std::deque<Position> m_open;
    std::unordered_set<std::string> m_seen;
};

} // namespace

std::vector<Move> ProgressMoves(const Game& game)
{
    const std::size_t mostHome = MostHome(game);
    std::vector<Move> moves = CardMoves(game.Table(), false);
    moves.erase(std::remove_if(moves.begin(), moves.end(),
                               [&](const Move& move) { return !IsProgress(game.Table(), move, mostHome); }),
                moves.end());
    return moves;
}

ProgressSearch FindProgress(const Game& game, Reach reach)
{
    return Search(game, reach).Run();
}

} // namespace klondike
