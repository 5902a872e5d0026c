// SPDX-License-Identifier: MIT
#include "orvane/raster/fast_quad.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvane::raster
{

static_assert(QuadJob::kTile == kFootprintTile);

namespace
{

/// The places of texels in the kernels.
constexpr double kUnit = 32768;

JobEdge EdgeBetween(Corner upper, Corner lower)
{
    JobEdge edge{};
    edge.top = upper.y * 0.5;
    edge.bottom = lower.y * 0.5;
    edge.x = upper.x * 0.5;
    edge.slope = (lower.x * 0.5 - edge.x) / (edge.bottom - edge.top);
    edge.least = std::min(upper.x, lower.x) * 0.5;
    edge.most = std::max(upper.x, lower.x) * 0.5;
    return edge;
}

/// One side of the outline. Clockwise, its edges lead upwards on the left and downwards on the right, and each chain
/// comes whole when the walk begins at the chain's first corner.
void TakeChain(const Quad& quad, bool leftSide, JobEdge* edges)
{
    int count = 0;
    for (std::size_t i = 0; i < quad.size(); ++i) {
        const Corner from = quad[i];
        const Corner to = quad[(i + 1) % quad.size()];
        if (leftSide && to.y < from.y) {
            edges[count++] = EdgeBetween(to, from);
        } else if (!leftSide && from.y < to.y) {
            edges[count++] = EdgeBetween(from, to);
        }
    }
    std::sort(edges, edges + count, [](const JobEdge& a, const JobEdge& b) { return a.top < b.top; });
    for (JobEdge ended = edges[count - 1]; count < QuadJob::kMaxEdges; ++count) {
        ended.top = ended.bottom;
        edges[count] = ended;
    }
}

/// Divided by w, it gives places from the source's corner.
JobPlane NumeratorPlane(const QuadMapping::Linear& numerator)
{
    return {numerator.x * kUnit, numerator.y * kUnit, numerator.constant * kUnit};
}

/// The centre of a pixel that is covered lies less than a pixel outside the quadrilateral.
bool FitsFixed(const JobPlane& plane, int size)
{
    return size + 1 + (std::abs(plane.x) + std::abs(plane.y)) / kUnit < QuadJob::kMostFixed;
}

struct ReadRange {
    float least;
    float most;
};

/// The last place lies before the last texel, so that each texel read has a neighbour behind it.
ReadRange ReadRangeOf(double least, double most, int size)
{
    const float last = std::nextafter(static_cast<float>((size - 1) * kUnit), 0.0F);
    const auto place = [last](double texel) {
        return static_cast<float>(std::clamp<double>((texel - 0.5) * kUnit, 0, last));
    };
    return {place(least), std::max(place(least), place(most))};
}

/// Relative to texel centres, as all places.
float BorderAt(double texel)
{
    return static_cast<float>((texel - 0.5) * kUnit);
}

} // namespace

bool IsOfFastSize(const CornerBounds& bounds)
{
    constexpr std::int64_t mostHalfPixels = 2 * (kMostFastPixels - 1);
    return std::int64_t{bounds.right} - bounds.left <= mostHalfPixels &&
           std::int64_t{bounds.bottom} - bounds.top <= mostHalfPixels;
}

std::optional<QuadJob> MakeQuadJob(const Quad& quad, const QuadMapping& mapping, const TexelSource& source,
                                   TexelPoint least, TexelPoint most)
{
    const QuadMapping::Plane* const plane = mapping.ProjectivePlane();
    if (plane == nullptr || std::min(source.width, source.height) < 2 ||
        std::max(source.width, source.height) > kMostFastTexels) {
        return std::nullopt;
    }
    QuadJob job{};
    TakeChain(quad, true, job.leftEdges);
    TakeChain(quad, false, job.rightEdges);
    job.source = source.pixels;
    job.sourceStride = source.stride;
    job.u = NumeratorPlane(plane->u);
    job.v = NumeratorPlane(plane->v);
    job.w = {plane->w.x, plane->w.y, plane->w.constant};
    job.affine = mapping.IsAffine();
    if (job.affine) {
        job.u.constant -= kUnit / 2;
        job.v.constant -= kUnit / 2;
    }
    job.fixedSize = job.affine && FitsFixed(job.u, source.width) && FitsFixed(job.v, source.height);
    const ReadRange u = ReadRangeOf(least.u, most.u, source.width);
    const ReadRange v = ReadRangeOf(least.v, most.v, source.height);
    job.leastU = u.least;
    job.mostU = u.most;
    job.leastV = v.least;
    job.mostV = v.most;
    job.leastW = static_cast<float>(mapping.LeastWeight());
    job.borderLeastU = BorderAt(least.u);
    job.borderMostU = BorderAt(most.u);
    job.borderLeastV = BorderAt(least.v);
    job.borderMostV = BorderAt(most.v);
    return job;
}

JobPattern MakeJobPattern(const SamplePattern& pattern)
{
    const auto units = [](double texels) { return static_cast<float>(texels * kUnit); };
    const auto reach = [&](double across, double down) {
        return units((std::abs(across) * (pattern.Columns() - 1) + std::abs(down) * (pattern.Rows() - 1)) / 2);
    };
    const TexelPoint first = pattern.First();
    const TexelPoint across = pattern.AcrossStep();
    const TexelPoint down = pattern.DownStep();
    return {pattern.Columns(), pattern.Rows(), units(first.u), units(first.v),          units(across.u),
            units(across.v),   units(down.u),  units(down.v),  reach(across.u, down.u), reach(across.v, down.v)};
}

} // namespace orvane::raster
