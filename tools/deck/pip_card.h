// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"
#include "card.h"

namespace deck
{

/// The pips of a card from 2 to 10 in their traditional places, those of the lower half upside down.
void DrawPips(Canvas& canvas, Rank rank, Suit suit);

} // namespace deck
