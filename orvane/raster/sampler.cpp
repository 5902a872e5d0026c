// SPDX-License-Identifier: MIT
#include "orvane/raster/sampler.h"

#include <algorithm>
#include <cmath>

namespace orvane::raster
{

namespace
{

constexpr int kWeightBits = 12;
constexpr std::uint32_t kWholeWeight = 1U << kWeightBits;

/// Also for values that are not numbers, which give the lower limit.
double Held(double value, double least, double most)
{
    return value > least ? std::min(value, most) : least;
}

/// How much of a semi-axis is left to be spread over samples when each covers one texel.
double SpreadShare(double length)
{
    return length > 1 ? std::sqrt(length * length - 1) / length : 0;
}

int SamplesAlong(double length, int limit)
{
    constexpr double negligible = 0.125;
    if (!(length > negligible)) {
        return 1;
    }
    return static_cast<int>(std::min<double>(std::ceil(length) + 1, limit));
}

/// n samples at equal distances vary less than the continuous segment; this is what they must be stretched by.
double Stretch(int samples)
{
    return samples > 1 ? 1 / std::sqrt(1 - 1.0 / (samples * samples)) : 0;
}

/// The part of the footprint that the texels themselves do not cover: with J the footprint and s1, s2 its singular
/// values, the matrix M that has the same directions and M M' = J J' - 1 where that is positive.
Footprint BeyondOneTexel(const Footprint& j)
{
    const double a = j.ux * j.ux + j.uy * j.uy;
    const double b = j.ux * j.vx + j.uy * j.vy;
    const double c = j.vx * j.vx + j.vy * j.vy;
    const double mean = (a + c) / 2;
    const double deviation = std::hypot((a - c) / 2, b);
    const double longShare = SpreadShare(std::sqrt(mean + deviation));
    const double shortShare = SpreadShare(std::sqrt(std::max(mean - deviation, 0.0)));
    // The symmetric matrix that has these shares along the axes of J J'.
    const double middle = (longShare + shortShare) / 2;
    const double half = deviation > 0 ? (longShare - shortShare) / (2 * deviation) : 0;
    const double uu = middle + half * (a - c) / 2;
    const double vv = middle - half * (a - c) / 2;
    const double uv = half * b;
    return {uu * j.ux + uv * j.vx, uu * j.uy + uv * j.vy, uv * j.ux + vv * j.vx, uv * j.uy + vv * j.vy};
}

} // namespace

SamplePattern::SamplePattern(const Footprint& footprint)
{
    const Footprint spread = BeyondOneTexel(footprint);
    const int columns = SamplesAlong(std::hypot(spread.ux, spread.vx), kMaxPerSide);
    const int rows = SamplesAlong(std::hypot(spread.uy, spread.vy), kMaxPerSide);
    const double stretchX = Stretch(columns);
    const double stretchY = Stretch(rows);
    m_count = 0;
    for (int row = 0; row < rows; ++row) {
        const double y = ((row + 0.5) / rows - 0.5) * stretchY;
        for (int column = 0; column < columns; ++column) {
            const double x = ((column + 0.5) / columns - 0.5) * stretchX;
            m_offsets[static_cast<std::size_t>(m_count++)] = {spread.ux * x + spread.uy * y,
                                                              spread.vx * x + spread.vy * y};
        }
    }
}

Sampler::Sampler(const TexelSource& source, TexelPoint least, TexelPoint most)
    : m_source(source), m_least(least), m_most(most)
{
    const double lastU = source.width - 1;
    const double lastV = source.height - 1;
    m_leastRead = {Held(least.u - 0.5, 0, lastU), Held(least.v - 0.5, 0, lastV)};
    m_mostRead = {Held(most.u - 0.5, m_leastRead.u, lastU), Held(most.v - 0.5, m_leastRead.v, lastV)};
}

bool Sampler::HoldsTexels(int column, int row, int count) const
{
    return column >= m_leastRead.u && column + (count - 1) <= m_mostRead.u && row >= m_leastRead.v &&
           row <= m_mostRead.v;
}

bool Sampler::Holds(TexelPoint point) const
{
    return point.u >= m_least.u && point.u <= m_most.u && point.v >= m_least.v && point.v <= m_most.v;
}

WideColour Sampler::Bilinear(TexelPoint point) const
{
    const int u = static_cast<int>(Held(point.u - 0.5, m_leastRead.u, m_mostRead.u) * kWholeWeight + 0.5);
    const int v = static_cast<int>(Held(point.v - 0.5, m_leastRead.v, m_mostRead.v) * kWholeWeight + 0.5);
    const int left = u >> kWeightBits;
    const int top = v >> kWeightBits;
    const int right = std::min(left + 1, m_source.width - 1);
    const int bottom = std::min(top + 1, m_source.height - 1);
    const std::uint32_t alongU = static_cast<std::uint32_t>(u) & (kWholeWeight - 1);
    const std::uint32_t alongV = static_cast<std::uint32_t>(v) & (kWholeWeight - 1);

    // The four weights add up to 2^24, so that no lane exceeds 255 * 2^24.
    const std::uint32_t both = alongU * alongV;
    const std::uint32_t onlyU = alongU * kWholeWeight - both;
    const std::uint32_t onlyV = alongV * kWholeWeight - both;
    const std::uint32_t none = kWholeWeight * kWholeWeight - both - onlyU - onlyV;
    const std::uint32_t* const upper = m_source.Row(top);
    const std::uint32_t* const lower = m_source.Row(bottom);
    const WideColour colour = WideColour::From(upper[left]) * none + WideColour::From(upper[right]) * onlyU +
                              WideColour::From(lower[left]) * onlyV + WideColour::From(lower[right]) * both;
    return colour.Reduced();
}

WideColour Sampler::MeanAround(TexelPoint point, const SamplePattern& pattern) const
{
    WideColour sum;
    std::uint32_t count = 0;
    for (const TexelPoint& offset : pattern) {
        const TexelPoint place{point.u + offset.u, point.v + offset.v};
        if (Holds(place)) {
            sum = sum + Bilinear(place);
            ++count;
        }
    }
    return count > 0 ? sum.DividedBy(count) : Bilinear(point);
}

void Sampler::SampleRow(const TexelPoint* points, int count, const SamplePattern& pattern, WideColour* colours) const
{
    if (pattern.Count() == 1) {
        std::transform(points, points + count, colours, [this](TexelPoint point) { return Bilinear(point); });
    } else {
        std::transform(points, points + count, colours, [&](TexelPoint point) { return MeanAround(point, pattern); });
    }
}

} // namespace orvane::raster
