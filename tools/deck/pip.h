// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"
#include "card.h"

#include <string_view>

namespace deck
{

/// The outline of a suit's pip: 100 high, at most 96 wide, centred on the origin, mirror-symmetric, clockwise.
std::string_view PipOutline(Suit suit);

/// A pip upright around its centre.
void DrawPip(Canvas& canvas, Suit suit, double x, double y, double height, Ink ink);

} // namespace deck
