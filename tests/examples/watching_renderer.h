// SPDX-License-Identifier: MIT
#pragma once

#include "host/polygon_render.h"

#include <array>

/// Stands before the host's renderer and counts what is drawn.
class WatchingRenderer final : public PolygonRender
{
public:
    WatchingRenderer();
    ~WatchingRenderer() override;

    int Draws() const { return m_draws; }
    /// Draws of quadrilaterals that a card standing edge-on gives: without area.
    int EdgeOnDraws() const { return m_edgeOnDraws; }

    void SetTexture(Bitmap* texture) override { m_behind.SetTexture(texture); }
    void SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3) override
    {
        m_behind.SetTexCoords(u0, v0, u1, v1, u2, v2, u3, v3);
    }
    void SetVertices(long x0, long y0, float z0, long x1, long y1, float z1, long x2, long y2, float z2, long x3,
                     long y3, float z3) override;
    int IsPointInside(long x, long y) override { return m_behind.IsPointInside(x, y); }
    void SetRenderState(long state, long value) override { m_behind.SetRenderState(state, value); }
    void Draw(Bitmap* target, CRect*& clip) override;
    CRect* GetBoundingBox() override { return m_behind.GetBoundingBox(); }
    CRect* GetLastDrawnRect() override { return m_behind.GetLastDrawnRect(); }

private:
    PolygonRender& m_behind;
    std::array<long, 8> m_vertices{}; ///< x0, y0, x1, y1, ...
    int m_draws = 0;
    int m_edgeOnDraws = 0;
};
