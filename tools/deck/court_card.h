// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"
#include "card.h"

namespace deck
{

/// The framed, double-headed picture of a jack, queen or king.
void DrawCourt(Canvas& canvas, Rank rank, Suit suit);

} // namespace deck
