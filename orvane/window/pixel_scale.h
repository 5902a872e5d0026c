// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/window/export.h"

namespace orvane
{

/// A window's size in the units of its display and in pixels; on a display with a scale they differ.
struct ORVANE_WINDOW_API PixelScale {
    ///@{
    /// The display's units.
    int width = 0;
    int height = 0;
    ///@}
    ///@{
    /// Pixels.
    int pixelWidth = 0;
    int pixelHeight = 0;
    ///@}

    ///@{
    /// The pixel at a place in the display's units, which may lie outside the window; of one that has several pixels
    /// the first. A window without a size leaves the value as it is.
    int PixelX(double x) const;
    int PixelY(double y) const;
    ///@}

    /// Equal in every value.
    friend bool operator==(const PixelScale&, const PixelScale&) = default;
};

} // namespace orvane
