// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/quad_mapping.h"
#include "orvane/raster/texel_source.h"
#include "orvane/raster/wide_colour.h"

namespace orvane::raster
{

/// The places inside a pixel at which its colour is sampled, as distances in the picture.
///
/// A bilinear sample is already the mean over the square of one texel. To become the mean over the footprint of a
/// pixel, samples are spread so that both variances add up to the footprint's; along a direction in which the footprint
/// is no longer than a texel nothing is spread. One sample in the middle remains of a picture that is not shrunk.
class SamplePattern
{
public:
    static constexpr int kMaxPerSide = 16;

    /// The middle alone.
    SamplePattern() = default;
    explicit SamplePattern(const Footprint& footprint);

    ///@{
    /// The samples stand in a grid.
    int Columns() const { return m_columns; }
    int Rows() const { return m_rows; }
    TexelPoint First() const { return m_first; }
    TexelPoint AcrossStep() const { return m_across; }
    TexelPoint DownStep() const { return m_down; }
    ///@}
    int Count() const { return m_columns * m_rows; }
    TexelPoint At(int column, int row) const
    {
        return {m_first.u + m_across.u * column + m_down.u * row, m_first.v + m_across.v * column + m_down.v * row};
    }

private:
    int m_columns = 1;
    int m_rows = 1;
    TexelPoint m_first;
    TexelPoint m_across;
    TexelPoint m_down;
};

/// Reads colours of a picture, bilinearly, with 12 bits of weight on each axis. Points are held inside the given
/// rectangle of texels, and every texel read lies in the source, whatever the point: also one that is not a number.
class Sampler
{
public:
    Sampler(const TexelSource& source, TexelPoint least, TexelPoint most);

    const TexelSource& Source() const { return m_source; }
    /// True when the texels of a row from the given column on are what sampling at their centres would give.
    bool HoldsTexels(int column, int row, int count) const;
    /// For every point the mean of the samples around it, each as far as it lies in the rectangle: 8.8 bits in each
    /// lane.
    void SampleRow(const TexelPoint* points, int count, const SamplePattern& pattern, WideColour* colours) const;

private:
    std::uint32_t Share(TexelPoint point) const;
    WideColour Bilinear(TexelPoint point) const;
    WideColour MeanAround(TexelPoint point, const SamplePattern& pattern) const;

    TexelSource m_source;
    TexelPoint m_least;
    TexelPoint m_most;
    TexelPoint m_leastRead; ///< where samples are read, relative to texel centres
    TexelPoint m_mostRead;
};

} // namespace orvane::raster
