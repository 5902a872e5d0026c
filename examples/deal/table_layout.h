// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"
#include "kit/pile_layout.h"

#include <vector>

namespace deal
{

/// Where everything of a seven-pile patience lies on a screen of some size, pixels: stock, waste and four foundations
/// in a row above seven columns.
class TableLayout
{
public:
    static constexpr int kColumns = 7;
    static constexpr int kFoundations = 4;

    /// The size of the screen and of a card in the sheet; each at least 1.
    TableLayout(int width, int height, int cellWidth, int cellHeight);

    /// The size at which cards are drawn: a plain fraction of the sheet's where one fits, for that is crispest, and
    /// never larger than there.
    cardkit::CardSize Card() const { return {m_cardWidth, m_cardHeight}; }

    cardkit::PileLayout Stock() const;
    cardkit::PileLayout Waste() const;
    cardkit::PileLayout Foundation(int index) const;
    cardkit::PileLayout Column(int index) const;
    /// All of them: stock, waste, foundations, columns.
    std::vector<cardkit::PileLayout> Piles() const;
    /// The places that are marked on the table.
    std::vector<render::Rectangle<int>> Slots() const;

private:
    int Left(int column) const;

    int m_height = 1;
    int m_cardWidth = 1;
    int m_cardHeight = 1;
    int m_gap = 0; ///< between columns
    int m_left = 0;
    int m_top = 0;
    int m_columnTop = 0;
};

} // namespace deal
