// SPDX-License-Identifier: MIT
#include "examples/deal/table_picture.h"

#include "examples/common/felt.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace deal
{

namespace
{

/// How far a point lies outside a rectangle with rounded corners, pixels; negative inside.
double DistanceTo(const render::Rectangle<int>& box, double radius, double x, double y)
{
    const double dx = std::abs(x - (box.x + box.width / 2.0)) - (box.width / 2.0 - radius);
    const double dy = std::abs(y - (box.y + box.height / 2.0)) - (box.height / 2.0 - radius);
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) - radius;
}

/// A slot's light at a distance from its edge: an inlaid line, and a slightly pressed surface inside it.
double SlotShade(double distance, double lineWidth)
{
    constexpr double kPressed = -0.10;
    constexpr double kLine = 0.30;
    const double line = std::clamp(lineWidth / 2.0 + 0.5 - std::abs(distance + lineWidth / 2.0), 0.0, 1.0);
    const double inside = std::clamp(0.5 - distance, 0.0, 1.0);
    return kLine * line + kPressed * inside * (1.0 - line);
}

std::uint8_t Lit(std::uint8_t channel, double shade)
{
    return static_cast<std::uint8_t>(std::clamp(channel * (1.0 + shade) + 0.5, 0.0, 255.0));
}

void DrawSlot(Bitmap& table, const render::Rectangle<int>& slot)
{
    constexpr double kRadius = 0.06; // of a slot's width, about that of a card's corners
    const double lineWidth = std::max(1.0, table.Height() / 480.0);
    std::uint8_t* const pixels = table.Buffer();
    for (int y = std::max(slot.y - 1, 0); y < std::min(slot.y + slot.height + 1, table.Height()); ++y) {
        for (int x = std::max(slot.x - 1, 0); x < std::min(slot.x + slot.width + 1, table.Width()); ++x) {
            const double shade = SlotShade(DistanceTo(slot, kRadius * slot.width, x + 0.5, y + 0.5), lineWidth);
            std::uint8_t* const pixel = pixels + (std::ptrdiff_t{y} * table.Width() + x) * 4;
            std::transform(pixel, pixel + 3, pixel, [shade](std::uint8_t channel) { return Lit(channel, shade); });
        }
    }
}

} // namespace

OwnedBitmap MakeTablePicture(int width, int height, const std::vector<render::Rectangle<int>>& slots)
{
    OwnedBitmap table(BitmapManager::Instance().Create(width, height));
    common::PaintFelt(*table, {0, 0, width, height});
    for (const render::Rectangle<int>& slot : slots) {
        DrawSlot(*table, slot);
    }
    return table;
}

} // namespace deal
