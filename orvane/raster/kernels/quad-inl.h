// SPDX-License-Identifier: MIT
// Quadrilaterals, drawn strip by strip.
#pragma once

#include "orvane/raster/kernels/footprint-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane::raster
{
namespace
{

/// A quadrilateral is drawn in strips of so many columns by so many rows: what one row of a strip reads of the source,
/// even turned by a right angle, stays in the nearest cache for the next row.
constexpr int kStripColumns = 512;
constexpr int kStripRows = 32;

/// A row of the target where a row of the quadrilateral goes.
class TargetRow
{
public:
    HWY_INLINE TargetRow(const QuadJob& job, const CoverageRow& coverage, int y)
        : m_first(job.target + (job.originY + y) * job.targetStride + job.originX), m_coverage(coverage),
          m_fullBegin(coverage.fullBegin), m_fullEnd(coverage.fullEnd)
    {
    }
    /// Blends the colours of pixels from x on, of which the first count lie in the row.
    HWY_INLINE void Blend(int x, const Colours& colours, int count) const
    {
        if (x >= m_fullBegin && x + kStep <= m_fullEnd) {
            BlendInto(m_first + x, colours, count);
        } else {
            BlendInto(m_first + x, colours.Weighted(m_coverage.At(x)), count);
        }
    }

private:
    std::uint32_t* m_first; ///< it may lie outside the target
    const CoverageRow& m_coverage;
    int m_fullBegin;
    int m_fullEnd;
};

/// A part of a row of the quadrilateral.
struct RowPart {
    const CoverageRow& row;
    int y;
    int begin;
    int end;
};

/// One sample a pixel.
template <bool kAffine> void DrawSampled(const QuadJob& job, const RowPart& part, Chunk& chunk)
{
    static_assert(kStripColumns <= kChunk);
    const Locator locator(job);
    const PointMap<kAffine> map(job, part.row, part.y);
    const TargetRow target(job, part.row, part.y);
    const Fetcher fetcher(job);
    const int count = part.end - part.begin;
    auto columns = map.ColumnsFrom(part.begin);
    for (int i = 0; i < count; i += kStep) {
        locator.Note(map.At(columns), chunk, i);
        columns = hn::Add(columns, hn::Set(floats, static_cast<float>(kStep)));
    }
    for (int i = 0; i < count; i += kStep) {
        target.Blend(part.begin + i, Bilinear(fetcher, chunk, i), count - i);
    }
}

/// Samples all over each pixel's footprint.
template <bool kAffine> void DrawFiltered(const QuadJob& job, const RowPart& part, Chunk& chunk)
{
    static_assert(kStripColumns % QuadJob::kTile == 0);
    const FootprintSampler sampler(job, chunk);
    const PointMap<kAffine> map(job, part.row, part.y);
    const TargetRow target(job, part.row, part.y);
    for (int x = part.begin; x < part.end;) {
        const int tile = x / QuadJob::kTile;
        const int end = Least(part.end, (tile + 1) * QuadJob::kTile);
        const JobPattern& pattern = job.patterns[kAffine ? 0 : tile];
        for (; x < end; x += kStep) {
            target.Blend(x, sampler.Mean(pattern, map.At(map.ColumnsFrom(x))), end - x);
        }
        x = end;
    }
}

/// Rows that are drawn together.
struct Band {
    CoverageRow rows[kStripRows]; ///< of which those with nothing in them have begin = end
    int left;
    int right;
};

template <bool kAffine> void DrawBand(const QuadJob& job, const Band& band, int top, int bottom, Chunk& chunk)
{
    for (int strip = band.left / kStripColumns * kStripColumns; strip < band.right; strip += kStripColumns) {
        for (int y = top; y < bottom; ++y) {
            const CoverageRow& row = band.rows[y - top];
            const RowPart part{row, y, Most(row.begin, strip), Least(row.end, strip + kStripColumns)};
            if (part.begin >= part.end) {
                continue;
            }
            if (job.patterns == nullptr) {
                DrawSampled<kAffine>(job, part, chunk);
            } else {
                DrawFiltered<kAffine>(job, part, chunk);
            }
        }
    }
}

template <bool kAffine> DrawnArea DrawRows(const QuadJob& job)
{
    DrawnArea drawn{job.right, 0, job.left, 0};
    CoverageWalk walk(job);
    Chunk chunk;
    Band band;
    for (int top = job.top; top < job.bottom; top += kStripRows) {
        const int bottom = Least(top + kStripRows, job.bottom);
        band.left = job.right;
        band.right = job.left;
        for (int y = top; y < bottom; ++y) {
            CoverageRow& row = band.rows[y - top];
            if (!walk.Row(y, row)) {
                row.begin = row.end = 0;
                continue;
            }
            if (drawn.bottom == 0) {
                drawn.top = y;
            }
            drawn.bottom = y + 1;
            band.left = Least(band.left, row.begin);
            band.right = Most(band.right, row.end);
        }
        DrawBand<kAffine>(job, band, top, bottom, chunk);
        drawn.left = Least(drawn.left, band.left);
        drawn.right = Most(drawn.right, band.right);
    }
    return drawn;
}

DrawnArea DrawQuadOf(const QuadJob& job)
{
    return job.affine ? DrawRows<true>(job) : DrawRows<false>(job);
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
