// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/table_picture.h"

#include "examples/common/felt.h"
#include "examples/klondike/labels/shapes.h"
#include "examples/klondike/labels/slot_sign.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace klondike
{

namespace
{

constexpr Rgba kPressedTop{0, 12, 6, 84};
constexpr Rgba kPressedBottom{0, 20, 10, 40};
constexpr Rgba kLine{222, 255, 232, 92};
constexpr Rgba kSign{222, 255, 232, 50};

/// True for a slot with pixels on the table, of a size that the drawing library's numbers hold.
bool IsOnTable(const Bitmap& table, const render::Rectangle<int>& place)
{
    const std::int64_t right = std::int64_t{place.x} + place.width;
    const std::int64_t bottom = std::int64_t{place.y} + place.height;
    const bool hasSize =
        place.width > 0 && place.height > 0 && place.width <= Bitmap::kMaxSide && place.height <= Bitmap::kMaxSide;
    return hasSize && place.x < table.Width() && place.y < table.Height() && right > 0 && bottom > 0;
}

/// A place pressed into the felt, with an inlaid line; nothing outside it is touched.
void DrawSlot(cairo_t* cairo, const TableSlot& slot)
{
    constexpr double kRadius = 0.06;   // of the width, about that of a card's corners
    constexpr double kSignSize = 0.44; // of the shorter side
    const CairoState state(cairo);
    const RoundedBox box{static_cast<double>(slot.place.x), static_cast<double>(slot.place.y),
                         static_cast<double>(slot.place.width), static_cast<double>(slot.place.height),
                         kRadius * slot.place.width};
    cairo_rectangle(cairo, box.x, box.y, box.width, box.height);
    cairo_clip(cairo);
    FillDown(cairo, box, kPressedTop, kPressedBottom);
    StrokeInside(cairo, box, std::max(1.0, std::round(box.width / 80.0)), kLine);
    SetColour(cairo, kSign);
    DrawSlotSign(cairo, slot.sign, box.x + box.width / 2.0, box.y + box.height / 2.0,
                 kSignSize * std::min(box.width, box.height));
}

} // namespace

OwnedBitmap MakeTablePicture(int width, int height, const std::vector<TableSlot>& slots)
{
    OwnedBitmap table(BitmapManager::Instance().Create(width, height));
    if (table == nullptr || table->Buffer() == nullptr) {
        return table;
    }
    common::PaintFelt(*table, {0, 0, table->Width(), table->Height()});
    const CairoContext cairo = DrawingOn(*table);
    for (const TableSlot& slot : slots) {
        if (IsOnTable(*table, slot.place)) {
            DrawSlot(cairo.get(), slot);
        }
    }
    return table;
}

void RepaintSlot(Bitmap& table, const TableSlot& slot)
{
    if (IsOnTable(table, slot.place)) {
        common::PaintFelt(table, slot.place);
        DrawSlot(DrawingOn(table).get(), slot);
    }
}

} // namespace klondike
