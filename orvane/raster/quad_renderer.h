// SPDX-License-Identifier: MIT
#pragma once

#include "host/polygon_render.h"
#include "host/rect.h"
#include "orvane/raster/cache_warmer.h"
#include "orvane/raster/fast_quad.h"
#include "orvane/raster/quad_geometry.h"
#include "orvane/raster/quad_mapping.h"
#include "orvane/raster/row_coverage.h"
#include "orvane/raster/span_filler.h"
#include "orvane/raster/upright_quad.h"

#include <array>
#include <cstddef>

class Bitmap;

namespace orvane::raster
{

/// The host's renderer. A default-constructed one allocates nothing until its first draw; drawing then allocates only
/// when a wider target or a filtered copy needs it. Draw throws std::bad_alloc when its row buffers can't grow, and has
/// then changed nothing; without memory for a filtered copy it draws from the unfiltered picture.
///
/// All arguments are taken as 32-bit values. A quadrilateral costs its covered pixels and, for each row of the target
/// that it reaches, its four edges, however far away its corners are.
class QuadRenderer final : public PolygonRender
{
public:
    QuadRenderer() = default;
    QuadRenderer(const QuadRenderer&) = delete;
    QuadRenderer& operator=(const QuadRenderer&) = delete;

    void SetTexture(Bitmap* texture) override { m_texture = texture; }
    /// The last 1/65536 before a whole texel stands for the whole: a picture's far edge is handed in as n * 65536 - 1.
    void SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3) override;
    void SetVertices(long x0, long y0, float z0, long x1, long y1, float z1, long x2, long y2, float z2, long x3,
                     long y3, float z3) override;
    int IsPointInside(long x, long y) override;
    void SetRenderState(long state, long value) override;
    void Draw(Bitmap* target, CRect*& clip) override;
    /// From the smallest coordinates to the largest: the corners furthest right and down lie on its right and bottom.
    CRect* GetBoundingBox() override;
    CRect* GetLastDrawnRect() override;

private:
    static constexpr std::size_t kMostTiles = kMostFastPixels / kFootprintTile + 1;

    void DrawInto(Bitmap& target);
    bool DrawUpright(Bitmap& target, const PixelRange& pixels);
    bool DrawFast(Bitmap& target, const CornerBounds& bounds, const PixelRange& pixels);
    void DrawFiltered(QuadJob& job, const QuadMapping& mapping);
    void DrawPlainly(Bitmap& target, const CornerBounds& bounds, const PixelRange& pixels);
    void RecordArea(const DrawnArea& area, const Origin& origin);
    void Record(int y, int begin, int end);

    Bitmap* m_texture = nullptr; ///< not owned
    TexelCorners m_texels{};
    Quad m_quad{};
    Filter m_filter = Filter::OneSample;
    RowCoverage m_coverage;
    CacheWarmer m_cacheWarmer;
    std::array<JobPattern, kMostTiles> m_patterns; ///< of a row of tiles
    CRect m_boundingBox;
    CRect m_lastDrawn; ///< empty when nothing was
};

} // namespace orvane::raster
