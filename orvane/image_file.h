// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class Bitmap;

namespace orvane
{

/// Reads a picture file into a bitmap, converted from any pixel layout to premultiplied 32-bit pixels. Returns the
/// reason when it cannot, else an empty text. A file that is cut off is refused where its format tells; a JPEG or GIF
/// file that is damaged in the middle may give a picture with wrong pixels. Throws std::bad_alloc. The libraries that
/// decode may write warnings of their own to the standard error stream.
std::string LoadImageFile(const std::string& file, Bitmap& bitmap);

} // namespace orvane
