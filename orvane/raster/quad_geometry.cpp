// SPDX-License-Identifier: MIT
#include "orvane/raster/quad_geometry.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace orvane::raster
{

namespace
{

SignedArea Cross(Corner from, Corner to, Corner otherFrom, Corner otherTo)
{
    const auto difference = [](std::int32_t end, std::int32_t start) { return std::int64_t{end} - start; };
    return SignedArea::Cross(difference(to.x, from.x), difference(to.y, from.y), difference(otherTo.x, otherFrom.x),
                             difference(otherTo.y, otherFrom.y));
}

bool IsOnEdge(Corner from, Corner to, Corner point)
{
    return std::min(from.x, to.x) <= point.x && point.x <= std::max(from.x, to.x) &&
           std::min(from.y, to.y) <= point.y && point.y <= std::max(from.y, to.y) && TwiceArea(from, to, point) == 0;
}

/// How the edge crosses the ray from the point to the right: 1 downwards, -1 upwards, 0 not at all.
int CrossingOf(Corner from, Corner to, Corner point)
{
    if ((from.y <= point.y) == (to.y <= point.y)) {
        return 0;
    }
    const bool downwards = from.y < to.y;
    const bool pointIsLeft = (TwiceArea(from, to, point) > 0) == downwards;
    return pointIsLeft ? (downwards ? 1 : -1) : 0;
}

} // namespace

CornerBounds BoundsOf(const Quad& quad)
{
    const auto [left, right] = std::minmax({quad[0].x, quad[1].x, quad[2].x, quad[3].x});
    const auto [top, bottom] = std::minmax({quad[0].y, quad[1].y, quad[2].y, quad[3].y});
    return {left, top, right, bottom};
}

Origin OriginOf(const CornerBounds& bounds)
{
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    if (std::int64_t{bounds.right} - bounds.left >= most || std::int64_t{bounds.bottom} - bounds.top >= most) {
        return {0, 0};
    }
    return {bounds.left >> 1, bounds.top >> 1};
}

Quad MovedTo(const Quad& quad, const Origin& origin)
{
    Quad moved = quad;
    for (Corner& corner : moved) {
        corner.x -= 2 * origin.x;
        corner.y -= 2 * origin.y;
    }
    return moved;
}

SignedArea TwiceArea(Corner a, Corner b, Corner c)
{
    return Cross(a, b, a, c);
}

SignedArea TwiceArea(const Quad& quad)
{
    return Cross(quad[0], quad[2], quad[1], quad[3]);
}

bool IsStrictlyConvex(const Quad& quad)
{
    return TwiceArea(quad[0], quad[1], quad[2]) > 0 && TwiceArea(quad[1], quad[2], quad[3]) > 0 &&
           TwiceArea(quad[2], quad[3], quad[0]) > 0 && TwiceArea(quad[3], quad[0], quad[1]) > 0;
}

bool Contains(const Quad& quad, Corner point)
{
    int winding = 0;
    for (std::size_t i = 0; i < quad.size(); ++i) {
        const Corner from = quad[i];
        const Corner to = quad[(i + 1) % quad.size()];
        if (IsOnEdge(from, to, point)) {
            return true;
        }
        winding += CrossingOf(from, to, point);
    }
    return winding != 0;
}

} // namespace orvane::raster
