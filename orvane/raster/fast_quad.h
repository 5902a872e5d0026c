// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/kernels.h"
#include "orvane/raster/quad_geometry.h"
#include "orvane/raster/quad_mapping.h"
#include "orvane/raster/sampler.h"
#include "orvane/raster/texel_source.h"

#include <optional>

namespace orvane::raster
{

/// The width and height of a quadrilateral up to which the kernels take it.
inline constexpr int kMostFastPixels = 4096;
/// The same of a source: places in it are 32-bit floating point, good to 1/500 texel there.
inline constexpr int kMostFastTexels = 8192;

/// True when the corners lie close enough to each other for the kernels: coordinates inside the quadrilateral are
/// 32-bit floating point there.
bool IsOfFastSize(const CornerBounds& bounds);

/// A job without its target, for a quadrilateral whose corners are given from an origin; texels are read between least
/// and most. Empty when the kernels have no way for it, or not the precision: a folded or concave quadrilateral, bent
/// texels, a source one texel wide or high or larger than kMostFastTexels.
std::optional<QuadJob> MakeQuadJob(const Quad& quad, const QuadMapping& mapping, const TexelSource& source,
                                   TexelPoint least, TexelPoint most);

/// A pattern of samples for a job.
JobPattern MakeJobPattern(const SamplePattern& pattern);

} // namespace orvane::raster
