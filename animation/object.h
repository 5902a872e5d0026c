// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"
#include "host/llist.h"

class Bitmap;
class CCamera;
class CPolygon;
class CRect;
class CSceneHandler;
class LifeListener;

/// Polygons that move as one body; a card is an object of two, its back and then its face. The object keeps one
/// position (world units), rotation (degrees) and scale and passes every change to each of its polygons. It owns its
/// polygons, its clip rectangle and its clear polygon, and is owned by whoever made it: a pocket, the game, or a list
/// that owns its objects. It may die while scenes and playing lists still name it.
class CARDTABLE_API CObject
{
public:
    /// Without polygons, at the origin, rotation 0, scale 1, in no scene.
    CObject();
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    /// Leaves every scene and deletes the polygons.
    ~CObject();

    /// Takes over a polygon made with new, and hands it to every scene the object is in. Returns 1; 0 when the polygon
    /// is null, in this object already (the scenes are offered it again), or another object's or a clear
    /// polygon, which then stays where it is. Throws std::bad_alloc; the polygon then stays the caller's.
    long AddPolygon(CPolygon* polygon);
    /// The polygon added last, a card's face; null when there is none.
    CPolygon* GetFrontPoly();

    ///@{
    /// The placement: world units, degrees about x, y and z, and a factor. A setter passes its values on to every
    /// polygon; a getter gives what the setter was given last.
    void SetPosition(double x, double y, double z);
    void GetPosition(double& x, double& y, double& z) const;
    void SetRotate(double x, double y, double z);
    void GetRotate(double& x, double& y, double& z) const;
    void SetScale(double scale);
    void GetScale(double& scale) const;
    ///@}
    ///@{
    /// Switches every polygon on or off.
    void On();
    void Off();
    ///@}
    /// Marks every polygon for stamping: it is drawn for rest once, and a copy of it is kept as the clear polygon.
    void StampObject();
    /// Gives every present polygon a camera of its own, which goes before the scene's; null takes it away. Polygons
    /// added later have none. The camera outlives its use.
    void SetCamera(CCamera* camera);

    /// Puts the polygons into a scene. Returns 1; 0 when the object is in that scene already (the polygons are offered
    /// again) or the scene is null.
    long AttachToScene(CSceneHandler* scene);
    /// Takes the polygons out of a scene.
    void DettachFromScene(CSceneHandler* scene);

    /// 1 when a point, in half pixels of the active area, hits a polygon that is on, as the scene's camera sees it;
    /// else 0. A null scene stands for a camera at the origin.
    int IsPointInside(long x, long y, CSceneHandler* scene);
    /// The clip rectangle: the area of the target that the latest drawing covered, pixels. The object's own.
    CRect* GetClip() const { return m_clip; }
    /// Keeps a copy of a polygon, its projection included. Null changes nothing.
    void SetClearPoly(CPolygon* polygon);
    /// The copy of the polygon that was drawn as a stamp last. The object's own.
    CPolygon* GetClearPoly() const { return m_clearPoly; }

    /// Makes this a copy of a card object: its first two polygons with their placement, its clear polygon and its clip
    /// rectangle, in no scene. The object's own position and rotation become 0 and its scale 1. What it held before is
    /// deleted. Null, or the object itself, changes nothing.
    void Clone(CObject* source);
    /// Draws the polygons that are on into a bitmap, in list order, as the scene's camera sees them; stamp marks are
    /// kept. Nothing when bitmap or scene is null. Records no drawn rectangle.
    void Draw(CSceneHandler* scene, Bitmap* bitmap);

private:
    friend class CPocket;
    friend class StampMarks;
    friend class CSceneHandler;

    template <typename Action> void EveryPolygon(Action action);
    void GiveBack(CPolygon* polygon);
    void LeaveAllScenes();
    void DeletePolygons();

    CLList m_polygons;
    CLList m_scenes;
    CRect* m_clip = nullptr;
    CPolygon* m_clearPoly = nullptr;
    double m_position[3] = {0.0, 0.0, 0.0};
    double m_rotate[3] = {0.0, 0.0, 0.0};
    double m_scale = 1.0;

    LifeListener* m_keeper = nullptr; ///< whoever keeps the object and wants to hear of its end
};
