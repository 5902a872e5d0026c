// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"

namespace klondike
{

/// The game's sign for the system's lists of programs: a card with a spade on green. Pixels; null for a side of less
/// than 1 or above Bitmap::kMaxSide.
OwnedBitmap MakeIcon(int side);

} // namespace klondike
