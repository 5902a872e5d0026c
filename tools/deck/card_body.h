// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

namespace deck
{

/// The bare card: paper within a thin edge line, round corners, nothing outside.
void DrawCardBody(Canvas& canvas);

/// The path of the paper within the edge line, made smaller by an inset in card units.
Canvas& PaperPath(Canvas& canvas, double inset);

/// Turns the canvas by half a turn about the card's centre.
void HalfTurn(Canvas& canvas);

} // namespace deck
