// SPDX-License-Identifier: MIT
// What the scene does with objects and move lists.
#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/list_walk.h"
#include "geometry/projection.h"
#include "host/log.h"
#include "scene/scene_handler.h"

#include <memory>

namespace
{

const Log g_log("game.components.card.scenehandler");

/// The entry's list; null when it has been destroyed.
C3DMoveList* LivingList(const MoveListEntry& entry)
{
    return MoveListLives().Lives(entry.moveList, entry.serial) ? entry.moveList : nullptr;
}

/// Plays one frame of a list. False when there was none, or when it was the last.
bool PlayFrame(C3DMoveList& moveList)
{
    if (moveList.Exists() == 0) {
        return false;
    }
    moveList.Set3D();
    moveList.Next(1);
    if (moveList.Exists() != 0) {
        return true;
    }
    moveList.StampObject();
    return false;
}

} // namespace

void CSceneHandler::AddObject(CObject* object)
{
    if (object != nullptr) {
        object->AttachToScene(this);
    }
}

void CSceneHandler::RemoveObject(CObject* object)
{
    if (object != nullptr) {
        object->DettachFromScene(this);
    }
}

void CSceneHandler::InsertMoveList(C3DMoveList* moveList, long removeWhenDone, long reserved)
{
    if (moveList == nullptr) {
        return;
    }
    auto entry = std::make_unique<MoveListEntry>(
        MoveListEntry{moveList, removeWhenDone, reserved, MoveListLives().Watch(moveList)});
    m_moveLists.InsertLast(entry.get(), 0);
    entry.release();
}

long CSceneHandler::IsAnyPolyAnim()
{
    long playing = 0;
    // Every list is asked, since the question may move a list on to its next move.
    for (const MoveListEntry* entry : TypedWalk<MoveListEntry>(m_moveLists)) {
        C3DMoveList* const moveList = LivingList(*entry);
        if (moveList != nullptr && moveList->Exists() != 0) {
            playing = 1;
        }
    }
    return playing;
}

void CSceneHandler::UpdateAllMoves()
{
    for (const MoveListEntry* entry : TypedWalk<MoveListEntry>(m_moveLists)) {
        C3DMoveList* const moveList = LivingList(*entry);
        const bool goesOn = moveList != nullptr && PlayFrame(*moveList);
        if (moveList == nullptr || (!goesOn && entry->removeWhenDone != 0)) {
            m_moveLists.Delete(1);
            delete entry;
        }
    }
}

void CSceneHandler::StartAnim(C3DMoveList* activeMoveList, CObject* activeObject)
{
    if (activeMoveList == nullptr) {
        g_log.Error("CSceneHandler::StartAnim no valid activeMoveList");
        return;
    }
    if (activeObject == nullptr) {
        g_log.Error("CSceneHandler::StartAnim no valid activeObject");
        return;
    }
    AddObject(activeObject);
    activeObject->On();
    activeMoveList->AimAll(activeObject);
    activeMoveList->First();
    InsertMoveList(activeMoveList, 1, 1);
}

void CSceneHandler::DrawFirstFrame(C3DMoveList* moveList, CObject* object, Bitmap* bitmap)
{
    if (moveList == nullptr || object == nullptr) {
        return;
    }
    object->On();
    moveList->First();
    PlaceAndStamp(*moveList, *object, bitmap);
}

void CSceneHandler::DrawLastFrame(C3DMoveList* moveList, CObject* object, Bitmap* bitmap)
{
    if (object == nullptr) {
        g_log.Error("CSceneHandler::DrawLastFrame no valid activeObject");
        return;
    }
    if (moveList == nullptr) {
        return;
    }
    object->On();
    moveList->Last();
    PlaceAndStamp(*moveList, *object, bitmap);
}

void CSceneHandler::PlaceAndStamp(C3DMoveList& moveList, CObject& object, Bitmap* bitmap)
{
    if (moveList.m_current != nullptr) {
        moveList.m_current->Aim(&object);
    }
    moveList.Set3D();
    object.StampObject();
    object.Draw(this, bitmap);
}

void CSceneHandler::ProjectPoint2Screen(double x, double y, double z, long& screenX, long& screenY)
{
    const CCamera& camera = m_activeCamera != nullptr ? *m_activeCamera : g_defaultCamera;
    ToCameraSpace(camera, x, y, z, x, y, z);
    ProjectToScreen(x, y, z, screenX, screenY);
}

int CSceneHandler::IsPointInside(long x, long y, CObject* object)
{
    return object != nullptr ? object->IsPointInside(x, y, this) : 0;
}
