// SPDX-License-Identifier: MIT
#include "examples/deal/table_layout.h"

#include <algorithm>
#include <cmath>

namespace deal
{

namespace
{

/// The largest part of the screen that a card may take in each direction.
constexpr double kWidest = 0.106;
constexpr double kTallest = 0.245;

constexpr int kFirstFoundation = 3; // the column above which the foundations start

struct Size {
    int width;
    int height;
};

Size Scaled(int width, int height, double scale)
{
    return {std::max(1, static_cast<int>(std::lround(width * scale))),
            std::max(1, static_cast<int>(std::lround(height * scale)))};
}

Size ChooseCardSize(int width, int height, int cellWidth, int cellHeight)
{
    const double scale = std::min({1.0, width * kWidest / cellWidth, height * kTallest / cellHeight});
    for (const double fraction : {1.0, 3.0 / 4.0, 2.0 / 3.0, 1.0 / 2.0, 1.0 / 3.0, 1.0 / 4.0}) {
        constexpr double kSmallestShare = 0.8; // of the room there is, lest the cards look lost
        if (fraction <= scale && fraction >= scale * kSmallestShare) {
            return Scaled(cellWidth, cellHeight, fraction);
        }
    }
    return Scaled(cellWidth, cellHeight, scale);
}

} // namespace

TableLayout::TableLayout(int width, int height, int cellWidth, int cellHeight)
{
    const Size card = ChooseCardSize(width, height, cellWidth, cellHeight);
    m_cardWidth = card.width;
    m_cardHeight = card.height;
    m_gap = std::min((width - kColumns * card.width) / (kColumns + 1), card.width * 9 / 20);
    m_left = (width - kColumns * card.width - (kColumns - 1) * m_gap) / 2;
    m_height = height;
    m_top = height * 6 / 100;
    m_columnTop = m_top + card.height + height * 6 / 100;
}

int TableLayout::Left(int column) const
{
    return m_left + column * (m_cardWidth + m_gap);
}

cardkit::PileLayout TableLayout::Stock() const
{
    constexpr int kCardsAStep = 6;
    cardkit::PileLayout layout = cardkit::Squared({Left(0), m_top});
    layout.stepUp = layout.stepDown = {-1, -1};
    layout.cardsAStep = kCardsAStep;
    return layout;
}

cardkit::PileLayout TableLayout::Waste() const
{
    const int step = (m_cardWidth + m_gap) / (kColumns - 1);
    return cardkit::FannedRight({Left(1), m_top}, step, m_cardWidth + m_gap);
}

cardkit::PileLayout TableLayout::Foundation(int index) const
{
    return cardkit::Squared({Left(kFirstFoundation + index), m_top});
}

cardkit::PileLayout TableLayout::Column(int index) const
{
    const int step = m_cardHeight * 18 / 100;
    return cardkit::FannedDown({Left(index), m_columnTop}, step, step, m_height - m_columnTop - m_cardHeight);
}

std::vector<cardkit::PileLayout> TableLayout::Piles() const
{
    std::vector<cardkit::PileLayout> piles{Stock(), Waste()};
    for (int i = 0; i < kFoundations; ++i) {
        piles.push_back(Foundation(i));
    }
    for (int i = 0; i < kColumns; ++i) {
        piles.push_back(Column(i));
    }
    return piles;
}

std::vector<render::Rectangle<int>> TableLayout::Slots() const
{
    std::vector<render::Rectangle<int>> slots;
    for (const cardkit::PileLayout& pile : Piles()) {
        slots.push_back({pile.place.x, pile.place.y, m_cardWidth, m_cardHeight});
    }
    return slots;
}

} // namespace deal
