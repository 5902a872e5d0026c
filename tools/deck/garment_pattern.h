// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

#include <string_view>

namespace deck
{

enum class Pattern { Lozenges, Chevrons, Stripes, Scales, Checks, Studs };

/// An outlined garment filled with a pattern, which is mirror-symmetric about the figure's axis. The outline is path
/// data in the figure's coordinates (see DrawCourtFigure), below y = 96.
void DrawGarment(Canvas& canvas, std::string_view outline, Pattern pattern, Ink ground, Ink figure);

} // namespace deck
