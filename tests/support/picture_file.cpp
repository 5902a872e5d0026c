// SPDX-License-Identifier: MIT
#include "tests/support/picture_file.h"

#include <SDL.h>
#include <SDL_image.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

PictureFile::PictureFile(int width, int height, const std::function<std::uint32_t(int x, int y)>& colour)
    : m_path(testing::TempDir() + "cardtable_" + std::to_string(std::random_device()()) + ".png")
{
    const std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> surface(
        SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888), &SDL_FreeSurface);
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(surface->pixels) +
                                                           static_cast<std::ptrdiff_t>(y) * surface->pitch);
        for (int x = 0; x < width; ++x) {
            row[x] = colour(x, y);
        }
    }
    EXPECT_EQ(IMG_SavePNG(surface.get(), m_path.c_str()), 0) << SDL_GetError();
}

PictureFile::~PictureFile()
{
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}
