// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <vector>

namespace contest
{

/// Pixels of the target; y grows downwards, pixel centres at + 0.5.
struct Point {
    double x = 0.0;
    double y = 0.0;
};

/// Where the corners of a card's picture go: top left, top right, bottom right, bottom left of the picture.
using Quad = std::array<Point, 4>;

/// What a contestant draws at once, in this order. Quad k shows picture k modulo their number.
using Frame = std::vector<Quad>;

/// Whole pixels, right and bottom exclusive.
struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool Empty() const { return left >= right || top >= bottom; }
};

/// True when opposite sides are exactly parallel and equal: an affine map draws it.
bool IsParallelogram(const Quad& quad);

/// The pixels that the quad may touch and a margin around them, cut to the target.
Box PixelBox(const Quad& quad, int width, int height, int margin);

/// The area of the part of the quad that lies in the target, in pixels.
double AreaInside(const Quad& quad, int width, int height);

} // namespace contest
