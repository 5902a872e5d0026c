// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

namespace deck
{

inline constexpr int kSheetColumns = 13;
inline constexpr int kSheetRows = 5;

/// Pixels of one card. Its drawing is stretched when the sides are not as 5 to 7.
struct CardSize {
    int width = 240;
    int height = 336;
};

/// All faces on a grid without gaps: ace to king in the columns, clubs, diamonds, hearts, spades in the rows, then the
/// black and the red joker. Every card is drawn by itself, so nothing reaches into its neighbour. Throws
/// std::runtime_error for a size that the drawing library refuses.
Canvas DrawFaceSheet(CardSize size);

/// The back, exactly symmetric under a half turn.
Canvas DrawBack(CardSize size);

} // namespace deck
