// SPDX-License-Identifier: MIT
#include "orvane/image_file.h"

#include "host/bitmap.h"
#include "orvane/image_header.h"
#include "orvane/surface_pixels.h"

#include <SDL.h>
#include <SDL_image.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

namespace orvane
{

namespace
{

struct StreamCloser {
    void operator()(SDL_RWops* stream) const { SDL_RWclose(stream); }
};

struct SurfaceFreer {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

using Stream = std::unique_ptr<SDL_RWops, StreamCloser>;
using Surface = std::unique_ptr<SDL_Surface, SurfaceFreer>;

/// Why a file gives no picture.
class LoadError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void ThrowLibraryError(const char* otherwise)
{
    const char* const reason = SDL_GetError();
    throw LoadError(*reason != '\0' ? reason : otherwise);
}

std::vector<std::uint8_t> ReadFile(const std::string& file)
{
    const Stream stream(SDL_RWFromFile(file.c_str(), "rb"));
    if (stream == nullptr) {
        ThrowLibraryError("it cannot be opened");
    }
    const Sint64 size = SDL_RWsize(stream.get());
    if (size < 0) {
        throw LoadError("it is no regular file");
    }
    if (size == 0) {
        throw LoadError("it is empty");
    }
    if (size > std::numeric_limits<int>::max()) {
        throw LoadError("it is larger than 2 GiB");
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    if (SDL_RWread(stream.get(), bytes.data(), 1, bytes.size()) != bytes.size()) {
        throw LoadError("it cannot be read");
    }
    return bytes;
}

void RequireAllowedSize(std::int64_t width, std::int64_t height)
{
    if (width > Bitmap::kMaxSide || height > Bitmap::kMaxSide) {
        throw LoadError("its size of " + std::to_string(width) + " x " + std::to_string(height) + " pixels is above " +
                        std::to_string(Bitmap::kMaxSide) + " on a side");
    }
}

/// The library tells formats by their contents, except those that only their names tell.
std::string Extension(const std::string& file)
{
    const std::size_t dot = file.find_last_of("./\\");
    return dot == std::string::npos || file[dot] != '.' ? std::string() : file.substr(dot + 1);
}

Surface Decode(const std::vector<std::uint8_t>& bytes, const std::string& extension)
{
    SDL_RWops* const stream = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
    if (stream == nullptr) {
        ThrowLibraryError("it cannot be read");
    }
    Surface surface(IMG_LoadTyped_RW(stream, 1, extension.c_str())); // closes the stream
    if (surface == nullptr) {
        ThrowLibraryError("it is no picture");
    }
    return surface;
}

} // namespace

std::string LoadImageFile(const std::string& file, Bitmap& bitmap)
{
    SDL_ClearError();
    try {
        Surface surface;
        {
            const std::vector<std::uint8_t> bytes = ReadFile(file);
            const ImageHeader header = ReadImageHeader(bytes);
            RequireAllowedSize(header.width, header.height);
            if (!header.isWhole) {
                throw LoadError("it is cut off");
            }
            surface = Decode(bytes, Extension(file));
        }
        RequireAllowedSize(surface->w, surface->h);
        bitmap.Realloc(surface->w, surface->h);
        if (!CopySurfacePixels(*surface, bitmap)) {
            throw LoadError("its pixels have a layout that is not known");
        }
    } catch (const LoadError& error) {
        return error.what();
    }
    return {};
}

} // namespace orvane
