// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"
#include "host/rectangle.h"
#include "host/rgba.h"

#include <cstddef>
#include <cstdint>

class BitmapManager;

/// A picture of 32-bit pixels: premultiplied alpha, bytes B, G, R, A in memory, rows of Width() * 4 bytes without gaps.
///
/// Made and destroyed by BitmapManager alone. After its destruction the record stays readable, as an empty bitmap,
/// until many thousand later bitmaps have died: whoever still holds the pointer draws nothing and corrupts nothing.
class ORVANE_API Bitmap
{
public:
    /// The largest width and height: texture coordinates are 16.16 texels.
    static constexpr int kMaxSide = 32767;

    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;

    ///@{
    /// Pixels; 0 when the bitmap is empty.
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    ///@}

    /// The first pixel, or null when the bitmap is empty. Valid until the next Realloc or the bitmap's end.
    const std::uint8_t* Buffer() const { return m_pixels; }
    /// The same for writing; counts as a change of the picture. Who keeps the pointer and writes later calls Changed()
    /// after the writing: the renderer keeps filtered copies of a picture and makes them anew when Revision() moved.
    std::uint8_t* Buffer()
    {
        Changed();
        return m_pixels;
    }
    /// Tells that the pixels have been written through a pointer obtained earlier.
    void Changed() { ++m_revision; }
    /// Grows with every change of size or pixels, and is never the same for two lives of one record.
    std::uint64_t Revision() const { return m_revision; }

    /// Replaces (never blends) the part of the rectangle that lies in the bitmap; the colour is straight alpha and is
    /// stored premultiplied. An empty rectangle does nothing.
    void FillRect(const render::Rectangle<int>& rectangle, const Rgba& colour);
    /// FillRect with transparent black. The rectangle is not changed.
    void ClearRect(render::Rectangle<int>& rectangle);
    /// Gives the bitmap a new size and makes every pixel transparent, also at an unchanged size. A side of 0 or less
    /// makes it empty. Returns false, and changes nothing, for a side above kMaxSide or for a bitmap that is
    /// destroyed. Throws std::bad_alloc and then changes nothing.
    bool Realloc(int width, int height);

private:
    friend class BitmapManager;
    Bitmap() = default;
    ~Bitmap() = default;
    void Free();

    int m_width = 0;
    int m_height = 0;
    std::uint8_t* m_pixels = nullptr;
    std::size_t m_capacity = 0; ///< bytes allocated at m_pixels
    std::uint64_t m_revision = 0;
    Bitmap* m_nextDead = nullptr; ///< while destroyed: the record that died next
    bool m_alive = false;
};
