// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/filtered_copies.h"
#include "orvane/raster/quad_mapping.h"
#include "orvane/raster/texel_source.h"

#include <optional>

namespace orvane::raster
{

/// The copy of a window that is best read with one bilinear sample a pixel, from a little under half size down: of
/// means that are about a pixel wide and lie about half a pixel apart. The widths make a ladder of three an octave, for
/// each axis of the picture by itself. Empty where the picture itself is read.
std::optional<CopyRequest> CopyForOneSample(const TexelWindow& window, const Footprint& footprint);

/// The copy for samples all over the footprint: halved as often as leaves the footprint at least three texels long,
/// which bounds the number of samples. Empty where the picture itself is read.
std::optional<CopyRequest> CopyForWholeFootprint(const TexelWindow& window, const Footprint& footprint);

} // namespace orvane::raster
