// SPDX-License-Identifier: MIT
#include "orvane/png_file.h"

#include "host/bitmap.h"
#include "host/log.h"
#include "orvane/image_codec.h"
#include "orvane/pixel.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace orvane
{

namespace
{

/// A premultiplied channel as a straight one, rounded to nearest. A colour above its alpha counts as full.
std::uint32_t Straight(std::uint32_t channel, std::uint32_t alpha)
{
    return std::min((channel * 255U + alpha / 2U) / alpha, 255U);
}

std::uint32_t StraightPixel(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0U) {
        return 0U;
    }
    return (alpha << 24) | (Straight((pixel >> 16) & 255U, alpha) << 16) | (Straight((pixel >> 8) & 255U, alpha) << 8) |
           Straight(pixel & 255U, alpha);
}

} // namespace

bool SavePng(const Bitmap& bitmap, const std::string& file)
{
    const Log log("orvane.image");
    try {
        const std::uint32_t* const source = Pixels(bitmap);
        if (source == nullptr) {
            throw ImageError("there is no picture");
        }
        std::vector<std::uint32_t> straight(static_cast<std::size_t>(bitmap.Width()) *
                                            static_cast<std::size_t>(bitmap.Height()));
        std::transform(source, source + straight.size(), straight.begin(), StraightPixel);
        EncodePng(straight, bitmap.Width(), bitmap.Height(), file);
        return true;
    } catch (const ImageError& error) {
        log.Error("cannot write %s: %s", file.c_str(), error.what());
        return false;
    }
}

} // namespace orvane
