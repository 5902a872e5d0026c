// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/game.h"

#include "examples/klondike/rules/deal.h"

#include <algorithm>
#include <limits>

namespace klondike
{

namespace
{

constexpr std::int64_t kVegasStake = 52;
constexpr std::uint32_t kFreeRecyclesOfThree = 3;

/// The face-up cards of a column always form one run, so a face-up lowest card is enough.
bool IsLegalCards(const Piles& piles, const Move& move)
{
    if (move.from >= kNumPiles || move.to >= kNumPiles || move.from == move.to || move.from == kStock) {
        return false;
    }
    const std::vector<Card>& from = piles[move.from];
    if (move.count == 0 || move.count > from.size() || (move.count > 1 && !IsTableau(move.from))) {
        return false;
    }
    const Card& lowest = from[from.size() - move.count];
    if (!lowest.faceUp) {
        return false;
    }
    if (IsFoundation(move.to)) {
        return move.count == 1 && FitsFoundation(lowest, piles[move.to]);
    }
    return IsTableau(move.to) && FitsTableau(lowest, piles[move.to]);
}

/// The order turns round with the cards.
void TurnTop(std::vector<Card>& from, std::vector<Card>& to, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        to.push_back(from.back());
        to.back().faceUp = !to.back().faceUp;
        from.pop_back();
    }
}

} // namespace

Game::Game(std::uint64_t dealNumber, Options options) : m_dealNumber(dealNumber), m_options(options)
{
    LayOut();
}

void Game::LayOut()
{
    m_piles = Deal(m_dealNumber);
    m_points = m_options.scoring == Scoring::Vegas ? -kVegasStake : 0;
    m_redealsUsed = 0;
}

bool Game::IsLegal(const Move& move) const
{
    if (m_played.size() >= kMostMoves) {
        return false;
    }
    switch (move.kind) {
    case Move::Kind::Cards:
        return IsLegalCards(m_piles, move);
    case Move::Kind::Draw:
        return !m_piles[kStock].empty();
    case Move::Kind::Recycle:
        return m_piles[kStock].empty() && !m_piles[kWaste].empty() &&
               (!m_options.redeals || m_redealsUsed < *m_options.redeals);
    }
    return false;
}

std::vector<Event> Game::Apply(Move move)
{
    if (!IsLegal(move)) {
        return {};
    }
    m_undone.clear();
    return Play(move);
}

std::vector<Event> Game::Play(Move move)
{
    m_before.push_back({m_points, false});
    switch (move.kind) {
    case Move::Kind::Draw: {
        const std::size_t count = std::min<std::size_t>(m_options.drawThree ? 3 : 1, m_piles[kStock].size());
        return TurnPile({Move::Kind::Draw, kStock, kWaste, count});
    }
    case Move::Kind::Recycle:
        ++m_redealsUsed;
        ScoreRecycle();
        return TurnPile({Move::Kind::Recycle, kWaste, kStock, m_piles[kWaste].size()});
    case Move::Kind::Cards:
        break;
    }
    return MoveCards(move);
}

std::vector<Event> Game::TurnPile(const Move& move)
{
    m_played.push_back(move);
    TurnTop(m_piles[move.from], m_piles[move.to], move.count);
    return {{Event::Kind::Moved, move.from, move.to, move.count, true}};
}

std::vector<Event> Game::MoveCards(const Move& move)
{
    m_played.push_back(move);
    std::vector<Card>& from = m_piles[move.from];
    MoveTop(from, m_piles[move.to], move.count);
    ScoreCards(move);
    std::vector<Event> events{{Event::Kind::Moved, move.from, move.to, move.count, false}};
    if (IsTableau(move.from) && !from.empty() && !from.back().faceUp) {
        from.back().faceUp = true;
        m_before.back().turnedOver = true;
        AddPoints(m_options.scoring == Scoring::Standard ? 5 : 0);
        events.push_back({Event::Kind::TurnedOver, move.from, move.from, 1, false});
    }
    return events;
}

void Game::AddPoints(std::int64_t points)
{
    m_points += points;
    if (m_options.scoring == Scoring::Standard) {
        m_points = std::max<std::int64_t>(m_points, 0);
    }
}

void Game::ScoreCards(const Move& move)
{
    const int toFoundation = static_cast<int>(IsFoundation(move.to)) - static_cast<int>(IsFoundation(move.from));
    if (m_options.scoring == Scoring::Vegas) {
        AddPoints(5 * toFoundation);
    } else if (m_options.scoring == Scoring::Standard) {
        AddPoints(toFoundation > 0 ? 10 : toFoundation < 0 ? -15 : move.from == kWaste ? 5 : 0);
    }
}

void Game::ScoreRecycle()
{
    if (m_options.scoring == Scoring::Standard) {
        const bool isFree = m_redealsUsed <= kFreeRecyclesOfThree;
        AddPoints(!m_options.drawThree ? -100 : isFree ? 0 : -20);
    }
}

bool Game::Undo()
{
    if (m_played.empty()) {
        return false;
    }
    const Move& move = m_played.back();
    std::vector<Card>& from = m_piles[move.from];
    if (move.kind == Move::Kind::Cards) {
        if (m_before.back().turnedOver) {
            from.back().faceUp = false;
        }
        MoveTop(m_piles[move.to], from, move.count);
    } else {
        TurnTop(m_piles[move.to], from, move.count);
        m_redealsUsed -= move.kind == Move::Kind::Recycle ? 1 : 0;
    }
    m_points = m_before.back().points;
    m_undone.push_back(move);
    m_played.pop_back();
    m_before.pop_back();
    return true;
}

bool Game::Redo()
{
    if (m_undone.empty()) {
        return false;
    }
    Play(m_undone.back());
    m_undone.pop_back();
    return true;
}

void Game::Restart()
{
    LayOut();
    m_played.clear();
    m_before.clear();
    m_undone.clear();
    m_seconds = 0;
}

void Game::AddSeconds(std::uint32_t seconds)
{
    if (!IsWon()) {
        m_seconds += std::min(seconds, std::numeric_limits<std::uint32_t>::max() - m_seconds);
    }
}

std::int64_t Game::Score() const
{
    if (m_options.scoring != Scoring::Standard) {
        return m_points;
    }
    const std::int64_t played = std::max<std::int64_t>(m_points - std::int64_t{2} * (m_seconds / 10), 0);
    return played + (IsWon() && m_seconds >= 30 ? 700000 / m_seconds : 0);
}

bool Game::IsWon() const
{
    return std::all_of(m_piles.begin() + kFirstFoundation, m_piles.begin() + kFirstTableau,
                       [](const std::vector<Card>& pile) { return pile.size() == 13; });
}

} // namespace klondike
