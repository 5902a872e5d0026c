// SPDX-License-Identifier: MIT
#include "examples/deal/picture.h"

#include "examples/deal/failure.h"
#include "host/bitmap.h"

#include <SDL.h>
#include <SDL_image.h>

#include <algorithm>
#include <array>
#include <memory>

namespace deal
{

namespace
{

constexpr std::uint32_t kOpaque = 0xFF000000U;

/// The mean of a square of pixels; bytes B, G, R, A in memory.
std::uint32_t MeanColour(const std::uint8_t* corner, std::size_t stride, int side)
{
    std::array<std::uint32_t, 3> sums{};
    for (int y = 0; y < side; ++y, corner += stride) {
        for (int x = 0; x < side; ++x) {
            for (std::size_t channel = 0; channel < sums.size(); ++channel) {
                sums[channel] += corner[static_cast<std::size_t>(x) * 4 + channel];
            }
        }
    }
    const auto count = static_cast<std::uint32_t>(side * side);
    const auto mean = [&](std::size_t channel) { return (sums[channel] + count / 2) / count; };
    return kOpaque | mean(2) << 16 | mean(1) << 8 | mean(0);
}

struct SurfaceFreer {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using OwnedSurface = std::unique_ptr<SDL_Surface, SurfaceFreer>;

} // namespace

Picture MakePicture(int width, int height, std::uint32_t colour)
{
    return {width, height,
            std::vector<std::uint32_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour)};
}

Picture Shrunk(const Bitmap& screen, int factor)
{
    Picture picture = MakePicture(screen.Width() / factor, screen.Height() / factor, kOpaque);
    const std::size_t stride = static_cast<std::size_t>(screen.Width()) * 4;
    for (int y = 0; y < picture.height; ++y) {
        const std::uint8_t* const row = screen.Buffer() + static_cast<std::size_t>(y * factor) * stride;
        for (int x = 0; x < picture.width; ++x) {
            picture.At(x, y) = MeanColour(row + static_cast<std::size_t>(x * factor) * 4, stride, factor);
        }
    }
    return picture;
}

int ShrinkFactor(int width, int limit)
{
    return std::max(1, (width + limit - 1) / limit);
}

void Paste(const Picture& source, Picture& target, int left, int top)
{
    for (int y = std::max(0, -top); y < source.height && y + top < target.height; ++y) {
        for (int x = std::max(0, -left); x < source.width && x + left < target.width; ++x) {
            target.At(x + left, y + top) =
                source.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(source.width) +
                              static_cast<std::size_t>(x)];
        }
    }
}

void SavePng(const Picture& picture, const std::string& file)
{
    // The surface reads the pixels and does not keep them; without alpha the file is smaller.
    const OwnedSurface words(SDL_CreateRGBSurfaceWithFormatFrom(const_cast<std::uint32_t*>(picture.pixels.data()),
                                                                picture.width, picture.height, 32, picture.width * 4,
                                                                SDL_PIXELFORMAT_ARGB8888));
    const OwnedSurface bytes(words != nullptr ? SDL_ConvertSurfaceFormat(words.get(), SDL_PIXELFORMAT_RGB24, 0)
                                              : nullptr);
    if (bytes == nullptr || IMG_SavePNG(bytes.get(), file.c_str()) != 0) {
        throw Failure("cannot write '" + file + "': " + SDL_GetError());
    }
}

} // namespace deal
