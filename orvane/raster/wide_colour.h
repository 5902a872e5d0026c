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
    /// Divides each lane by a divisor above 0, rounding to nearest. A lane and half the divisor together stay below
    /// 2^32.
    WideColour DividedBy(std::uint32_t divisor) const
    {
        const auto divide = [divisor](std::uint64_t lanes) {
            const std::uint64_t low = (lanes & 0xFFFFFFFFU) + divisor / 2;
            const std::uint64_t high = (lanes >> 32) + divisor / 2;
            // No sample pattern is empty: NOLINTNEXTLINE(clang-analyzer-core.DivideZero)
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
    /// Source-over of a colour whose lanes hold 255 * 2^24 at most, rounded once, to nearest, and held at 255.
    std::uint32_t Over(std::uint32_t destination) const
    {
        constexpr std::uint64_t whole = 255U << 24;
        const std::uint64_t keep = whole - (greenAlpha >> 32);
        const auto channel = [&](std::uint64_t source, unsigned shift) {
            const std::uint64_t sum = (source & 0xFFFFFFFFU) + (destination >> shift & 255U) * keep / 255 + (1U << 23);
            return static_cast<std::uint32_t>(sum >= whole ? 255U : sum >> 24) << shift;
        };
        return channel(blueRed, 0) | channel(greenAlpha, 8) | channel(blueRed >> 32, 16) |
               channel(greenAlpha >> 32, 24);
    }
};

} // namespace orvane::raster
