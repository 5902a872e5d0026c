// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/game.h"

#include "examples/klondike/rules/deal.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace klondike
{

namespace
{

constexpr std::int64_t kVegasStake = 52;
constexpr std::uint32_t kFreeRecyclesOfThree = 3;

bool FitsFoundation(const Card& card, const std::vector<Card>& pile)
{
    return pile.empty() ? card.rank == 1 : card.suit == pile.back().suit && card.rank == pile.back().rank + 1;
}

bool FitsTableau(const Card& card, const std::vector<Card>& pile)
{
    return pile.empty()
               ? card.rank == 13
               : pile.back().faceUp && card.IsRed() != pile.back().IsRed() && card.rank + 1 == pile.back().rank;
}

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

void TurnPile(std::vector<Card>& from, std::vector<Card>& to, std::size_t count, bool faceUp)
{
    for (std::size_t i = 0; i < count; ++i) {
        to.push_back(from.back());
        to.back().faceUp = faceUp;
        from.pop_back();
    }
}

} // namespace

Game::Game(std::uint64_t dealNumber, Options options) : m_dealNumber(dealNumber), m_options(options)
{
    m_now = StartState();
}

Game::State Game::StartState() const
{
    return {Deal(m_dealNumber), m_options.scoring == Scoring::Vegas ? -kVegasStake : 0, 0};
}

bool Game::IsLegal(const Move& move) const
{
    switch (move.kind) {
    case Move::Kind::Cards:
        return IsLegalCards(m_now.piles, move);
    case Move::Kind::Draw:
        return !m_now.piles[kStock].empty();
    case Move::Kind::Recycle:
        return m_now.piles[kStock].empty() && !m_now.piles[kWaste].empty() &&
               (!m_options.redeals || m_now.redealsUsed < *m_options.redeals);
    }
    return false;
}

std::vector<Event> Game::Apply(const Move& move)
{
    if (!IsLegal(move)) {
        return {};
    }
    m_past.push_back(m_now);
    m_future.clear();
    Piles& piles = m_now.piles;
    if (move.kind == Move::Kind::Draw) {
        const std::size_t count = std::min<std::size_t>(m_options.drawThree ? 3 : 1, piles[kStock].size());
        TurnPile(piles[kStock], piles[kWaste], count, true);
        return {{Event::Kind::Moved, kStock, kWaste, count, true}};
    }
    if (move.kind == Move::Kind::Recycle) {
        const std::size_t count = piles[kWaste].size();
        TurnPile(piles[kWaste], piles[kStock], count, false);
        ++m_now.redealsUsed;
        ScoreRecycle();
        return {{Event::Kind::Moved, kWaste, kStock, count, true}};
    }
    std::vector<Card>& from = piles[move.from];
    const auto first = from.end() - static_cast<std::ptrdiff_t>(move.count);
    piles[move.to].insert(piles[move.to].end(), first, from.end());
    from.erase(first, from.end());
    ScoreCards(move);
    std::vector<Event> events{{Event::Kind::Moved, move.from, move.to, move.count, false}};
    if (IsTableau(move.from) && !from.empty() && !from.back().faceUp) {
        from.back().faceUp = true;
        AddPoints(m_options.scoring == Scoring::Standard ? 5 : 0);
        events.push_back({Event::Kind::TurnedOver, move.from, move.from, 1, false});
    }
    return events;
}

void Game::AddPoints(std::int64_t points)
{
    m_now.points += points;
    if (m_options.scoring == Scoring::Standard) {
        m_now.points = std::max<std::int64_t>(m_now.points, 0);
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
        const bool isFree = m_now.redealsUsed <= kFreeRecyclesOfThree;
        AddPoints(!m_options.drawThree ? -100 : isFree ? 0 : -20);
    }
}

bool Game::Undo()
{
    if (m_past.empty()) {
        return false;
    }
    m_future.push_back(std::exchange(m_now, std::move(m_past.back())));
    m_past.pop_back();
    return true;
}

bool Game::Redo()
{
    if (m_future.empty()) {
        return false;
    }
    m_past.push_back(std::exchange(m_now, std::move(m_future.back())));
    m_future.pop_back();
    return true;
}

void Game::Restart()
{
    m_now = StartState();
    m_past.clear();
    m_future.clear();
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
        return m_now.points;
    }
    const std::int64_t played = std::max<std::int64_t>(m_now.points - std::int64_t{2} * (m_seconds / 10), 0);
    return played + (IsWon() && m_seconds >= 30 ? 700000 / m_seconds : 0);
}

bool Game::IsWon() const
{
    return std::all_of(m_now.piles.begin() + kFirstFoundation, m_now.piles.begin() + kFirstTableau,
                       [](const std::vector<Card>& pile) { return pile.size() == 13; });
}

} // namespace klondike
