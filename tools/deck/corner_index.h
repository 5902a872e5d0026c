// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"
#include "card.h"

namespace deck
{

/// Rank over suit in the upper left corner, and turned by half a turn in the lower right one.
void DrawIndices(Canvas& canvas, Rank rank, Suit suit);

/// The jokers' index: a star, in the same two corners.
void DrawJokerIndices(Canvas& canvas, Ink ink);

} // namespace deck
