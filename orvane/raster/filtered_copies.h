// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/area_filter.h"
#include "orvane/raster/texel_source.h"

#include <cstddef>
#include <optional>

class Bitmap;

namespace orvane::raster
{

/// The pixels that all copies of the process take at most, in bytes. The copies used longest ago go first. Room for
/// what 52 pictures of 240 x 336 need that tumble in every direction (109 MB): less would drop copies just before they
/// are needed again.
inline constexpr std::size_t kFilteredCopyBudget = std::size_t{128} << 20;

/// Which copy of a bitmap.
struct CopyRequest {
    TexelWindow window; ///< the part of the bitmap, which lies inside it
    int width = 0;      ///< the size of the copy: 1 to the window's, on each axis
    int height = 0;
    BlurWeights blur; ///< how far the means reach beyond the copy's own texels

    friend bool operator==(const CopyRequest&, const CopyRequest&) = default;
};

/// A part of a bitmap, filtered by area to the same or a smaller size. Made on first need and kept until the bitmap's
/// revision moves, the bitmap is forgotten, or the budget is used up. Null when there is no memory for it or when it
/// alone would exceed the budget: the caller then reads the bitmap itself. The pixels are valid until the next call.
/// Making a copy reads every texel of the part once; finding it again costs one look-up and allocates nothing.
std::optional<TexelSource> FilteredCopy(const Bitmap& bitmap, const CopyRequest& request);

/// Frees all copies of a bitmap. Called when the bitmap is destroyed.
void ForgetFilteredCopies(const Bitmap* bitmap) noexcept;

} // namespace orvane::raster
