// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/texel_source.h"

#include <cstdint>
#include <vector>

namespace orvane::raster
{

/// The picture in a smaller size (1 to the source's, on each side): every pixel is the exact mean of the area that it
/// covers, rounded to nearest. Rows follow each other without gaps. Reads every texel once. Throws std::bad_alloc.
std::vector<std::uint32_t> ShrinkByArea(const TexelSource& source, int width, int height);

/// The weight of a pixel itself against its neighbours when it is blurred.
inline constexpr std::uint32_t kBlurWhole = 64;

/// How much of either neighbour, on each axis, belongs to a pixel whose own weight is kBlurWhole. Half of that makes
/// the mean of a square two pixels wide, 0 leaves an axis alone.
struct BlurWeights {
    std::uint32_t horizontal = 0;
    std::uint32_t vertical = 0;

    friend bool operator==(const BlurWeights&, const BlurWeights&) = default;
};

/// The picture with every pixel replaced by the weighted mean of it and its neighbours, good to 1/64 and rounded to
/// nearest, as far as they lie in the picture. Opaque pixels stay opaque, clear ones clear. Rows follow each other
/// without gaps. Throws std::bad_alloc.
std::vector<std::uint32_t> Blurred(const TexelSource& source, const BlurWeights& weights);

} // namespace orvane::raster
