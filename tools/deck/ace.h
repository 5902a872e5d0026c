// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"
#include "card.h"

namespace deck
{

/// The large pip of an ace; that of spades is ornate, as the first card of a deck is by custom.
void DrawAce(Canvas& canvas, Suit suit);

} // namespace deck
