// SPDX-License-Identifier: MIT
#pragma once

class Bitmap;
struct SDL_Surface;

namespace orvane
{

/// Copies the pixels of a surface of any layout (palette, colour key, alpha or not, 8 to 32 bits a pixel) to a bitmap
/// of the same size, as premultiplied 32-bit pixels. Returns false for pixels of less than a byte.
bool CopySurfacePixels(SDL_Surface& surface, Bitmap& bitmap);

} // namespace orvane
