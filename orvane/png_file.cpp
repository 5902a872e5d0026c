// SPDX-License-Identifier: MIT
#include "orvane/png_file.h"

#include "host/bitmap.h"
#include "host/log.h"

#include <SDL.h>
#include <SDL_image.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace orvane
{

namespace
{

struct SurfaceFreer {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

/// A premultiplied channel as a straight one, rounded to nearest. A colour above its alpha counts as full.
std::uint32_t Straight(std::uint32_t channel, std::uint32_t alpha)
{
    return std::min((channel * 255U + alpha / 2U) / alpha, 255U);
}

std::uint32_t StraightPixel(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0U) {
        return 0U;
    }
    return (alpha << 24) | (Straight((pixel >> 16) & 255U, alpha) << 16) | (Straight((pixel >> 8) & 255U, alpha) << 8) |
           Straight(pixel & 255U, alpha);
}

} // namespace

bool SavePng(const Bitmap& bitmap, const std::string& file)
{
    const Log log("orvane.image");
    const std::unique_ptr<SDL_Surface, SurfaceFreer> surface(
        SDL_CreateRGBSurfaceWithFormat(0, bitmap.Width(), bitmap.Height(), 32, SDL_PIXELFORMAT_ARGB8888));
    if (bitmap.Buffer() == nullptr || surface == nullptr) {
        log.Error("cannot write %s: there is no picture", file.c_str());
        return false;
    }
    const auto* source = reinterpret_cast<const std::uint32_t*>(bitmap.Buffer());
    for (int y = 0; y < bitmap.Height(); ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(surface->pixels) +
                                                           static_cast<std::ptrdiff_t>(y) * surface->pitch);
        std::transform(source, source + bitmap.Width(), row, StraightPixel);
        source += bitmap.Width();
    }
    if (IMG_SavePNG(surface.get(), file.c_str()) != 0) {
        log.Error("cannot write %s: %s", file.c_str(), SDL_GetError());
        return false;
    }
    return true;
}

} // namespace orvane
