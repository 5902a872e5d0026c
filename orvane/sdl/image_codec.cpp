// SPDX-License-Identifier: MIT
#include "orvane/image_codec.h"

#include "host/bitmap.h"
#include "orvane/sdl/surface_pixels.h"

#include <SDL.h>
#include <SDL_image.h>

#include <memory>

namespace orvane
{

namespace
{

struct SurfaceFreer {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

using Surface = std::unique_ptr<SDL_Surface, SurfaceFreer>;

[[noreturn]] void ThrowLibraryError(const char* otherwise)
{
    const char* const reason = SDL_GetError();
    throw ImageError(*reason != '\0' ? reason : otherwise);
}

} // namespace

void DecodeImage(std::span<const std::uint8_t> file, const std::string& extension, Bitmap& bitmap)
{
    SDL_ClearError();
    SDL_RWops* const stream = SDL_RWFromConstMem(file.data(), static_cast<int>(file.size()));
    if (stream == nullptr) {
        ThrowLibraryError("it cannot be read");
    }
    const Surface surface(IMG_LoadTyped_RW(stream, 1, extension.c_str())); // closes the stream
    if (surface == nullptr) {
        ThrowLibraryError("it is no picture");
    }
    RequireAllowedImageSize(surface->w, surface->h);
    bitmap.Realloc(surface->w, surface->h);
    if (!CopySurfacePixels(*surface, bitmap)) {
        throw ImageError("its pixels have a layout that is not known");
    }
}

void EncodePng(std::span<const std::uint8_t> bytes, int channels, int width, int height, const std::string& file)
{
    SDL_ClearError();
    // The surface reads the bytes and does not keep them.
    const Surface surface(SDL_CreateRGBSurfaceWithFormatFrom(
        const_cast<std::uint8_t*>(bytes.data()), width, height, channels * 8, width * channels,
        channels == 3 ? SDL_PIXELFORMAT_RGB24 : SDL_PIXELFORMAT_RGBA32));
    if (surface == nullptr) {
        ThrowLibraryError("its pixels cannot be kept");
    }
    if (IMG_SavePNG(surface.get(), file.c_str()) != 0) {
        ThrowLibraryError("its file cannot be written");
    }
}

} // namespace orvane
