// SPDX-License-Identifier: MIT
#include "orvane/window/pixel_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane
{

namespace
{

int Scaled(double value, int size, int pixels)
{
    const double place = size > 0 ? std::floor(value * pixels / size) : std::floor(value);
    if (std::isnan(place)) {
        return 0;
    }
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(place, kLeast, kMost));
}

} // namespace

int PixelScale::PixelX(double x) const
{
    return Scaled(x, width, pixelWidth);
}

int PixelScale::PixelY(double y) const
{
    return Scaled(y, height, pixelHeight);
}

} // namespace orvane
