// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/pixmap_file.h"
#include "bench/contest/truth.h"

namespace contest
{

/// How near a picture comes to the truth: peak signal to noise ratios in decibels over the pixels that cards touch or
/// border, at most kPerfect.
struct PictureError {
    double area = 0.0;        ///< to the area truth
    double conformance = 0.0; ///< to the bilinear truth
    double edges = 0.0;       ///< to the bilinear truth, edge pixels alone
    double worst = 0.0;       ///< levels of 255: the largest difference to the bilinear truth in a channel
};

inline constexpr double kPerfect = 99.0;

/// Throws std::invalid_argument when the sizes differ.
PictureError Compare(const Pixmap& picture, const Truth& truth);

} // namespace contest
