// SPDX-License-Identifier: MIT
#include "animation/object.h"

#include "geometry/drawing_state.h"
#include "geometry/lifetime.h"
#include "geometry/list_walk.h"
#include "geometry/projected.h"
#include "host/globals.h"
#include "host/polygon_render.h"
#include "host/rect.h"
#include "scene/scene_handler.h"

#include <memory>

namespace
{

constexpr long kNotDrawnYet = -1;

} // namespace

CObject::CObject()
{
    auto clip = std::make_unique<CRect>();
    clip->Set(kNotDrawnYet, kNotDrawnYet, kNotDrawnYet, kNotDrawnYet);
    m_clearPoly = new CPolygon;
    m_clearPoly->m_owner = this;
    m_clip = clip.release();
}

CObject::~CObject()
{
    ObjectLives().Ended(this);
    if (m_keeper != nullptr) {
        m_keeper->Ended(this);
    }
    LeaveAllScenes();
    DeletePolygons();
    delete m_clip;
    delete m_clearPoly;
}

template <typename Action> void CObject::EveryPolygon(Action action)
{
    for (CPolygon* polygon : TypedWalk<CPolygon>(m_polygons)) {
        action(*polygon);
    }
}

void CObject::LeaveAllScenes()
{
    // Leaving a scene shortens the list, so there is no walk over it.
    for (m_scenes.First(); m_scenes.Exists() != 0; m_scenes.First()) {
        DettachFromScene(UnderCursor<CSceneHandler>(m_scenes));
    }
}

void CObject::DeletePolygons()
{
    EveryPolygon([](CPolygon& polygon) { delete &polygon; });
    m_polygons.KillAll();
}

long CObject::AddPolygon(CPolygon* polygon)
{
    if (polygon == nullptr || polygon == m_clearPoly || (polygon->m_owner != nullptr && polygon->m_owner != this)) {
        return 0;
    }
    polygon->SetParent(this);
    const long inserted = m_polygons.IfNotInsertLast(polygon);
    try {
        for (CSceneHandler* scene : TypedWalk<CSceneHandler>(m_scenes)) {
            scene->AddPolygon(polygon);
        }
    } catch (...) {
        if (inserted != 0) {
            GiveBack(polygon);
        }
        throw;
    }
    polygon->m_owner = this;
    return inserted;
}

/// Takes out the polygon that could not be added to every scene: it stays the caller's.
void CObject::GiveBack(CPolygon* polygon)
{
    for (CSceneHandler* scene : TypedWalk<CSceneHandler>(m_scenes)) {
        scene->RemovePolygon(polygon);
    }
    m_polygons.DeleteItem(polygon);
}

CPolygon* CObject::GetFrontPoly()
{
    m_polygons.Last();
    return UnderCursor<CPolygon>(m_polygons);
}

void CObject::SetPosition(double x, double y, double z)
{
    m_position[0] = x;
    m_position[1] = y;
    m_position[2] = z;
    EveryPolygon([&](CPolygon& polygon) { polygon.SetPosition(x, y, z); });
}

void CObject::GetPosition(double& x, double& y, double& z) const
{
    x = m_position[0];
    y = m_position[1];
    z = m_position[2];
}

void CObject::SetRotate(double x, double y, double z)
{
    m_rotate[0] = x;
    m_rotate[1] = y;
    m_rotate[2] = z;
    EveryPolygon([&](CPolygon& polygon) { polygon.SetRotate(x, y, z); });
}

void CObject::GetRotate(double& x, double& y, double& z) const
{
    x = m_rotate[0];
    y = m_rotate[1];
    z = m_rotate[2];
}

void CObject::SetScale(double scale)
{
    m_scale = scale;
    EveryPolygon([scale](CPolygon& polygon) { polygon.SetScale(scale); });
}

void CObject::GetScale(double& scale) const
{
    scale = m_scale;
}

void CObject::On()
{
    EveryPolygon([](CPolygon& polygon) { polygon.On(); });
}

void CObject::Off()
{
    EveryPolygon([](CPolygon& polygon) { polygon.Off(); });
}

void CObject::StampObject()
{
    EveryPolygon([](CPolygon& polygon) { polygon.SetStamp(1); });
}

void CObject::SetCamera(CCamera* camera)
{
    EveryPolygon([camera](CPolygon& polygon) { polygon.m_camera = camera; });
}

long CObject::AttachToScene(CSceneHandler* scene)
{
    if (scene == nullptr) {
        return 0;
    }
    const long inserted = m_scenes.IfNotInsertLast(scene);
    try {
        scene->m_attached.IfNotInsertLast(this);
    } catch (...) {
        // Each knows of the other, or neither does.
        m_scenes.DeleteItem(scene);
        throw;
    }
    EveryPolygon([scene](CPolygon& polygon) { scene->AddPolygon(&polygon); });
    return inserted;
}

void CObject::DettachFromScene(CSceneHandler* scene)
{
    if (scene == nullptr) {
        return;
    }
    EveryPolygon([scene](CPolygon& polygon) { scene->RemovePolygon(&polygon); });
    scene->m_attached.DeleteItem(this);
    m_scenes.DeleteItem(scene);
}

int CObject::IsPointInside(long x, long y, CSceneHandler* scene)
{
    CCamera* const camera = scene != nullptr ? scene->GetActiveCamera() : nullptr;
    for (CPolygon* polygon : TypedWalk<CPolygon>(m_polygons)) {
        if (polygon->OnFlag() == 0) {
            continue;
        }
        const Projected projected(*polygon, camera);
        if (polygon->IsPointInside(x, y) != 0) {
            return 1;
        }
    }
    return 0;
}

void CObject::SetClearPoly(CPolygon* polygon)
{
    m_clearPoly->Clone(polygon);
}

void CObject::Clone(CObject* source)
{
    if (source == nullptr || source == this) {
        return;
    }
    constexpr int kCardPolygons = 2;
    LeaveAllScenes();
    DeletePolygons();
    int copied = 0;
    for (CPolygon* polygon : TypedWalk<CPolygon>(source->m_polygons)) {
        if (copied++ == kCardPolygons) {
            break;
        }
        auto copy = std::make_unique<CPolygon>();
        copy->Clone(polygon);
        AddPolygon(copy.get());
        copy.release();
    }
    for (int axis = 0; axis < 3; ++axis) {
        m_position[axis] = 0.0;
        m_rotate[axis] = 0.0;
    }
    m_scale = 1.0;
    SetClearPoly(source->GetClearPoly());
    m_clip->Copy(source->m_clip);
}

void CObject::Draw(CSceneHandler* scene, Bitmap* bitmap)
{
    if (scene == nullptr || bitmap == nullptr) {
        return;
    }
    for (CPolygon* polygon : TypedWalk<CPolygon>(m_polygons)) {
        if (polygon->OnFlag() == 0) {
            continue;
        }
        const Projected projected(*polygon, scene->GetActiveCamera());
        if (polygon->IsStamp() != 0) {
            glb->polygonRender->SetRenderState(kDrawingState, scene->m_stampMode);
            polygon->DrawToSurface(bitmap, m_clip);
            if (CObject* const parent = polygon->GetParent()) {
                parent->SetClearPoly(polygon);
            }
        } else {
            glb->polygonRender->SetRenderState(kDrawingState, kDrawForMotion);
            polygon->DrawToSurface(bitmap, nullptr);
        }
    }
}
