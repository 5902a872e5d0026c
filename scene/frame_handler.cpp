// SPDX-License-Identifier: MIT
// One frame of the scene: its polygons drawn, the drawn rectangles recorded.
#include "animation/object.h"
#include "geometry/drawing_state.h"
#include "geometry/list_walk.h"
#include "geometry/projected.h"
#include "host/globals.h"
#include "host/polygon_render.h"
#include "scene/depth_sort.h"
#include "scene/scene_handler.h"

#include <memory>

void CSceneHandler::Handler()
{
    UpdateAllMoves();
    m_spareRects.splice(m_spareRects.end(), m_lastDrawnRects);
    if (m_sortByDepth == 0) {
        DrawInListOrder();
    } else {
        DrawFarToNear();
    }
}

void CSceneHandler::DrawInListOrder()
{
    for (CPolygon* polygon : TypedWalk<CPolygon>(m_polygons)) {
        if (polygon->OnFlag() == 0) {
            continue;
        }
        const Projected projected(*polygon, m_activeCamera);
        DrawStep(*polygon);
    }
}

void CSceneHandler::DrawFarToNear()
{
    const auto listed = static_cast<std::size_t>(m_polygons.GetNumNodes());
    // One array for the frame: the visible polygons, and behind them the sort's scratch.
    const std::unique_ptr<DepthEntry[]> entries(new DepthEntry[listed + DepthSortScratch(listed)]);
    std::size_t visible = 0;
    for (CPolygon* polygon : TypedWalk<CPolygon>(m_polygons)) {
        if (polygon->OnFlag() == 0) {
            continue;
        }
        polygon->RotatePolygon();
        polygon->Project(m_activeCamera);
        entries[visible++] = {polygon->m_depth, polygon};
        if (CObject* const parent = polygon->GetParent()) {
            parent->GetClip()->Set(0, 0, 0, 0);
        }
    }
    SortFarToNear(entries.get(), visible, entries.get() + listed);
    std::size_t next = 0;
    const auto resetNext = [&] { entries[next++].polygon->ResetCoords(); };
    try {
        while (next < visible) {
            DrawStep(*entries[next].polygon);
            resetNext();
        }
    } catch (...) {
        while (next < visible) {
            resetNext();
        }
        throw;
    }
}

void CSceneHandler::DrawStep(CPolygon& polygon)
{
    glb->polygonRender->SetRenderState(kDrawingState, kDrawForMotion);
    if (polygon.IsStamp() == 0) {
        DrawPolygon(polygon);
        return;
    }
    // Cleared before the draws, so that the copy kept as the clear polygon is no stamp.
    polygon.SetStamp(0);
    if (m_skipStampDrawBefore == 0) {
        DrawPolygon(polygon);
    }
    glb->polygonRender->SetRenderState(kDrawingState, m_stampMode);
    if (m_skipStampDrawAfter == 0) {
        DrawPolygon(polygon);
    }
    if (CObject* const parent = polygon.GetParent()) {
        parent->SetClearPoly(&polygon);
    }
}

/// What cannot be recorded would never be erased, so this comes before the drawing.
void CSceneHandler::ReserveRecord()
{
    if (m_spareRects.empty()) {
        m_spareRects.emplace_back();
    }
}

void CSceneHandler::DrawPolygon(CPolygon& polygon)
{
    ReserveRecord();
    if (m_targetBitmap != nullptr) {
        CObject* const parent = polygon.GetParent();
        polygon.DrawToSurface(m_targetBitmap, parent != nullptr ? parent->GetClip() : nullptr);
    }
    PushLastDrawnRect();
}

void CSceneHandler::PushLastDrawnRect()
{
    CRect* const drawn = glb->polygonRender->GetLastDrawnRect();
    if (drawn != nullptr) {
        ReserveRecord();
        m_spareRects.front().Copy(drawn);
        m_lastDrawnRects.splice(m_lastDrawnRects.end(), m_spareRects, m_spareRects.begin());
    }
}
