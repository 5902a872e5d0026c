// SPDX-License-Identifier: MIT
#include "bench/contest/quad.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace contest
{

namespace
{

using Polygon = std::vector<Point>;

/// The part of a polygon on which a linear function of the place is not negative.
template <class Distance> Polygon Cut(const Polygon& polygon, Distance distance)
{
    Polygon kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& from = polygon[i];
        const Point& to = polygon[(i + 1) % polygon.size()];
        const double before = distance(from);
        const double after = distance(to);
        if (before >= 0.0) {
            kept.push_back(from);
        }
        if ((before < 0.0) != (after < 0.0)) {
            const double share = before / (before - after);
            kept.push_back({from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)});
        }
    }
    return kept;
}

double Area(const Polygon& polygon)
{
    double twice = 0.0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& from = polygon[i];
        const Point& to = polygon[(i + 1) % polygon.size()];
        twice += from.x * to.y - to.x * from.y;
    }
    return std::abs(twice) / 2.0;
}

} // namespace

bool IsParallelogram(const Quad& quad)
{
    // The corners are multiples of half a pixel, so that these sums are exact.
    return quad[0].x + quad[2].x == quad[1].x + quad[3].x && quad[0].y + quad[2].y == quad[1].y + quad[3].y;
}

Box PixelBox(const Quad& quad, int width, int height, int margin)
{
    const auto [left, right] = std::minmax({quad[0].x, quad[1].x, quad[2].x, quad[3].x});
    const auto [top, bottom] = std::minmax({quad[0].y, quad[1].y, quad[2].y, quad[3].y});
    return {std::max(static_cast<int>(std::floor(left)) - margin, 0),
            std::max(static_cast<int>(std::floor(top)) - margin, 0),
            std::min(static_cast<int>(std::ceil(right)) + margin, width),
            std::min(static_cast<int>(std::ceil(bottom)) + margin, height)};
}

double AreaInside(const Quad& quad, int width, int height)
{
    Polygon polygon(quad.begin(), quad.end());
    polygon = Cut(polygon, [](const Point& point) { return point.x; });
    polygon = Cut(polygon, [](const Point& point) { return point.y; });
    polygon = Cut(polygon, [width](const Point& point) { return width - point.x; });
    polygon = Cut(polygon, [height](const Point& point) { return height - point.y; });
    return Area(polygon);
}

} // namespace contest
