// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/quad_mapping.h"
#include "orvane/raster/row_coverage.h"
#include "orvane/raster/sampler.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace orvane::raster
{

/// How a picture is read where it is shrunk.
enum class Filter {
    OneSample,     ///< one bilinear sample a pixel
    WholeFootprint ///< as many as the footprint of the pixel needs
};

/// The one place where pixels of a quadrilateral are made: position, sample, coverage, source-over. A faster filler
/// takes its place by this class, and is compared with it.
class SpanFiller
{
public:
    /// The target's pixels and their row length. The mapping leads from pixels, counted from the origin, to the
    /// sampler's source; columns and rows of runs count from there too.
    SpanFiller(std::uint32_t* target, std::ptrdiff_t stride, const Origin& origin, const QuadMapping& mapping,
               const Sampler& sampler, Filter filter);

    void Fill(int y, const CoverageRun& run);

private:
    std::uint32_t* TargetAt(int x, int y) const;
    bool CopyTexels(int y, const CoverageRun& run) const;
    void FillBlock(int y, int begin, int end, const CoverageRun& run);

    std::uint32_t* m_target;
    std::ptrdiff_t m_stride;
    Origin m_origin;
    const QuadMapping& m_mapping;
    const Sampler& m_sampler;
    Filter m_filter;
    std::optional<TexelOffset> m_translation;
    SamplePattern m_pattern;
};

} // namespace orvane::raster
