// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

class Bitmap;

/// What the host needs of an image library. One of the codec folders is built in: sdl/ where SDL2_image stands, stb/
/// elsewhere (see ORVANE_IMAGE_LIBRARY in the build file).
namespace orvane
{

/// Why a file gives no picture, or cannot be written: one clause for a log line.
class ImageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The pixels of the largest picture that is decoded: 512 MiB as a bitmap. A few hundred bytes of some formats can
/// claim any size.
inline constexpr std::int64_t kMostImagePixels = std::int64_t{1} << 27;

/// Throws an ImageError for a picture that is larger on a side than a bitmap can be, or has more than kMostImagePixels.
void RequireAllowedImageSize(std::int64_t width, std::int64_t height);

/// Decodes a picture file from memory into the bitmap, which gets the picture's size. The extension, without its dot,
/// tells the formats that the contents do not tell. Throws ImageError, and std::bad_alloc.
void DecodeImage(std::span<const std::uint8_t> file, const std::string& extension, Bitmap& bitmap);

/// Writes rows of pixels without gaps as a PNG file: the bytes R, G, B of each with 3 channels, R, G, B, A with
/// straight alpha with 4. Throws ImageError, and std::bad_alloc.
void EncodePng(std::span<const std::uint8_t> bytes, int channels, int width, int height, const std::string& file);

} // namespace orvane
