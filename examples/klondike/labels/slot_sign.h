// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/labels/table_picture.h"

#include <cairo.h>

namespace klondike
{

/// Fills, in the context's colour, the sign of a slot: its middle at (x, y), at most so large on each side. None draws
/// nothing.
void DrawSlotSign(cairo_t* cairo, SlotSign sign, double x, double y, double size);

} // namespace klondike
