// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"
#include "host/rectangle.h"

class Bitmap;

/// The renderer of the screen.
class ORVANE_API Render
{
public:
    /// The one renderer of the process.
    static Render& Instance();

    ///@{
    /// The size of the active render area, pixels; 0 before the host is started.
    int GetActiveWidth() const;
    int GetActiveHeight() const;
    ///@}

    /// Copies a block of pixels, replacing what was there; cut to both bitmaps. Source and destination may be the same
    /// bitmap. A null bitmap, or a width or height of 0 or less, does nothing.
    void Copy(const Bitmap* source, Bitmap* destination, int destinationX, int destinationY, int sourceX, int sourceY,
              int width, int height);
    /// Has an area of the screen composed anew, in screen pixels; cut to the screen. A width or height of 0 or less
    /// does nothing. Costs the storing of one rectangle.
    void InvalidateArea(const render::Rectangle<int>& area);

    Render(const Render&) = delete;
    Render& operator=(const Render&) = delete;

private:
    Render() = default;
    ~Render() = default;
};
