// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/picture.h"
#include "bench/contest/quad.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace contest
{

/// Where a pixel lies among the cards.
enum class Place : std::uint8_t {
    Outside, ///< no card near
    Inside,  ///< covered whole by the last card that shows there
    Edge     ///< covered in part by a card that shows, or one pixel outside of a visible edge
};

/// Red, green and blue, 0 to 255, never rounded.
using TrueColour = std::array<float, 3>;

/// What a frame should look like, by two notions of should.
struct Truth {
    int width = 0;
    int height = 0;
    /// Texels are small squares; a pixel has the mean of its area. What one should see, above all of a shrunk picture.
    std::vector<TrueColour> area;
    /// One exact bilinear sample at the pixel's centre, as opaque as the card covers the pixel. What bilinear renderers
    /// set out to draw, aliasing included.
    std::vector<TrueColour> bilinear;
    std::vector<Place> places;
};

/// Renders by brute force: samples x samples points of each pixel, mapped exactly in double precision, averaged
/// premultiplied and put over what lies below, card after card.
Truth RenderTruth(int width, int height, const Frame& frame, const Picture& picture, int samples);

} // namespace contest
