// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvane::raster
{

/// Source-over of one premultiplied pixel: source + destination * (255 - source alpha) / 255, each channel rounded to
/// nearest and saturated at 255 (bytes may hold a colour above its alpha). The same result wherever it is computed.
inline std::uint32_t SourceOver(std::uint32_t destination, std::uint32_t source)
{
    const std::uint32_t keep = 255U - (source >> 24);
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        const std::uint32_t scaled = ((destination >> shift) & 255U) * keep + 128U;
        const std::uint32_t channel = ((source >> shift) & 255U) + ((scaled + (scaled >> 8)) >> 8);
        result |= (channel > 255U ? 255U : channel) << shift;
    }
    return result;
}

/// SourceOver on count pixels of a row. Opaque and clear source pixels are copied and skipped.
void BlendRow(std::uint32_t* destination, const std::uint32_t* source, int count);

} // namespace orvane::raster
