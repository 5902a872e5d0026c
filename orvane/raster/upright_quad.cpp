// SPDX-License-Identifier: MIT
#include "orvane/raster/upright_quad.h"

#include "host/bitmap.h"
#include "orvane/pixel.h"

namespace orvane::raster
{

namespace
{

bool IsUpright(const Quad& quad)
{
    return quad[0].x == quad[3].x && quad[1].x == quad[2].x && quad[0].y == quad[1].y && quad[2].y == quad[3].y;
}

bool IsUpright(const TexelCorners& texels)
{
    return texels[0].u == texels[3].u && texels[1].u == texels[2].u && texels[0].v == texels[1].v &&
           texels[2].v == texels[3].v;
}

/// True when a side is drawn pixel by texel: from and to are whole and lie in the picture.
bool IsUnscaled(std::int64_t halfPixels, double from, double to, int size)
{
    return from >= 0 && from < to && to <= size && from == static_cast<int>(from) && to == static_cast<int>(to) &&
           halfPixels == 2 * (std::int64_t{static_cast<int>(to)} - static_cast<int>(from));
}

} // namespace

std::optional<UprightJob> RecogniseUpright(const Quad& quad, const TexelCorners& texels, const Bitmap& picture,
                                           const PixelRange& pixels)
{
    if (!IsUpright(quad) || !IsUpright(texels) ||
        !IsUnscaled(std::int64_t{quad[1].x} - quad[0].x, texels[0].u, texels[1].u, picture.Width()) ||
        !IsUnscaled(std::int64_t{quad[3].y} - quad[0].y, texels[0].v, texels[3].v, picture.Height())) {
        return std::nullopt;
    }
    const int u = static_cast<int>(texels[0].u);
    const int v = static_cast<int>(texels[0].v);
    UprightJob job{};
    job.originX = quad[0].x >> 1;
    job.originY = quad[0].y >> 1;
    job.sourceStride = picture.Width();
    job.source = Pixels(picture) + v * job.sourceStride + u;
    job.width = static_cast<int>(texels[1].u) - u;
    job.height = static_cast<int>(texels[3].v) - v;
    job.halfColumns = (quad[0].x & 1) != 0;
    job.halfRows = (quad[0].y & 1) != 0;
    job.left = pixels.left - job.originX;
    job.top = pixels.top - job.originY;
    job.right = pixels.right - job.originX;
    job.bottom = pixels.bottom - job.originY;
    return job;
}

} // namespace orvane::raster
