// SPDX-License-Identifier: MIT
#pragma once

namespace klondike
{

/// Pixels of a card.
struct CardSize {
    int width = 0;
    int height = 0;
};

/// The smallest and largest side of a card, pixels.
inline constexpr int kSmallestCardSide = 8;
inline constexpr int kLargestCardSide = 1200;

/// The largest card of that shape, width by height, that has room; its sides are within the limits. A shape that is no
/// number above 0 gives a card as large as the room.
CardSize FittedCard(CardSize room, double aspect);

} // namespace klondike
