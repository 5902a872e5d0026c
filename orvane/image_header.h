// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace orvane
{

/// What the bytes of a picture file tell before it is decoded.
struct ImageHeader {
    /// Pixels; 0 when the format is not known here (PNG, JPEG, WebP, BMP and GIF are) or the file ends before them.
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// False when the file certainly ends too early. Decoders give half a picture for some of such files.
    bool isWhole = true;
};

/// Reads no more than the structure of the file; any bytes are allowed.
ImageHeader ReadImageHeader(std::span<const std::uint8_t> file);

} // namespace orvane
