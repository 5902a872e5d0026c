// SPDX-License-Identifier: MIT
#pragma once

#include "host/owned_bitmap.h"
#include "host/rectangle.h"

#include <vector>

namespace klondike
{

/// What a slot shows while no card lies on it.
enum class SlotSign {
    None,
    Clubs,
    Diamonds,
    Hearts,
    Spades,
    Recycle, ///< a round arrow: the waste may be turned over
    NoMore,  ///< a cross: it may not
};

/// The place of a pile: a card's place on the table, pixels. One without a pixel on the table, or with a side above
/// Bitmap::kMaxSide, is not drawn.
struct TableSlot {
    render::Rectangle<int> place;
    SlotSign sign = SlotSign::None;
};

/// The picture of a table of that size, pixels: green felt, lit from above, with a rounded outline for each slot. The
/// same on every run. Opaque. Costs about ten nanoseconds a pixel. Null for a side above Bitmap::kMaxSide, empty for a
/// side of 0 or less.
OwnedBitmap MakeTablePicture(int width, int height, const std::vector<TableSlot>& slots);

/// Paints one slot anew, felt and all, as MakeTablePicture with these slots would: for a sign that changed. The bitmap
/// is a table picture.
void RepaintSlot(Bitmap& table, const TableSlot& slot);

} // namespace klondike
