// SPDX-License-Identifier: MIT
#include "orvane/raster/copy_choice.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvane::raster
{

namespace
{

/// How long the footprint of a pixel is along one axis of the picture, in texels.
double Extent(double x, double y)
{
    return std::hypot(x, y);
}

/// How long its chord through the middle is along that axis, the other axis given second: less than the extent where
/// the footprint lies aslant.
double Chord(double x, double y, double otherX, double otherY)
{
    const double other = Extent(otherX, otherY);
    return other > 0 ? std::abs(x * otherY - y * otherX) / other : 0;
}

/// The side in a smaller size; also for a divisor that is infinite or no number.
int Divided(int side, double divisor)
{
    const double result = std::round(side / divisor);
    return result >= 1 ? static_cast<int>(std::min<double>(result, side)) : 1;
}

/// How the means of a copy lie along one axis.
struct Means {
    double distance;         ///< in texels of the picture
    std::uint32_t neighbour; ///< of BlurWeights
};

// One bilinear sample spreads over the distance of two means. So they are narrower than the pixel and overlap by half:
// means 0.71 pixels wide, one at each half of that, came closest to the true mean of the pixel at every size. Means
// closer than the texels would say nothing new: there only the width follows.
Means MeansFor(double texelsPerPixel)
{
    constexpr double share = 0.714;
    constexpr double stepsPerOctave = 3;
    const double width = std::exp2(std::round(std::log2(texelsPerPixel * share) * stepsPerOctave) / stepsPerOctave);
    if (width >= 2) {
        return {width / 2, kBlurWhole / 2};
    }
    const double beyondEitherSide = (std::max(width, 1.0) - 1) / 2;
    return {1, static_cast<std::uint32_t>(std::lround(beyondEitherSide * kBlurWhole))};
}

/// How often an axis may be halved.
double HalvingDivisor(double chord)
{
    constexpr double leastTexels = 3;
    return chord >= 2 * leastTexels ? std::exp2(std::floor(std::log2(chord / leastTexels))) : 1;
}

} // namespace

std::optional<CopyRequest> CopyForOneSample(const TexelWindow& window, const Footprint& footprint)
{
    // Plain bilinear samples miss texels from half size down. Up to here they miss little, and most tilted cards, each
    // at a slightly different size, do without a copy of their own.
    constexpr double fromTexels = 2.25;
    const double u = Extent(footprint.ux, footprint.uy);
    const double v = Extent(footprint.vx, footprint.vy);
    if (!(u >= fromTexels || v >= fromTexels)) {
        return std::nullopt;
    }
    const Means alongU = MeansFor(u);
    const Means alongV = MeansFor(v);
    return CopyRequest{window,
                       Divided(window.width, alongU.distance),
                       Divided(window.height, alongV.distance),
                       {alongU.neighbour, alongV.neighbour}};
}

std::optional<CopyRequest> CopyForWholeFootprint(const TexelWindow& window, const Footprint& footprint)
{
    const auto& [ux, uy, vx, vy] = footprint;
    const double u = HalvingDivisor(Chord(ux, uy, vx, vy));
    const double v = HalvingDivisor(Chord(vx, vy, ux, uy));
    if (u == 1 && v == 1) {
        return std::nullopt;
    }
    return CopyRequest{window, Divided(window.width, u), Divided(window.height, v), {}};
}

} // namespace orvane::raster
