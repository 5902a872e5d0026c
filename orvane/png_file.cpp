// SPDX-License-Identifier: MIT
#include "orvane/png_file.h"

#include "host/bitmap.h"
#include "host/log.h"
#include "orvane/image_codec.h"
#include "orvane/pixel.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orvane
{

namespace
{

/// A premultiplied channel as a straight one, rounded to nearest. A colour above its alpha counts as full.
std::uint8_t Straight(std::uint32_t channel, std::uint32_t alpha)
{
    return static_cast<std::uint8_t>(std::min((channel * 255U + alpha / 2U) / alpha, 255U));
}

bool IsOpaque(std::uint32_t pixel)
{
    return pixel >> 24 == 255U;
}

/// R, G, B and, with 4 channels, A of each pixel; with straight alpha.
std::vector<std::uint8_t> StraightBytes(std::span<const std::uint32_t> pixels, int channels)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(pixels.size() * static_cast<std::size_t>(channels));
    for (const std::uint32_t pixel : pixels) {
        const std::uint32_t alpha = pixel >> 24;
        for (const int shift : {16, 8, 0}) {
            bytes.push_back(alpha == 0U ? std::uint8_t{0} : Straight((pixel >> shift) & 255U, alpha));
        }
        if (channels == 4) {
            bytes.push_back(static_cast<std::uint8_t>(alpha));
        }
    }
    return bytes;
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
        const std::span pixels(source,
                               static_cast<std::size_t>(bitmap.Width()) * static_cast<std::size_t>(bitmap.Height()));
        // Without alpha the file is smaller.
        const int channels = std::all_of(pixels.begin(), pixels.end(), &IsOpaque) ? 3 : 4;
        EncodePng(StraightBytes(pixels, channels), channels, bitmap.Width(), bitmap.Height(), file);
        return true;
    } catch (const ImageError& error) {
        log.Error("cannot write %s: %s", file.c_str(), error.what());
        return false;
    }
}

} // namespace orvane
