// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"
#include "host/rectangle.h"

#include <vector>

namespace deal
{

/// The picture of a table of that size, pixels: green felt, lit from above its middle, with an outline where each pile
/// has its place. Made once; costs about a hundred nanoseconds a pixel.
OwnedBitmap MakeFelt(int width, int height, const std::vector<render::Rectangle<int>>& slots);

} // namespace deal
