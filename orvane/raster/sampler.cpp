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
/// 256 samples of it, times a colour of 8.8 bits, just fit into 32 bits.
constexpr std::uint32_t kWholeShare = 256;
constexpr std::uint32_t kLeastShare = 16;

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
    return static_cast<int>(std::clamp<double>(std::round(length), 2, limit));
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
    m_columns = SamplesAlong(std::hypot(spread.ux, spread.vx), kMaxPerSide);
    m_rows = SamplesAlong(std::hypot(spread.uy, spread.vy), kMaxPerSide);
    const double x = Stretch(m_columns) / m_columns;
    const double y = Stretch(m_rows) / m_rows;
    m_across = {spread.ux * x, spread.vx * x};
    m_down = {spread.uy * y, spread.vy * y};
    m_first = {-(m_across.u * (m_columns - 1) + m_down.u * (m_rows - 1)) / 2,
               -(m_across.v * (m_columns - 1) + m_down.v * (m_rows - 1)) / 2};
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

/// How much a sample counts, of kWholeShare: by how far the square of one texel around it lies in the rectangle. Never
/// nothing, so that a mean of samples that all lie outside, or nearly, is as exact as any other.
std::uint32_t Sampler::Share(TexelPoint point) const
{
    const auto along = [](double at, double least, double most) {
        return Held(std::min(at + 0.5, most) - std::max(at - 0.5, least), 0, 1);
    };
    const double share = along(point.u, m_least.u, m_most.u) * along(point.v, m_least.v, m_most.v);
    return kLeastShare + static_cast<std::uint32_t>(share * (kWholeShare - kLeastShare) + 0.5);
}

WideColour Sampler::MeanAround(TexelPoint point, const SamplePattern& pattern) const
{
    WideColour sum;
    std::uint32_t total = 0;
    for (int row = 0; row < pattern.Rows(); ++row) {
        for (int column = 0; column < pattern.Columns(); ++column) {
            const TexelPoint offset = pattern.At(column, row);
            const TexelPoint place{point.u + offset.u, point.v + offset.v};
            const std::uint32_t share = Share(place);
            sum = sum + Bilinear(place) * share;
            total += share;
        }
    }
    return sum.DividedBy(total);
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
