// SPDX-License-Identifier: MIT
#include "examples/deal/shrink.h"

#include "orvane/pixel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

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

} // namespace

OwnedBitmap Shrunk(const Bitmap& screen, int factor)
{
    OwnedBitmap picture(BitmapManager::Instance().Create(screen.Width() / factor, screen.Height() / factor));
    std::uint32_t* pixel = orvane::Pixels(*picture);
    const std::size_t stride = static_cast<std::size_t>(screen.Width()) * 4;
    for (int y = 0; y < picture->Height(); ++y) {
        const std::uint8_t* const row = screen.Buffer() + static_cast<std::size_t>(y * factor) * stride;
        for (int x = 0; x < picture->Width(); ++x) {
            *pixel++ = MeanColour(row + static_cast<std::size_t>(x * factor) * 4, stride, factor);
        }
    }
    return picture;
}

int ShrinkFactor(int width, int limit)
{
    return std::max(1, (width + limit - 1) / limit);
}

} // namespace deal
