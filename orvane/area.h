// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"

#include <algorithm>
#include <cstdint>

namespace orvane
{

/// A half-open pixel rectangle by its edges, wide enough for the sum of any 32-bit places and sizes.
struct Area {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;

    bool IsEmpty() const { return right <= left || bottom <= top; }
};

inline Area AreaAt(std::int64_t left, std::int64_t top, std::int64_t width, std::int64_t height)
{
    return {left, top, left + width, top + height};
}

inline Area AreaOf(const render::Rectangle<int>& rectangle)
{
    return AreaAt(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
}

inline Area Intersection(const Area& a, const Area& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

inline Area Moved(const Area& area, std::int64_t x, std::int64_t y)
{
    return {area.left + x, area.top + y, area.right + x, area.bottom + y};
}

/// True when all of the part, which is not empty, lies in the area.
inline bool Contains(const Area& area, const Area& part)
{
    return part.left >= area.left && part.top >= area.top && part.right <= area.right && part.bottom <= area.bottom;
}

/// The same rectangle; its edges lie in the range of int, and its sides do.
inline render::Rectangle<int> RectangleOf(const Area& area)
{
    return {static_cast<int>(area.left), static_cast<int>(area.top), static_cast<int>(area.right - area.left),
            static_cast<int>(area.bottom - area.top)};
}

} // namespace orvane
