// SPDX-License-Identifier: MIT
#include "tests/examples/watching_renderer.h"

#include "host/globals.h"

WatchingRenderer::WatchingRenderer() : m_behind(*glb->polygonRender)
{
    glb->polygonRender = this;
}

WatchingRenderer::~WatchingRenderer()
{
    glb->polygonRender = &m_behind;
}

void WatchingRenderer::SetVertices(long x0, long y0, float z0, long x1, long y1, float z1, long x2, long y2, float z2,
                                   long x3, long y3, float z3)
{
    m_vertices = {x0, y0, x1, y1, x2, y2, x3, y3};
    m_behind.SetVertices(x0, y0, z0, x1, y1, z1, x2, y2, z2, x3, y3, z3);
}

void WatchingRenderer::Draw(Bitmap* target, CRect*& clip)
{
    const auto& v = m_vertices;
    const long doubleArea = (v[4] - v[0]) * (v[7] - v[3]) - (v[6] - v[2]) * (v[5] - v[1]);
    m_edgeOnDraws += doubleArea == 0 ? 1 : 0;
    ++m_draws;
    m_behind.Draw(target, clip);
}
