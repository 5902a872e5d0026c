// SPDX-License-Identifier: MIT
#include "orvane/raster/blend.h"

#include "orvane/raster/kernels.h"
#include "orvane/raster/renderer_choice.h"

namespace orvane::raster
{

void BlendRow(std::uint32_t* destination, const std::uint32_t* source, int count)
{
    if (CurrentRenderer() == Renderer::Fast) {
        CurrentKernels().blendRow(destination, source, count);
        return;
    }
    for (int i = 0; i < count; ++i) {
        const std::uint32_t pixel = source[i];
        if (pixel >> 24 == 255U) {
            destination[i] = pixel;
        } else if (pixel != 0) {
            destination[i] = SourceOver(destination[i], pixel);
        }
    }
}

} // namespace orvane::raster
