// SPDX-License-Identifier: MIT
#include "animation/move_list.h"

#include "animation/move_3d.h"
#include "animation/object.h"
#include "geometry/int32.h"
#include "geometry/lifetime.h"
#include "geometry/list_walk.h"
#include "host/globals.h"

#include <algorithm>
#include <cstdint>
#include <limits>

C3DMoveList::C3DMoveList()
{
    Init(0, 0);
}

C3DMoveList::~C3DMoveList()
{
    MoveListLives().Ended(this);
    Init(0, 0);
}

void C3DMoveList::Init(long ownsObjects, long join)
{
    if (m_ownsObjects != 0) {
        RemoveAll();
    } else {
        DeleteMoves();
    }
    m_join = WrapToInt32(join);
    m_ownsObjects = WrapToInt32(ownsObjects);
    m_tick.Update();
}

void C3DMoveList::DeleteMoves()
{
    m_current = nullptr;
    m_lastStepped = nullptr;
    for (C3DMove* move : TypedWalk<C3DMove>(m_released)) {
        move->m_list = nullptr;
    }
    m_released.KillAll();
    for (C3DMove* move : TypedWalk<C3DMove>(m_moves)) {
        move->m_list = nullptr;
        delete move;
    }
    m_moves.KillAll();
}

void C3DMoveList::RemoveAll()
{
    if (m_ownsObjects == 0) {
        return;
    }
    // The moves go next, so they can hold what is to be deleted: destructors come here, and must not need memory. An
    // object that dies is no target any more, so each is deleted once.
    for (C3DMove* move : TypedWalk<C3DMove>(m_moves)) {
        move->m_object = move->AnimatedObject();
    }
    for (C3DMove* move : TypedWalk<C3DMove>(m_moves)) {
        delete move->TargetObject();
    }
    DeleteMoves();
}

void C3DMoveList::Forget(C3DMove* move)
{
    m_moves.DeleteItem(move);
    m_released.DeleteItem(move);
    if (m_current == move) {
        m_current = nullptr;
    }
    if (m_lastStepped == move) {
        m_lastStepped = nullptr;
    }
    move->m_list = nullptr;
}

long C3DMoveList::AddMove(C3DMove* move)
{
    if (move == nullptr || (move->m_held && move->m_list != this)) {
        return 0;
    }
    if (!move->m_held && move->m_list != nullptr) {
        move->m_list->Forget(move);
    }
    const long inserted = m_moves.IfNotInsertLast(move);
    move->m_list = this;
    move->m_held = true;
    First();
    return inserted;
}

C3DMove* C3DMoveList::Get() const
{
    return UnderCursor<C3DMove>(m_moves);
}

long C3DMoveList::Delete()
{
    if (C3DMove* const move = Get()) {
        // It may be the current or the last stepped move, so this list has to hear of its end.
        m_released.IfNotInsertLast(move);
        move->m_held = false;
    }
    return m_moves.Delete(1);
}

C3DMove* C3DMoveList::TakeUnderCursor()
{
    m_current = Get();
    return m_current;
}

void C3DMoveList::First()
{
    m_tick.Update();
    m_moves.First();
    if (C3DMove* const move = TakeUnderCursor()) {
        move->First();
    }
}

void C3DMoveList::Last()
{
    m_tick.Update();
    m_moves.Last();
    if (C3DMove* const move = TakeUnderCursor()) {
        move->Last();
    }
}

long C3DMoveList::Exists()
{
    if (m_current == nullptr) {
        return 0;
    }
    if (m_current->Exists() != 0) {
        return 1;
    }
    m_moves.Next();
    if (TakeUnderCursor() == nullptr) {
        return 0;
    }
    m_current->First();
    return m_current->Exists();
}

void C3DMoveList::Next(long catchUp)
{
    m_lastStepped = m_current;
    if (m_current != nullptr) {
        if (m_current->Exists() != 0) {
            m_current->Next();
        } else {
            m_moves.Next();
            if (TakeUnderCursor() != nullptr) {
                m_current->First();
                if (m_join != 0) {
                    m_current->Next();
                }
            }
        }
    }
    if (catchUp != 0 && glb->framePeriod != 0) {
        constexpr std::uint32_t kMostFrames = std::numeric_limits<std::int32_t>::max();
        SkipAhead(static_cast<long>(std::min(m_tick.Elapsed() / glb->framePeriod, kMostFrames)) - 1);
    }
    m_tick.Update();
}

void C3DMoveList::SkipAhead()
{
    m_lastStepped = m_current;
    if (m_current == nullptr) {
        return;
    }
    if (m_current->Exists() == 0) {
        if (m_moves.IsLast()) {
            return;
        }
        m_moves.Next();
        if (TakeUnderCursor() == nullptr) {
            return;
        }
        m_current->First();
        if (m_join == 0) {
            return;
        }
    }
    if (m_current->IsLast() == 0) {
        m_current->Next();
    }
}

void C3DMoveList::SkipAhead(long count)
{
    for (; count > 0; --count) {
        if (m_current != nullptr && m_current->Exists() != 0) {
            m_lastStepped = m_current;
            m_current->Advance(std::min(count, m_current->m_x.FramesLeft()));
            return;
        }
        const C3DMove* const before = m_current;
        SkipAhead();
        if (m_current == before) {
            return; // the end of the list: further calls would change nothing
        }
    }
}

void C3DMoveList::Prev()
{
    m_tick.Update();
    m_lastStepped = m_current;
    if (m_current == nullptr) {
        return;
    }
    if (m_current->Exists() != 0) {
        m_current->Prev();
        return;
    }
    m_moves.Prev();
    if (TakeUnderCursor() == nullptr) {
        return;
    }
    m_current->Last();
    if (m_join != 0) {
        m_current->Prev();
    }
}

void C3DMoveList::Set3D()
{
    if (m_current != nullptr) {
        m_current->Set3D();
    }
}

void C3DMoveList::StampObject()
{
    if (m_lastStepped == nullptr) {
        return;
    }
    if (CObject* const object = m_lastStepped->AnimatedObject()) {
        object->StampObject();
    }
}

void C3DMoveList::AimAll(CObject* object)
{
    First();
    while (Exists() != 0) {
        m_lastStepped = m_current;
        m_current->Aim(object);
        m_current->Advance(m_current->m_x.FramesLeft());
        m_current->Next();
        if (m_current->Exists() != 0) {
            break; // the largest number of frames there is has no past
        }
    }
    m_tick.Update();
}
