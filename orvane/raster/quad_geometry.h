// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/signed_area.h"

#include <array>
#include <cstdint>

namespace orvane::raster
{

/// A corner, in half pixels.
struct Corner {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

using Quad = std::array<Corner, 4>;

/// Smallest and largest coordinates of the corners, both inclusive, in half pixels.
struct CornerBounds {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

CornerBounds BoundsOf(const Quad& quad);

/// A pixel of the target from which a quadrilateral is worked out, so that its picture is the same wherever it lies.
struct Origin {
    int x;
    int y;
};

/// The pixel at the upper left of the corners; (0, 0) where corners can't be told from there in 32 bits.
Origin OriginOf(const CornerBounds& bounds);
Quad MovedTo(const Quad& quad, const Origin& origin);

/// Twice the signed area of the triangle a, b, c; positive when it runs clockwise on the screen (y down). Exact.
SignedArea TwiceArea(Corner a, Corner b, Corner c);

/// Twice the signed area of the quadrilateral, with the sign of TwiceArea. Exact; for a folded one the lobes count
/// against each other.
SignedArea TwiceArea(const Quad& quad);

/// True when every corner turns strictly clockwise: then, and only then, the projective map of a rectangle onto the
/// corners has no pole inside.
bool IsStrictlyConvex(const Quad& quad);

/// True when the point lies on an edge or is wound around by the edges, in either direction. Exact.
bool Contains(const Quad& quad, Corner point);

} // namespace orvane::raster
