// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

namespace deck
{

/// The framed panel of the pictured cards: as large as the card allows, with a notch at each index corner; symmetric
/// under a half turn.
Canvas& PanelPath(Canvas& canvas);

/// The panel's ground.
void DrawPanelGround(Canvas& canvas);

/// Pale rays from behind a head, over all that is not clipped.
void DrawRays(Canvas& canvas, double x, double y);

void DrawPanelFrame(Canvas& canvas, Ink ink);

} // namespace deck
