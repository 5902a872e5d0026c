// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "host/rgba.h"

#include <cstdint>

namespace orvane
{

/// The product of two bytes taken as fractions of 255, rounded to nearest.
inline std::uint32_t MultiplyBytes(std::uint32_t a, std::uint32_t b)
{
    const std::uint32_t product = a * b + 128U;
    return (product + (product >> 8)) >> 8;
}

/// A straight-alpha colour as a pixel of a bitmap: premultiplied, alpha in the highest byte, blue in the lowest.
inline std::uint32_t PremultipliedPixel(const Rgba& colour)
{
    const std::uint32_t alpha = colour.a;
    return (alpha << 24) | (MultiplyBytes(colour.r, alpha) << 16) | (MultiplyBytes(colour.g, alpha) << 8) |
           MultiplyBytes(colour.b, alpha);
}

/// The pixels of a bitmap as words; null when it is empty.
inline const std::uint32_t* Pixels(const Bitmap& bitmap)
{
    return reinterpret_cast<const std::uint32_t*>(bitmap.Buffer());
}

/// The same for writing; counts as a change of the picture.
inline std::uint32_t* Pixels(Bitmap& bitmap)
{
    return reinterpret_cast<std::uint32_t*>(bitmap.Buffer());
}

} // namespace orvane
