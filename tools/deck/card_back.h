// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

namespace deck
{

/// The back's picture on a bare card: a lattice with fans in the corners and a rosette in the middle. No line is so
/// fine, and no cell so small, that it flickers on a card 71 pixels wide.
void DrawBackDesign(Canvas& canvas);

/// Makes the picture the same, pixel for pixel, when it is turned by half a turn: geometry alone does not, since
/// anti-aliasing samples a pixel from one side.
void MakeHalfTurnSymmetric(Canvas& canvas);

} // namespace deck
