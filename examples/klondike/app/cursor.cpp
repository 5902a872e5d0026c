// SPDX-License-Identifier: MIT
#include "examples/klondike/app/cursor.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace klondike
{

namespace
{

/// How many cards at the top of a pile show their faces.
std::size_t NumFaceUp(const std::vector<Card>& pile)
{
    const auto first = std::find_if(pile.rbegin(), pile.rend(), [](const Card& card) { return !card.faceUp; });
    return static_cast<std::size_t>(first - pile.rbegin());
}

/// The piles of the cursor's row, from left to right.
std::vector<std::size_t> Row(bool lower, const Layout& layout)
{
    std::vector<std::size_t> row;
    for (std::size_t pile = lower ? kFirstTableau : kStock; pile < (lower ? kNumPiles : kFirstTableau); ++pile) {
        row.push_back(pile);
    }
    std::sort(row.begin(), row.end(),
              [&](std::size_t a, std::size_t b) { return layout.piles[a].place.x < layout.piles[b].place.x; });
    return row;
}

std::size_t Nearest(std::size_t pile, const std::vector<std::size_t>& row, const Layout& layout)
{
    const int x = layout.piles[pile].place.x;
    return *std::min_element(row.begin(), row.end(), [&](std::size_t a, std::size_t b) {
        return std::abs(layout.piles[a].place.x - x) < std::abs(layout.piles[b].place.x - x);
    });
}

} // namespace

void Cursor::GoTo(std::size_t pile)
{
    m_pile = std::min(pile, kNumPiles - 1);
    m_count = 1;
}

void Cursor::Step(Direction direction, const Piles& piles, const Layout& layout)
{
    const bool isLower = IsTableau(m_pile);
    if (direction == Direction::Left || direction == Direction::Right) {
        const std::vector<std::size_t> row = Row(isLower, layout);
        const auto here = static_cast<std::size_t>(std::find(row.begin(), row.end(), m_pile) - row.begin());
        GoTo(row[(here + (direction == Direction::Left ? row.size() - 1 : 1)) % row.size()]);
        return;
    }
    const std::size_t most = isLower ? std::max<std::size_t>(NumFaceUp(piles[m_pile]), 1) : 1;
    m_count = std::min(m_count, most);
    if (direction == Direction::Up && m_count < most) {
        ++m_count;
    } else if (direction == Direction::Down && m_count > 1) {
        --m_count;
    } else if ((direction == Direction::Up) == isLower) {
        GoTo(Nearest(m_pile, Row(!isLower, layout), layout));
    }
}

cardkit::Spot Cursor::Place(const Piles& piles) const
{
    const std::vector<Card>& pile = piles[m_pile];
    const std::size_t count = std::min(m_count, IsTableau(m_pile) ? std::max<std::size_t>(NumFaceUp(pile), 1) : 1);
    return {m_pile, pile.empty() ? 0L : static_cast<long>(pile.size() - count + 1)};
}

} // namespace klondike
