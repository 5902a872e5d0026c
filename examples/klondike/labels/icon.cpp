// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/icon.h"

#include "examples/klondike/labels/shapes.h"
#include "examples/klondike/labels/slot_sign.h"

#include <numbers>

namespace klondike
{

OwnedBitmap MakeIcon(int side)
{
    if (side < 1 || side > Bitmap::kMaxSide) {
        return nullptr;
    }
    OwnedBitmap icon(BitmapManager::Instance().Create(side, side));
    {
        const CairoContext cairo = DrawingOn(*icon);
        cairo_scale(cairo.get(), side, side);
        FillDown(cairo.get(), {0.02, 0.02, 0.96, 0.96, 0.2}, {46, 140, 92, 255}, {16, 84, 52, 255});
        cairo_translate(cairo.get(), 0.5, 0.5);
        cairo_rotate(cairo.get(), std::numbers::pi / 20.0);
        Fill(cairo.get(), {-0.24, -0.33, 0.52, 0.7, 0.06}, {0, 0, 0, 70});
        Fill(cairo.get(), {-0.26, -0.35, 0.52, 0.7, 0.06}, {252, 252, 248, 255});
        SetColour(cairo.get(), {20, 24, 30, 255});
        DrawSlotSign(cairo.get(), SlotSign::Spades, 0.0, 0.0, 0.38);
    }
    icon->Changed();
    return icon;
}

} // namespace klondike
