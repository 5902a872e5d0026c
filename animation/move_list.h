// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"
#include "host/llist.h"
#include "host/tick.h"

class C3DMove;
class CObject;

/// Plays moves one after another, one frame a step, and can make up for time that has passed by skipping frames.
/// The list owns its moves, and with the owns-objects flag their target objects too. A scene plays the lists it holds;
/// a list may die while it plays. All calls come from the game's thread.
class CARDTABLE_API C3DMoveList
{
public:
    /// Empty, both flags 0.
    C3DMoveList();
    C3DMoveList(const C3DMoveList&) = delete;
    C3DMoveList& operator=(const C3DMoveList&) = delete;
    /// Deletes the moves, and the target objects with the owns-objects flag set.
    ~C3DMoveList();

    /// Empties the list (with the owns-objects flag in force before the call set, its target objects are deleted too),
    /// sets both flags and restarts the stopwatch. The join flag: a step from one move to the next skips the first
    /// frame of the next one, which repeats where the other ended.
    void Init(long ownsObjects, long join);
    /// Appends a move made with new, which then belongs to the list, and rewinds the list. Returns 1; 0 when the move
    /// is null or in a list already, which then keeps it (this list is rewound unless the move is another list's).
    long AddMove(C3DMove* move);
    /// The move under the list's cursor; null when there is none.
    C3DMove* Get() const;
    /// Unlinks the move under the cursor, which then belongs to the caller; the current move stays current. Returns 1
    /// for removed, 0 when the cursor is on no move.
    long Delete();

    /// Restarts from the first frame of the first move.
    void First();
    /// Goes to the last frame of the last move.
    void Last();
    /// 1 while there is a frame to play. Passes on to the next move when the current one has run out; a move without
    /// frames makes it answer 0 once.
    long Exists();
    /// One frame on; with catch-up the frames that the time since the last step calls for, in units of
    /// glb->framePeriod, but never past the last frame of a move.
    void Next(long catchUp);
    /// One frame back; from the past of a move's end to the last frame of the move before it.
    void Prev();
    /// One frame on within the limits of catch-up: it stops at the last frame of every move and at the end of the list.
    void SkipAhead();
    /// Writes the current frame into the current move's target.
    void Set3D();
    /// Marks the target object of the move stepped last for stamping, see CObject::StampObject. Nothing when there is
    /// no such move, or when its target is a polygon or a camera, or gone.
    void StampObject();
    /// With the owns-objects flag set, deletes the target objects (each once; polygons and cameras are left alone) and
    /// the moves; else nothing.
    void RemoveAll();

private:
    friend class C3DMove;
    friend class CSceneHandler;

    /// The move under the cursor becomes the current one.
    C3DMove* TakeUnderCursor();
    void DeleteMoves();
    /// A move is about to die or to join another list.
    void Forget(C3DMove* move);
    /// The same as count calls of SkipAhead, without a loop over the frames.
    void SkipAhead(long count);
    /// Gives every move that would be played the target, and leaves the list as playing all its frames leaves it.
    void AimAll(CObject* object);

    C3DMove* m_current = nullptr;
    CLList m_moves;
    C3DMove* m_lastStepped = nullptr;
    long m_join = 0;
    long m_ownsObjects = 0;
    Tick m_tick;

    CLList m_released; ///< moves that Delete took out: the current or last stepped one may be among them
};
