// SPDX-License-Identifier: MIT
#include "orvane/raster/quad_renderer.h"

#include "host/bitmap.h"
#include "orvane/pixel.h"
#include "orvane/raster/copy_choice.h"
#include "orvane/raster/filtered_copies.h"
#include "orvane/raster/kernels.h"
#include "orvane/raster/renderer_choice.h"
#include "orvane/raster/texel_source.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace orvane::raster
{

namespace
{

std::int32_t Wrapped(long value)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

double Texels(long value)
{
    constexpr std::int64_t one = 65536;
    std::int64_t fixed = Wrapped(value);
    if ((fixed & (one - 1)) == one - 1) {
        ++fixed;
    }
    return static_cast<double>(fixed) / static_cast<double>(one);
}

/// The rectangle of the picture that the corners span.
struct TexelRange {
    TexelPoint least;
    TexelPoint most;
};

TexelRange RangeOf(const TexelCorners& texels)
{
    const auto [left, right] = std::minmax({texels[0].u, texels[1].u, texels[2].u, texels[3].u});
    const auto [top, bottom] = std::minmax({texels[0].v, texels[1].v, texels[2].v, texels[3].v});
    return {{left, top}, {right, bottom}};
}

/// The whole texels that the range reaches into; at least one on each axis, the nearest when it lies outside.
TexelWindow WindowOf(const TexelRange& range, const Bitmap& picture)
{
    const auto first = [](double least, int size) {
        return static_cast<int>(std::clamp<double>(std::floor(least), 0, size - 1));
    };
    const auto count = [](double most, int begin, int size) {
        return static_cast<int>(std::clamp<double>(std::ceil(most), begin + 1, size)) - begin;
    };
    const int left = first(range.least.u, picture.Width());
    const int top = first(range.least.v, picture.Height());
    return {left, top, count(range.most.u, left, picture.Width()), count(range.most.v, top, picture.Height())};
}

/// What a point of the bitmap becomes in a source that shows a window of it.
class SourceSpace
{
public:
    SourceSpace(const TexelWindow& window, const TexelSource& source)
        : m_window(window), m_scaleU(static_cast<double>(source.width) / window.width),
          m_scaleV(static_cast<double>(source.height) / window.height)
    {
    }
    TexelPoint operator()(TexelPoint point) const
    {
        return {(point.u - m_window.left) * m_scaleU, (point.v - m_window.top) * m_scaleV};
    }

private:
    TexelWindow m_window;
    double m_scaleU;
    double m_scaleV;
};

TexelSource SourceOf(const Bitmap& picture, const TexelWindow& window, const Footprint& footprint, Filter filter)
{
    const std::optional<CopyRequest> request =
        filter == Filter::OneSample ? CopyForOneSample(window, footprint) : CopyForWholeFootprint(window, footprint);
    if (request) {
        if (const auto copy = FilteredCopy(picture, *request)) {
            return *copy;
        }
    }
    return PartOf(picture, window);
}

/// The part of a picture that a quadrilateral shows, in the copy that suits its size.
struct PictureView {
    TexelSource source;
    TexelCorners corners; ///< in texels of the source
    TexelPoint least;     ///< of the corners
    TexelPoint most;

    PictureView(const Bitmap& picture, const TexelCorners& texels, const Quad& quad, Filter filter)
    {
        const TexelRange range = RangeOf(texels);
        const TexelWindow window = WindowOf(range, picture);
        const Footprint footprint = QuadMapping(quad, texels).MiddleFootprint();
        source = SourceOf(picture, window, footprint, filter);
        const SourceSpace toSource(window, source);
        std::transform(texels.begin(), texels.end(), corners.begin(), toSource);
        least = toSource(range.least);
        most = toSource(range.most);
    }
};

/// The pixels of one axis that lie between two coordinates in half pixels, cut to the target.
struct PixelSpan {
    int begin;
    int end;
};

PixelSpan PixelsBetween(std::int32_t least, std::int32_t most, int size)
{
    const std::int64_t begin = std::int64_t{least} >> 1;
    const std::int64_t end = (std::int64_t{most} + 1) >> 1;
    return {static_cast<int>(std::clamp<std::int64_t>(begin, 0, size)),
            static_cast<int>(std::clamp<std::int64_t>(end, 0, size))};
}

} // namespace

void QuadRenderer::SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3)
{
    m_texels = {TexelPoint{Texels(u0), Texels(v0)}, TexelPoint{Texels(u1), Texels(v1)},
                TexelPoint{Texels(u2), Texels(v2)}, TexelPoint{Texels(u3), Texels(v3)}};
}

void QuadRenderer::SetVertices(long x0, long y0, float, long x1, long y1, float, long x2, long y2, float, long x3,
                               long y3, float)
{
    m_quad = {Corner{Wrapped(x0), Wrapped(y0)}, Corner{Wrapped(x1), Wrapped(y1)}, Corner{Wrapped(x2), Wrapped(y2)},
              Corner{Wrapped(x3), Wrapped(y3)}};
}

int QuadRenderer::IsPointInside(long x, long y)
{
    return Contains(m_quad, {Wrapped(x), Wrapped(y)}) ? 1 : 0;
}

void QuadRenderer::SetRenderState(long state, long value)
{
    if (Wrapped(state) == 1) {
        m_filter = Wrapped(value) == 0 ? Filter::OneSample : Filter::WholeFootprint;
    }
}

void QuadRenderer::Draw(Bitmap* target, CRect*& clip)
{
    m_lastDrawn.Set(0, 0, 0, 0);
    if (TwiceArea(m_quad) < 0) {
        return;
    }
    if (target != nullptr && m_texture != nullptr && m_texture->Width() > 0 && target->Width() > 0) {
        DrawInto(*target);
    }
    if (clip != nullptr) {
        clip->Set(m_lastDrawn.left, m_lastDrawn.top, m_lastDrawn.right, m_lastDrawn.bottom);
    }
}

void QuadRenderer::DrawInto(Bitmap& target)
{
    const CornerBounds bounds = BoundsOf(m_quad);
    const PixelSpan columns = PixelsBetween(bounds.left, bounds.right, target.Width());
    const PixelSpan rows = PixelsBetween(bounds.top, bounds.bottom, target.Height());
    if (columns.begin >= columns.end || rows.begin >= rows.end) {
        return;
    }
    const PixelRange pixels{columns.begin, rows.begin, columns.end, rows.end};
    const bool fast = CurrentRenderer() == Renderer::Fast;
    if (!fast || !(DrawUpright(target, pixels) || DrawFast(target, bounds, pixels))) {
        DrawPlainly(target, bounds, pixels);
    }
}

bool QuadRenderer::DrawUpright(Bitmap& target, const PixelRange& pixels)
{
    std::optional<UprightJob> job = RecogniseUpright(m_quad, m_texels, *m_texture, pixels);
    if (!job) {
        return false;
    }
    job->target = Pixels(target);
    job->targetStride = target.Width();
    CurrentKernels().drawUpright(*job);
    m_lastDrawn.Set(pixels.left, pixels.top, pixels.right, pixels.bottom);
    return true;
}

bool QuadRenderer::DrawFast(Bitmap& target, const CornerBounds& bounds, const PixelRange& pixels)
{
    if (!IsOfFastSize(bounds)) {
        return false;
    }
    const Origin origin = OriginOf(bounds);
    const Quad quad = MovedTo(m_quad, origin);
    const PictureView view(*m_texture, m_texels, quad, m_filter);
    const QuadMapping mapping(quad, view.corners);
    std::optional<QuadJob> job = MakeQuadJob(quad, mapping, view.source, view.least, view.most);
    if (!job) {
        return false;
    }
    m_cacheWarmer.Read(view.source, std::int64_t{pixels.right - pixels.left} * (pixels.bottom - pixels.top));
    job->left = pixels.left - origin.x;
    job->top = pixels.top - origin.y;
    job->right = pixels.right - origin.x;
    job->bottom = pixels.bottom - origin.y;
    job->target = Pixels(target);
    job->targetStride = target.Width();
    job->originX = origin.x;
    job->originY = origin.y;
    if (m_filter == Filter::OneSample) {
        RecordArea(CurrentKernels().drawQuad(*job), origin);
    } else {
        DrawFiltered(*job, mapping);
    }
    return true;
}

void QuadRenderer::DrawFiltered(QuadJob& job, const QuadMapping& mapping)
{
    const Origin origin{job.originX, job.originY};
    job.patterns = m_patterns.data();
    if (mapping.IsAffine()) {
        const SamplePattern pattern(mapping.MiddleFootprint());
        m_patterns[0] = MakeJobPattern(pattern);
        if (pattern.Count() == 1) {
            job.patterns = nullptr;
        }
        RecordArea(CurrentKernels().drawQuad(job), origin);
        return;
    }
    const int bottom = job.bottom;
    for (int row = job.top / kFootprintTile; job.top < bottom; ++row) {
        job.bottom = std::min((row + 1) * kFootprintTile, bottom);
        for (int column = job.left / kFootprintTile; column * kFootprintTile < job.right; ++column) {
            m_patterns[static_cast<std::size_t>(column)] =
                MakeJobPattern(SamplePattern(mapping.TileFootprint(column, row)));
        }
        RecordArea(CurrentKernels().drawQuad(job), origin);
        job.top = job.bottom;
    }
}

/// Takes the area into the drawn rectangle. Areas come from top to bottom.
void QuadRenderer::RecordArea(const DrawnArea& area, const Origin& origin)
{
    if (area.left >= area.right) {
        return;
    }
    Record(area.top + origin.y, area.left + origin.x, area.right + origin.x);
    m_lastDrawn.bottom = area.bottom + origin.y;
}

void QuadRenderer::DrawPlainly(Bitmap& target, const CornerBounds& bounds, const PixelRange& pixels)
{
    const Origin origin = OriginOf(bounds);
    const Quad quad = MovedTo(m_quad, origin);
    m_coverage.Start(quad, pixels.left - origin.x, pixels.right - origin.x);
    const PictureView view(*m_texture, m_texels, quad, m_filter);
    const QuadMapping mapping(quad, view.corners);
    const Sampler sampler(view.source, view.least, view.most);
    SpanFiller filler(Pixels(target), target.Width(), origin, mapping, sampler, m_filter);
    for (int y = pixels.top; y < pixels.bottom; ++y) {
        m_coverage.ForEachRun(y - origin.y, [&](const CoverageRun& run) {
            Record(y, run.begin + origin.x, run.end + origin.x);
            filler.Fill(y - origin.y, run);
        });
    }
}

/// Takes the run into the drawn rectangle. Rows come from top to bottom.
void QuadRenderer::Record(int y, int begin, int end)
{
    CRect& drawn = m_lastDrawn;
    if (drawn.right == 0) {
        drawn.Set(begin, y, end, y + 1);
    } else {
        drawn.Set(std::min<long>(drawn.left, begin), drawn.top, std::max<long>(drawn.right, end), y + 1);
    }
}

CRect* QuadRenderer::GetBoundingBox()
{
    const CornerBounds bounds = BoundsOf(m_quad);
    m_boundingBox.Set(bounds.left, bounds.top, bounds.right, bounds.bottom);
    return &m_boundingBox;
}

CRect* QuadRenderer::GetLastDrawnRect()
{
    return m_lastDrawn.right == 0 ? nullptr : &m_lastDrawn;
}

} // namespace orvane::raster
