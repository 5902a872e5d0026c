// SPDX-License-Identifier: MIT
#include "orvane/opaque_part.h"

#include "host/bitmap.h"
#include "orvane/pixel.h"

#include <cstdint>
#include <functional>
#include <numeric>

namespace orvane
{

namespace
{

bool IsOpaque(std::uint32_t pixel)
{
    return pixel >> 24 == 255U;
}

const std::uint32_t* Row(const Bitmap& picture, int y)
{
    return Pixels(picture) + std::int64_t{y} * picture.Width();
}

/// Looks at all pixels: that takes less than to stop at the first that is see-through, since most rows are opaque.
bool IsOpaque(const std::uint32_t* first, const std::uint32_t* last)
{
    return IsOpaque(std::accumulate(first, last, ~0U, std::bit_and<>()));
}

} // namespace

render::Rectangle<int> FindOpaquePart(const Bitmap& picture)
{
    const int column = picture.Width() / 2;
    int top = picture.Height() / 2;
    if (picture.Width() == 0 || !IsOpaque(Row(picture, top)[column])) {
        return {};
    }
    int left = column;
    int right = column + 1;
    int bottom = top + 1;
    const std::uint32_t* const middle = Row(picture, top);
    while (left > 0 && IsOpaque(middle[left - 1])) {
        --left;
    }
    while (right < picture.Width() && IsOpaque(middle[right])) {
        ++right;
    }
    while (top > 0 && IsOpaque(Row(picture, top - 1) + left, Row(picture, top - 1) + right)) {
        --top;
    }
    while (bottom < picture.Height() && IsOpaque(Row(picture, bottom) + left, Row(picture, bottom) + right)) {
        ++bottom;
    }
    return {left, top, right - left, bottom - top};
}

} // namespace orvane
