// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"
#include "host/rectangle.h"

#include <vector>

namespace deal
{

/// The picture of a table of that size, pixels: felt, with an outline where each pile has its place. Made once.
OwnedBitmap MakeTablePicture(int width, int height, const std::vector<render::Rectangle<int>>& slots);

} // namespace deal
