// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/test_host.h"

#include <vector>

/// All pixels as 0xAARRGGBB, row after row.
inline std::vector<std::uint32_t> PixelsOf(const Bitmap& bitmap)
{
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < bitmap.Height(); ++y) {
        for (int x = 0; x < bitmap.Width(); ++x) {
            pixels.push_back(PixelAt(bitmap, x, y));
        }
    }
    return pixels;
}
