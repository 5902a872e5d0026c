// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/card_size.h"
#include "examples/klondike/labels/table_picture.h"
#include "host/rectangle.h"
#include "kit/pile_layout.h"
#include "kit/placement.h"

#include <vector>

namespace klondike
{

/// What a layout depends on, besides the size of the window.
struct LayoutWishes {
    double cardAspect = 5.0 / 7.0; ///< width by height
    bool leftHanded = false;       ///< stock and waste on the right
    int wasteApart = 1;            ///< cards of the waste that lie apart
};

/// Where everything lies in a window; all in pixels.
struct Layout {
    int width = 0;
    int height = 0;
    cardkit::CardSize card{};
    std::vector<cardkit::PileLayout> piles;     ///< by the piles' numbers
    render::Rectangle<int> toolBar{0, 0, 0, 0}; ///< along the bottom
    int textPixels = 16;

    /// Equal places; all else follows from the size of the window.
    friend bool operator==(const Layout& a, const Layout& b);
    /// The place of a pile's bottom card.
    render::Rectangle<int> Place(std::size_t pile) const;
    /// The marks of the piles on the table; the stock's is given.
    std::vector<TableSlot> Slots(SlotSign stock) const;
};

/// The most room that a card may take in a window of that size, pixels; at least kSmallestCardSide on each side.
CardSize CardRoom(int width, int height);

/// Lays out a window of any size; in one that is too small for a game the piles overlap, or leave the window.
Layout MakeLayout(int width, int height, const LayoutWishes& wishes);

} // namespace klondike
