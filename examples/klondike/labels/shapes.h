// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/decks/cairo_handles.h"
#include "host/bitmap.h"
#include "host/rgba.h"

namespace klondike
{

/// A rectangle with rounded corners, pixels or what the context is scaled to.
struct RoundedBox {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
    double radius = 0.0;

    /// Smaller on each side, with corners around the same centres.
    RoundedBox Inset(double distance) const;
};

/// Draws into a bitmap, which must outlive it and keep its size.
CairoContext DrawingOn(Bitmap& bitmap);

void SetColour(cairo_t* cairo, const Rgba& colour);
/// Adds the box to the path. A side below 0 counts as 0, a radius is cut to half of the shorter side.
void AddPath(cairo_t* cairo, const RoundedBox& box);
void Fill(cairo_t* cairo, const RoundedBox& box, const Rgba& colour);
/// Fills from one colour at the top to another at the bottom.
void FillDown(cairo_t* cairo, const RoundedBox& box, const Rgba& top, const Rgba& bottom);
/// A line just inside the box's edge.
void StrokeInside(cairo_t* cairo, const RoundedBox& box, double lineWidth, const Rgba& colour);

} // namespace klondike
