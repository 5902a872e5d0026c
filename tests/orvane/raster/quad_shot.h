// SPDX-License-Identifier: MIT
// One draw of a quadrilateral, and what it should look like.
#pragma once

#include "host/globals.h"
#include "host/polygon_render.h"
#include "host/rect.h"
#include "tests/orvane/test_bitmaps.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

constexpr std::uint32_t kGreen = 0xFF007F00U;
constexpr std::uint32_t kWhite = 0xFFFFFFFFU;

/// x and y of the four corners, in half pixels.
using HalfPixels = std::array<long, 8>;

/// An upright rectangle, in half pixels.
inline HalfPixels Upright(long left, long top, long width, long height)
{
    return {left, top, left + width, top, left + width, top + height, left, top + height};
}

/// The texels at corner 0 and corner 2.
struct TexelBox {
    double left;
    double top;
    double right;
    double bottom;
};

/// The 16.16 coordinate of a texel edge: the far edge of a picture is named by the last value before it.
inline long Fixed(double texels)
{
    const long fixed = static_cast<long>(texels * 65536);
    return fixed == 0 ? 0 : fixed - 1;
}

inline void SetQuad(const HalfPixels& c)
{
    glb->polygonRender->SetVertices(c[0], c[1], 0, c[2], c[3], 0, c[4], c[5], 0, c[6], c[7], 0);
}

inline void SetTexels(const TexelBox& box)
{
    const long left = Fixed(box.left);
    const long top = Fixed(box.top);
    const long right = Fixed(box.right);
    const long bottom = Fixed(box.bottom);
    glb->polygonRender->SetTexCoords(left, top, right, top, right, bottom, left, bottom);
}

inline TexelBox WholeOf(const Bitmap& texture)
{
    return {0, 0, static_cast<double>(texture.Width()), static_cast<double>(texture.Height())};
}

/// Draws and returns the clip rectangle.
inline CRect DrawQuad(Bitmap* target, Bitmap* texture, const HalfPixels& corners, const TexelBox& box, long state = 0)
{
    PolygonRender& render = *glb->polygonRender;
    CRect clip;
    CRect* clipPointer = &clip;
    SetQuad(corners);
    SetTexels(box);
    render.SetTexture(texture);
    render.SetRenderState(1, state);
    render.Draw(target, clipPointer);
    return clip;
}

inline void Fill(Bitmap& bitmap, std::uint32_t pixel)
{
    const std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(bitmap.Width()) * static_cast<std::size_t>(bitmap.Height()), pixel);
    std::memcpy(bitmap.Buffer(), pixels.data(), pixels.size() * 4);
}

inline OwnedBitmap MakeFilled(int width, int height, std::uint32_t pixel)
{
    OwnedBitmap bitmap = MakeBitmap(width, height);
    Fill(*bitmap, pixel);
    return bitmap;
}

inline std::uint32_t PixelAt(const Bitmap& bitmap, int x, int y)
{
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, bitmap.Buffer() + (y * bitmap.Width() + x) * 4L, 4);
    return pixel;
}
