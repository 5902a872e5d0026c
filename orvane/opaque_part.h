// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"

class Bitmap;

namespace orvane
{

/// A rectangle of the picture without see-through pixels: as wide as such pixels reach in the middle row, and as high
/// as all rows are opaque there. Of a card with round corners that is all but a strip at the top and at the bottom.
/// Empty when the pixel in the middle is see-through.
render::Rectangle<int> FindOpaquePart(const Bitmap& picture);

} // namespace orvane
