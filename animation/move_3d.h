// SPDX-License-Identifier: MIT
#pragma once

#include "animation/point_move.h"
#include "geometry/export.h"

#include <cstdint>

class C3DMoveList;
class CCamera;
class CObject;
class CPolygon;

/// Animates one polygon, camera or object from one placement to another: seven tracks for position (world units), scale
/// and rotation (degrees), stepped together. Made by the game and given to a move list, which then owns it.
///
/// A polygon goes before a camera and a camera before an object where more than one is the target. Targets are not
/// owned; a polygon or object that has been destroyed is no target any more. A camera outlives its moves. The frames of
/// the move are those of its x track: a move made for a polygon, a camera or an object has frames of its own only once
/// its x track is set again after Init.
class CARDTABLE_API C3DMove
{
public:
    /// No target, no frames, every track unset.
    C3DMove();
    /// Leaves its list.
    ~C3DMove();
    ///@{
    /// A copy aims at the same target and is in no list.
    C3DMove(const C3DMove& other);
    C3DMove& operator=(const C3DMove& other);
    ///@}

    /// A straight move between two positions over a number of frames, rotation 0 and scale 1, without a target.
    void Init(double x0, double y0, double z0, double x1, double y1, double z1, long frames);
    ///@{
    /// A move of a target that captures where it stands now; the setters called afterwards use the number of frames.
    void Init(CPolygon* polygon, long frames);
    void Init(CCamera* camera, long frames);
    void Init(CObject* object, long frames);
    ///@}
    /// No target, no frames, every track unset.
    void Exit();

    ///@{
    /// Straight tracks over the move's frames; the track's frame cursor stays.
    void SetX(double start, double end);
    void SetY(double start, double end);
    void SetZ(double start, double end);
    void SetScale(double start, double end);
    void SetRotX(double start, double end);
    void SetRotY(double start, double end);
    void SetRotZ(double start, double end);
    ///@}
    ///@{
    /// Curved tracks over the move's frames, see CPointMove::Set; the track's frame cursor goes back to 0.
    void SetX(double start, double startBend, double end, double endBend);
    void SetY(double start, double startBend, double end, double endBend);
    void SetZ(double start, double startBend, double end, double endBend);
    void SetScale(double start, double startBend, double end, double endBend);
    void SetRotX(double start, double startBend, double end, double endBend);
    void SetRotY(double start, double startBend, double end, double endBend);
    void SetRotZ(double start, double startBend, double end, double endBend);
    ///@}

    ///@{
    /// Every track's frame cursor, see CPointMove.
    void First();
    void Next();
    void Prev();
    void Last();
    ///@}
    ///@{
    /// The x track's answers.
    long IsLast() const { return m_x.IsLast(); }
    long Exists() const { return m_x.Exists(); }
    ///@}

    /// Writes the values of the current frame into the target; nothing without one. A camera takes no scale.
    void Set3D();
    ///@{
    /// The values of the current frame.
    void Get3DPos(double& x, double& y, double& z) const;
    void Get3DRot(double& x, double& y, double& z) const;
    ///@}
    /// The target polygon, else camera, else object, else null.
    void* GetObjectPtr() const;

private:
    friend class C3DMoveList;
    friend class CSceneHandler;

    CPolygon* TargetPolygon() const;
    CObject* TargetObject() const;
    /// The target object when no polygon or camera goes before it.
    CObject* AnimatedObject() const;
    void Aim(CObject* object);
    void Advance(long count);
    void SetStanding(double x, double y, double z, double a, double b, double c, double scale);
    template <typename Action> void EveryTrack(Action action);

    CObject* m_object = nullptr;
    CPointMove m_x;
    CPointMove m_y;
    CPointMove m_z;
    CPointMove m_scale;
    CPointMove m_rotX;
    CPointMove m_rotY;
    CPointMove m_rotZ;
    CPolygon* m_polygon = nullptr;
    CCamera* m_camera = nullptr;
    long m_frames = 0;

    std::uint64_t m_objectSerial = 0;  ///< tells the object from a later one at its address
    std::uint64_t m_polygonSerial = 0; ///< the same for the polygon
    C3DMoveList* m_list = nullptr;     ///< the list that holds or has released this move; never copied
    bool m_held = false;               ///< m_list holds it, so that no other list may
};
