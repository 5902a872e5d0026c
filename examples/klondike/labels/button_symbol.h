// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/labels/button_face.h"
#include "host/rgba.h"

#include <cairo.h>

namespace klondike
{

/// Draws a sign into a square with that top-left corner, pixels. None draws nothing.
void DrawSymbol(cairo_t* cairo, ButtonSymbol symbol, double x, double y, double side, const Rgba& colour);

} // namespace klondike
