// SPDX-License-Identifier: MIT
// The scene's record: its registers, copies and end.
#include "scene/scene_handler.h"

#include "animation/object.h"
#include "geometry/int32.h"
#include "geometry/list_walk.h"
#include "geometry/polygon.h"

#include <memory>

CSceneHandler::PolygonWatch::PolygonWatch(CSceneHandler& scene) : m_scene(scene)
{
    PolygonLives().Add(*this);
}

CSceneHandler::PolygonWatch::~PolygonWatch()
{
    PolygonLives().Remove(*this);
}

void CSceneHandler::PolygonWatch::Ended(const void* thing) noexcept
{
    m_scene.m_polygons.DeleteItem(const_cast<void*>(thing));
}

CSceneHandler::CSceneHandler() = default;

CSceneHandler::CSceneHandler(const CSceneHandler& other) : CSceneHandler()
{
    *this = other;
}

CSceneHandler& CSceneHandler::operator=(const CSceneHandler& other)
{
    if (this == &other) {
        return *this;
    }
    m_stampMode = other.m_stampMode;
    m_skipStampDrawBefore = other.m_skipStampDrawBefore;
    m_skipStampDrawAfter = other.m_skipStampDrawAfter;
    m_sortByDepth = other.m_sortByDepth;
    m_polygons = other.m_polygons;
    m_cameras = other.m_cameras;
    CopyEntries(other.m_moveLists);
    m_lastDrawnRects = other.m_lastDrawnRects;
    m_activeCamera = other.m_activeCamera;
    m_sceneLight = other.m_sceneLight;
    m_initValue1 = other.m_initValue1;
    m_initValue2 = other.m_initValue2;
    m_targetBitmap = other.m_targetBitmap;
    return *this;
}

CSceneHandler::~CSceneHandler()
{
    for (CObject* object : TypedWalk<CObject>(m_attached)) {
        object->m_scenes.DeleteItem(this);
    }
    RemoveAllPolygons();
    RemoveAllCameras();
}

void CSceneHandler::CopyEntries(const CLList& entries)
{
    RemoveAllMoveLists();
    CLList source = entries;
    for (const MoveListEntry* entry : TypedWalk<MoveListEntry>(source)) {
        auto copy = std::make_unique<MoveListEntry>(*entry);
        m_moveLists.InsertLast(copy.get(), 0);
        copy.release();
    }
}

void CSceneHandler::Init(long value1, long value2)
{
    m_initValue1 = WrapToInt32(value1);
    m_initValue2 = WrapToInt32(value2);
}

void CSceneHandler::AddPolygon(CPolygon* polygon)
{
    if (polygon != nullptr) {
        m_polygons.IfNotInsertLast(polygon);
    }
}

void CSceneHandler::RemovePolygon(CPolygon* polygon)
{
    m_polygons.DeleteItem(polygon);
}

void CSceneHandler::RemoveAllPolygons()
{
    m_polygons.KillAll();
    RemoveAllMoveLists();
}

void CSceneHandler::RemoveAllMoveLists()
{
    for (const MoveListEntry* entry : TypedWalk<MoveListEntry>(m_moveLists)) {
        delete entry;
    }
    m_moveLists.KillAll();
}

void CSceneHandler::AddCamera(CCamera* camera)
{
    if (camera != nullptr) {
        m_cameras.IfNotInsertLast(camera);
    }
}

void CSceneHandler::RemoveCamera(CCamera* camera)
{
    m_cameras.DeleteItem(camera);
    if (m_activeCamera == camera) {
        m_activeCamera = nullptr;
    }
}

void CSceneHandler::RemoveAllCameras()
{
    m_cameras.KillAll();
}
