// SPDX-License-Identifier: MIT
#include "orvane/raster/span_filler.h"

#include "orvane/raster/blend.h"
#include "orvane/raster/wide_colour.h"

#include <algorithm>
#include <array>

namespace orvane::raster
{

namespace
{

/// Pixels of a row that are worked out together, at columns that are multiples of it, so that a pixel's colour does not
/// depend on where its run begins.
constexpr int kBlock = kFootprintTile;

} // namespace

SpanFiller::SpanFiller(std::uint32_t* target, std::ptrdiff_t stride, const Origin& origin, const QuadMapping& mapping,
                       const Sampler& sampler, Filter filter)
    : m_target(target), m_stride(stride), m_origin(origin), m_mapping(mapping), m_sampler(sampler), m_filter(filter),
      m_translation(mapping.Translation())
{
    if (filter == Filter::WholeFootprint && mapping.IsAffine()) {
        m_pattern = SamplePattern(mapping.MiddleFootprint());
    }
}

void SpanFiller::Fill(int y, const CoverageRun& run)
{
    if (CopyTexels(y, run)) {
        return;
    }
    for (int begin = run.begin; begin < run.end;) {
        const int end = std::min((begin / kBlock + 1) * kBlock, run.end);
        FillBlock(y, begin, end, run);
        begin = end;
    }
}

std::uint32_t* SpanFiller::TargetAt(int x, int y) const
{
    return m_target + (m_origin.y + y) * m_stride + m_origin.x + x;
}

/// The way of an upright picture at whole pixels: nothing is to be filtered.
bool SpanFiller::CopyTexels(int y, const CoverageRun& run) const
{
    if (!m_translation || run.each != nullptr || run.all != kFullCoverage) {
        return false;
    }
    const int column = run.begin + m_translation->columns;
    const int row = y + m_translation->rows;
    const int count = run.end - run.begin;
    if (!m_sampler.HoldsTexels(column, row, count)) {
        return false;
    }
    BlendRow(TargetAt(run.begin, y), m_sampler.Source().Row(row) + column, count);
    return true;
}

void SpanFiller::FillBlock(int y, int begin, int end, const CoverageRun& run)
{
    std::array<TexelPoint, kBlock> points;
    std::array<WideColour, kBlock> colours;
    const int count = end - begin;
    m_mapping.MapRow(begin, y, count, points.data());
    if (m_filter == Filter::WholeFootprint && !m_mapping.IsAffine()) {
        m_pattern = SamplePattern(m_mapping.TileFootprint(begin / kFootprintTile, y / kFootprintTile));
    }
    m_sampler.SampleRow(points.data(), count, m_pattern, colours.data());
    std::uint32_t* const target = TargetAt(begin, y);
    for (int i = 0; i < count; ++i) {
        const std::uint32_t coverage = run.each != nullptr ? run.each[begin + i - run.begin] : run.all;
        target[i] = (colours[static_cast<std::size_t>(i)] * coverage).Over(target[i]);
    }
}

} // namespace orvane::raster
