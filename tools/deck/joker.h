// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

namespace deck
{

/// A jester's picture; the ink tells the two jokers apart.
void DrawJoker(Canvas& canvas, Ink ink);

} // namespace deck
