// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "orvane/pixel.h"

#include <cstddef>
#include <cstdint>

namespace orvane::raster
{

/// Premultiplied pixels that are read: a part of a bitmap, or a copy of it. Never empty; not owned.
struct TexelSource {
    const std::uint32_t* pixels = nullptr;
    std::ptrdiff_t stride = 0; ///< from row to row, in pixels
    int width = 0;
    int height = 0;

    const std::uint32_t* Row(int y) const { return pixels + y * stride; }
};

/// A part of a bitmap, in texels.
struct TexelWindow {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const TexelWindow&, const TexelWindow&) = default;
};

/// The window lies inside the bitmap and is not empty. Valid as long as Bitmap::Buffer() is.
inline TexelSource PartOf(const Bitmap& bitmap, const TexelWindow& window)
{
    const std::ptrdiff_t stride = bitmap.Width();
    return {Pixels(bitmap) + window.top * stride + window.left, stride, window.width, window.height};
}

} // namespace orvane::raster
