// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class Bitmap;

namespace deal
{

/// An opaque picture, 0xAARRGGBB a pixel, row by row.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t& At(int x, int y)
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
};

Picture MakePicture(int width, int height, std::uint32_t colour);
/// The screen's picture, each pixel the mean of factor x factor of its pixels; what does not fill a whole one is left
/// out.
Picture Shrunk(const Bitmap& screen, int factor);
/// The smallest factor that brings a width down to a limit.
int ShrinkFactor(int width, int limit);
/// Puts one picture into another, cut to it.
void Paste(const Picture& source, Picture& target, int left, int top);
/// Writes a PNG file. Throws Failure.
void SavePng(const Picture& picture, const std::string& file);

} // namespace deal
