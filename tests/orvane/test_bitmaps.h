// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "host/owned_bitmap.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

inline OwnedBitmap MakeBitmap(int width, int height)
{
    return OwnedBitmap(BitmapManager::Instance().Create(width, height));
}

/// The pixels as words: alpha in the highest byte.
inline std::vector<std::uint32_t> PixelsOf(const Bitmap& bitmap)
{
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(bitmap.Width()) *
                                      static_cast<std::size_t>(bitmap.Height()));
    if (!pixels.empty())
        std::memcpy(pixels.data(), bitmap.Buffer(), pixels.size() * 4);
    return pixels;
}

/// A bitmap of random pixels; some are opaque, some clear, and some hold colours above their alpha.
inline OwnedBitmap MakeNoise(int width, int height, std::mt19937& random)
{
    OwnedBitmap bitmap = MakeBitmap(width, height);
    std::vector<std::uint32_t> pixels = PixelsOf(*bitmap);
    for (std::uint32_t& pixel : pixels) {
        pixel = static_cast<std::uint32_t>(random());
        if (random() % 4 == 0)
            pixel = random() % 2 == 0 ? 0 : pixel | 0xFF000000U;
    }
    if (!pixels.empty())
        std::memcpy(bitmap->Buffer(), pixels.data(), pixels.size() * 4);
    return bitmap;
}

/// Noise with an opaque middle; what surrounds it takes up to an eighth of the side everywhere.
inline OwnedBitmap MakeCard(int width, int height, std::mt19937& random)
{
    OwnedBitmap bitmap = MakeNoise(width, height, random);
    const int left = static_cast<int>(random() % (static_cast<unsigned>(width) / 8 + 1));
    const int top = static_cast<int>(random() % (static_cast<unsigned>(height) / 8 + 1));
    const auto blue = static_cast<std::uint8_t>(random());
    bitmap->FillRect({left, top, width - 2 * left, height - 2 * top}, {200, 100, blue, 255});
    return bitmap;
}
