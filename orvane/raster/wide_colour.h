// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvane::raster
{

/// Full coverage of a pixel, and the weight of a whole.
inline constexpr std::uint32_t kFullCoverage = 65536;

/// A premultiplied colour with room for weights: the four channels stand in four 32-bit lanes of two words, so that one
/// multiplication weighs two of them. Nothing may carry from a lower lane into the upper one.
struct WideColour {
    std::uint64_t blueRed = 0;
    std::uint64_t greenAlpha = 0;

    static WideColour From(std::uint32_t pixel)
    {
        return {(pixel & 0xFFU) | std::uint64_t{pixel & 0xFF0000U} << 16,
                (pixel >> 8 & 0xFFU) | std::uint64_t{pixel & 0xFF000000U} << 8};
    }

    friend WideColour operator+(WideColour a, WideColour b)
    {
        return {a.blueRed + b.blueRed, a.greenAlpha + b.greenAlpha};
    }
    friend WideColour operator*(WideColour a, std::uint32_t weight)
    {
        return {a.blueRed * weight, a.greenAlpha * weight};
    }
    /// Divides by 65536, rounding to nearest. The lanes hold at most 0xFFFF0000.
    WideColour Reduced() const
    {
        constexpr std::uint64_t half = 0x0000800000008000U;
        constexpr std::uint64_t low = 0x0000FFFF0000FFFFU;
        return {(blueRed + half) >> 16 & low, (greenAlpha + half) >> 16 & low};
    }
    /// Divides each lane, rounding to nearest. A lane and half the divisor together stay below 2^32.
    WideColour DividedBy(std::uint32_t divisor) const
    {
        const auto divide = [divisor](std::uint64_t lanes) {
            const std::uint64_t low = (lanes & 0xFFFFFFFFU) + divisor / 2;
            const std::uint64_t high = (lanes >> 32) + divisor / 2;
            return low / divisor | high / divisor << 32;
        };
        return {divide(blueRed), divide(greenAlpha)};
    }
    /// The pixel of a colour whose lanes hold 255 at most.
    std::uint32_t LowBytes() const
    {
        return (static_cast<std::uint32_t>(blueRed | blueRed >> 16) & 0xFF00FFU) |
               (static_cast<std::uint32_t>(greenAlpha << 8 | greenAlpha >> 8) & 0xFF00FF00U);
    }
    /// The pixel of a colour whose lanes hold 255 * 2^24 at most: the top byte of each, rounded to nearest.
    std::uint32_t TopBytes() const
    {
        constexpr std::uint64_t half = 0x0080000000800000U;
        constexpr std::uint64_t low = 0x000000FF000000FFU;
        return WideColour{(blueRed + half) >> 24 & low, (greenAlpha + half) >> 24 & low}.LowBytes();
    }
};

} // namespace orvane::raster
