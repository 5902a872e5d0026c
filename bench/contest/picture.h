// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace contest
{

/// A picture of 32-bit words, alpha in the highest byte, then red, green and blue; rows without gaps.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> premultiplied;
    std::vector<std::uint32_t> straight; ///< the same picture, for those who multiply by alpha themselves

    int RowBytes() const { return width * 4; }
};

/// Pixels of a target: opaque premultiplied words as above.
struct Pixels {
    std::uint32_t* first = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0; ///< words from row to row

    std::uint32_t* Row(int y) const { return first + static_cast<std::ptrdiff_t>(y) * stride; }
};

/// What lies under the cards: a green table.
inline constexpr std::uint32_t kTable = 0xFF007F00U;

} // namespace contest
