// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"
#include "geometry/lifetime.h"
#include "host/llist.h"
#include "host/rect.h"

#include <list>

class Bitmap;
class C3DMoveList;
class CCamera;
class CLight;
class CObject;
class CPolygon;

/// A move list in a scene.
struct MoveListEntry {
    C3DMoveList* moveList;       ///< not owned; may die before the entry
    long removeWhenDone;         ///< not 0: the entry leaves the scene once its list has no frame left
    long reserved;               ///< third argument of InsertMoveList; kept for the game
    LifeRegistry::Serial serial; ///< tells the list from a later one at its address
};

/// A scene: the polygons that are drawn every frame and the move lists that animate them.
///
/// Handler, once a frame, plays every list, draws every visible polygon into the target bitmap and records the
/// rectangle of every draw. The scene owns none of the things it names; objects, polygons and move lists may die before
/// or after it, cameras, the light and the target bitmap outlive their use. All calls come from the game's thread.
class CARDTABLE_API CSceneHandler
{
public:
    /// Value of render state 1 while stamps are drawn.
    long m_stampMode = 1;
    /// Not 0: a stamp is not drawn normally before it is drawn for rest. Without it a stamp is drawn twice, and soft
    /// edges and see-through cards come out too dense for one frame; games set it to 1.
    long m_skipStampDrawBefore = 0;
    /// Not 0: a stamp is not drawn for rest.
    long m_skipStampDrawAfter = 0;
    /// Not 0: polygons are drawn farthest first; 0: in the order in which they joined the scene.
    long m_sortByDepth = 0;

    CSceneHandler();
    ///@{
    /// A copy names the same polygons, cameras, lists, target and light, with list nodes and entries of its own.
    CSceneHandler(const CSceneHandler& other);
    CSceneHandler& operator=(const CSceneHandler& other);
    ///@}
    ~CSceneHandler();

    /// Stores two values for the game.
    void Init(long value1, long value2);

    ///@{
    /// The bitmap that Handler draws into; not owned. Null: frames are animated but not drawn.
    void SetTargetBitmap(Bitmap* bitmap) { m_targetBitmap = bitmap; }
    Bitmap* GetTargetBitmap() const { return m_targetBitmap; }
    bool HasTargetBitmap() const { return m_targetBitmap != nullptr; }
    ///@}
    ///@{
    /// The camera of every polygon that has none of its own; not owned. Null: a camera at the origin.
    void SetActiveCamera(CCamera* camera) { m_activeCamera = camera; }
    CCamera* GetActiveCamera() const { return m_activeCamera; }
    ///@}
    ///@{
    /// A light kept for the game; not owned.
    void SetLight(CLight* light) { m_sceneLight = light; }
    CLight* GetLight() const { return m_sceneLight; }
    ///@}

    ///@{
    /// Adds a polygon to the drawing order unless it is there already; null is ignored. Constant time on average, as
    /// RemovePolygon.
    void AddPolygon(CPolygon* polygon);
    void RemovePolygon(CPolygon* polygon);
    ///@}
    /// Empties the drawing order and drops every move list. Objects stay attached: a later AddObject brings their
    /// polygons back.
    void RemoveAllPolygons();
    /// A register of cameras for the game, independent of the active camera.
    void AddCamera(CCamera* camera);
    ///@{
    /// Also takes the active camera away when it is this one.
    void RemoveCamera(CCamera* camera);
    void RemoveAllCameras();
    ///@}

    ///@{
    /// Puts an object's polygons at the end of the drawing order, or takes them out. Null is ignored.
    void AddObject(CObject* object);
    void RemoveObject(CObject* object);
    ///@}

    /// Plays a list from the next frame on. A list inserted twice advances two frames a frame. Null is ignored.
    void InsertMoveList(C3DMoveList* moveList, long removeWhenDone, long reserved);
    /// 1 while some list has a frame left to play, else 0.
    long IsAnyPolyAnim();
    /// Advances every list by a frame, with catch-up. Handler does this.
    void UpdateAllMoves();
    /// Puts an object into the scene, switches it on, aims every move of a list at it and plays the list once. An error
    /// line is logged, and nothing happens, when either is null.
    void StartAnim(C3DMoveList* activeMoveList, CObject* activeObject);
    ///@{
    /// Places an object at the first or the last frame of a list and draws it as a stamp into a bitmap; the object is
    /// switched on and keeps its stamp marks, the scene does not change. A null bitmap only places it. Nothing without
    /// a list or an object (DrawLastFrame logs an error line for a null object); with an empty list the object is drawn
    /// where it stands.
    void DrawFirstFrame(C3DMoveList* moveList, CObject* object, Bitmap* bitmap);
    void DrawLastFrame(C3DMoveList* moveList, CObject* object, Bitmap* bitmap);
    ///@}
    /// The screen place of a world point, half pixels of the active area, as the active camera sees it.
    void ProjectPoint2Screen(double x, double y, double z, long& screenX, long& screenY);
    /// 1 when a point, in half pixels of the active area, hits the object; 0 otherwise and for null.
    int IsPointInside(long x, long y, CObject* object);

    /// One frame: plays the lists, draws the visible polygons, records their rectangles. Allocates one array when it
    /// sorts by depth, and the rectangles that are more than any frame had before. Throws std::bad_alloc: a part of the
    /// polygons is drawn and recorded then.
    void Handler();
    /// Records the rectangle of the renderer's latest draw, if there is one.
    void PushLastDrawnRect();
    ///@{
    /// The rectangles of the latest frame in drawing order, pixels of the target; valid until the next Handler.
    std::list<CRect>::iterator LastDrawnRectsBegin() { return m_lastDrawnRects.begin(); }
    std::list<CRect>::iterator LastDrawnRectsEnd() { return m_lastDrawnRects.end(); }
    ///@}

private:
    friend class CObject;

    /// Takes a dying polygon out of the drawing order of its scene.
    class PolygonWatch final : public LifeListener
    {
    public:
        explicit PolygonWatch(CSceneHandler& scene);
        ~PolygonWatch();
        PolygonWatch(const PolygonWatch&) = delete;
        PolygonWatch& operator=(const PolygonWatch&) = delete;
        void Ended(const void* thing) noexcept override;

    private:
        CSceneHandler& m_scene;
    };

    void CopyEntries(const CLList& entries);
    void RemoveAllMoveLists();
    void PlaceAndStamp(C3DMoveList& moveList, CObject& object, Bitmap* bitmap);
    void DrawInListOrder();
    void DrawFarToNear();
    void DrawStep(CPolygon& polygon);
    void ReserveRecord();
    void DrawPolygon(CPolygon& polygon);

    CLList m_polygons;
    CLList m_cameras;
    CLList m_moveLists;
    std::list<CRect> m_lastDrawnRects;
    CCamera* m_activeCamera = nullptr;
    CLight* m_sceneLight = nullptr;
    long m_initValue1 = 0;
    long m_initValue2 = 0;
    Bitmap* m_targetBitmap = nullptr;

    CLList m_attached;             ///< the objects that name this scene
    std::list<CRect> m_spareRects; ///< of earlier frames, to be used again
    PolygonWatch m_polygonWatch{*this};
};
