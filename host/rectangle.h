// SPDX-License-Identifier: MIT
#pragma once

namespace render
{

/// A rectangle by its top-left corner and its size. Half-open: it holds the pixels x <= px < x + width. With a width or
/// height of 0 or less it is empty.
template <typename T> struct Rectangle {
    T x{};      ///< left edge
    T y{};      ///< top edge
    T width{};  ///< columns
    T height{}; ///< rows

    /// Equal in all four values.
    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

} // namespace render
