// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/card_size.h"
#include "examples/klondike/decks/deck_catalog.h"

namespace klondike
{

/// The cell of the back on a sheet that has no picture of its own for it: after 52 cards and two jokers.
inline constexpr int kBackCell = 54;

/// The cells of a sheet, from what its files tell without being decoded. Throws DeckError for files that are missing or
/// cut off, and for a grid with too few cells for the cards, or with cells of no size.
CardSize CellSize(const Deck& sheet);

} // namespace klondike
