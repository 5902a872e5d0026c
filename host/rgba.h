// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// A colour with straight (not premultiplied) alpha, 0 to 255 each. All zero is transparent black.
struct Rgba {
    std::uint8_t r = 0; ///< red
    std::uint8_t g = 0; ///< green
    std::uint8_t b = 0; ///< blue
    std::uint8_t a = 0; ///< alpha: 255 is opaque

    /// Equal in all four components.
    friend bool operator==(const Rgba&, const Rgba&) = default;
};
