// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace contest
{

/// Blends a row of premultiplied pixels over opaque ones: the usual loop, two channels a multiplication, which
/// compilers turn into vector code. For contestants whose library does not blend, and for what memory alone would
/// allow.
inline void OverRow(std::uint32_t* __restrict target, const std::uint32_t* __restrict source, int count)
{
    constexpr std::uint32_t kEven = 0x00FF00FFU;
    constexpr std::uint32_t kHalves = 0x00800080U;
    for (int i = 0; i < count; ++i) {
        const std::uint32_t through = 255U - (source[i] >> 24);
        // x / 255, rounded to nearest, is (x + 128 + (x + 128) / 256) / 256
        std::uint32_t even = (target[i] & kEven) * through + kHalves;
        std::uint32_t odd = ((target[i] >> 8) & kEven) * through + kHalves;
        even = ((even + ((even >> 8) & kEven)) >> 8) & kEven;
        odd = (odd + ((odd >> 8) & kEven)) & ~kEven;
        target[i] = source[i] + (even | odd);
    }
}

} // namespace contest
