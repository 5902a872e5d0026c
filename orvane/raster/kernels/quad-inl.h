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
    int strip; ///< the first column of its strip
    int begin;
    int end;
};

HWY_INLINE void BlendSamples(const QuadJob& job, const Fetcher& fetcher, const RowPart& part, const Chunk& chunk)
{
    const TargetRow target(job, part.row, part.y);
    const int count = part.end - part.begin;
    for (int i = 0; i < count; i += kStep) {
        target.Blend(part.begin + i, Bilinear(fetcher, chunk, i), count - i);
    }
}

/// One sample a pixel, of a map with or without perspective.
template <bool kAffine> class SampledRows
{
public:
    SampledRows(const QuadJob& job, Chunk& chunk) : m_job(job), m_locator(job), m_fetcher(job), m_chunk(chunk) {}

    HWY_INLINE void Draw(const RowPart& part) const
    {
        static_assert(kStripColumns <= kChunk);
        const PointMap<kAffine> map(m_job, part.row, part.y);
        const int count = part.end - part.begin;
        auto columns = map.ColumnsFrom(part.begin);
        for (int i = 0; i < count; i += kStep) {
            m_locator.Note(map.At(columns), m_chunk, i);
            columns = hn::Add(columns, hn::Set(floats, static_cast<float>(kStep)));
        }
        BlendSamples(m_job, m_fetcher, part, m_chunk);
    }

private:
    const QuadJob& m_job;
    Locator m_locator;
    Fetcher m_fetcher;
    Chunk& m_chunk;
};

/// The same for a map without perspective, of a size that fixed point is exact enough for.
class FixedRows
{
public:
    FixedRows(const QuadJob& job, Chunk& chunk) : m_job(job), m_locator(job), m_fetcher(job), m_chunk(chunk) {}

    HWY_INLINE void Draw(const RowPart& part) const
    {
        const int anchor = Most(part.row.leftmost, part.strip);
        m_locator.NoteRow(anchor, part.y, part.begin, part.end - part.begin, m_chunk);
        BlendSamples(m_job, m_fetcher, part, m_chunk);
    }

private:
    const QuadJob& m_job;
    FixedLocator m_locator;
    Fetcher m_fetcher;
    Chunk& m_chunk;
};

/// Samples all over each pixel's footprint.
template <bool kAffine> class FilteredRows
{
public:
    FilteredRows(const QuadJob& job, Chunk& chunk) : m_job(job), m_sampler(job, chunk) {}

    HWY_INLINE void Draw(const RowPart& part) const
    {
        static_assert(kStripColumns % QuadJob::kTile == 0);
        const PointMap<kAffine> map(m_job, part.row, part.y);
        const TargetRow target(m_job, part.row, part.y);
        for (int x = part.begin; x < part.end;) {
            const int tile = x / QuadJob::kTile;
            const int end = Least(part.end, (tile + 1) * QuadJob::kTile);
            const JobPattern& pattern = m_job.patterns[kAffine ? 0 : tile];
            for (; x < end; x += kStep) {
                target.Blend(x, m_sampler.Mean(pattern, map.At(map.ColumnsFrom(x))), end - x);
            }
            x = end;
        }
    }

private:
    const QuadJob& m_job;
    FootprintSampler m_sampler;
};

/// Rows that are drawn together.
struct Band {
    CoverageRow rows[kStripRows]; ///< of which those with nothing in them have begin = end
    int left;
    int right;
};

template <typename Rows> HWY_INLINE void DrawBand(const Rows& rows, const Band& band, int top, int bottom)
{
    for (int strip = band.left / kStripColumns * kStripColumns; strip < band.right; strip += kStripColumns) {
        for (int y = top; y < bottom; ++y) {
            const CoverageRow& row = band.rows[y - top];
            const RowPart part{row, y, strip, Most(row.begin, strip), Least(row.end, strip + kStripColumns)};
            if (part.begin < part.end) {
                rows.Draw(part);
            }
        }
    }
}

template <typename Rows> DrawnArea DrawRows(const QuadJob& job)
{
    DrawnArea drawn{job.right, 0, job.left, 0};
    CoverageWalk walk(job);
    Chunk chunk;
    const Rows rows(job, chunk);
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
        DrawBand(rows, band, top, bottom);
        drawn.left = Least(drawn.left, band.left);
        drawn.right = Most(drawn.right, band.right);
    }
    return drawn;
}

DrawnArea DrawQuadOf(const QuadJob& job)
{
    if (job.patterns != nullptr) {
        return job.affine ? DrawRows<FilteredRows<true>>(job) : DrawRows<FilteredRows<false>>(job);
    }
    if (job.fixedSize) {
        return DrawRows<FixedRows>(job);
    }
    return job.affine ? DrawRows<SampledRows<true>>(job) : DrawRows<SampledRows<false>>(job);
}

} // namespace
} // namespace orvane::raster
HWY_AFTER_NAMESPACE();
