// SPDX-License-Identifier: MIT
#include "orvane/raster/cache_warmer.h"

namespace orvane::raster
{

namespace
{

constexpr std::int64_t kMostTexels = (std::int64_t{1} << 20) / 4;
/// A picture at half its size shows 4 a pixel; the rest is for parts that lie outside the target.
constexpr std::int64_t kMostTexelsPerPixel = 8;
/// No cache has shorter lines.
constexpr int kTexelsPerLine = 16;

} // namespace

void CacheWarmer::Read(const TexelSource& source, std::int64_t pixels)
{
    const std::int64_t texels = std::int64_t{source.width} * source.height;
    if (source.pixels == m_latest || texels > kMostTexels || texels > pixels * kMostTexelsPerPixel) {
        return;
    }
    m_latest = source.pixels;
    for (int y = 0; y < source.height; ++y) {
        const volatile std::uint32_t* const row = source.Row(y);
        for (int x = 0; x < source.width; x += kTexelsPerLine) {
            static_cast<void>(row[x]);
        }
    }
}

} // namespace orvane::raster
