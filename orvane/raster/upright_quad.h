// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/kernels.h"
#include "orvane/raster/quad_geometry.h"
#include "orvane/raster/quad_mapping.h"

#include <optional>

class Bitmap;

namespace orvane::raster
{

/// Pixels of a target.
struct PixelRange {
    int left;
    int top;
    int right;
    int bottom;
};

/// A job without its target, when whole texels inside the picture are drawn upright and unscaled: a resting card. The
/// quadrilateral covers the pixels given and no others of the target.
std::optional<UprightJob> RecogniseUpright(const Quad& quad, const TexelCorners& texels, const Bitmap& picture,
                                           const PixelRange& pixels);

} // namespace orvane::raster
