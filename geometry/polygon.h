// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/camera.h"
#include "geometry/export.h"

#include <cstdint>

class Bitmap;
class CObject;
class CRect;

/// One corner of a polygon.
struct PolyPoint {
    ///@{
    /// Working coordinates: rotated in place, read by the projection.
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    ///@}
    ///@{
    /// Base coordinates: as given to CPolygon::Set3D.
    double bx = 0.0;
    double by = 0.0;
    double bz = 0.0;
    ///@}
    ///@{
    /// Screen coordinates of the last projection, half pixels.
    long sx = 0;
    long sy = 0;
    ///@}
};

/// A texture coordinate in 16.16 fixed-point texels.
struct TexCoord {
    long u = 0; ///< column
    long v = 0; ///< row
};

/// A textured quadrilateral in space: four corners around its own origin, a position, a rotation and a uniform scale.
///
/// Corners 0 to 3 follow each other around the quadrilateral; corner 0 takes the top-left of the texture rectangle, 1
/// the top-right, 2 the bottom-right, 3 the bottom-left. Coordinates and positions are in world units, angles in
/// degrees, screen coordinates in half pixels. Every use runs RotatePolygon, Project, the use itself, ResetCoords.
///
/// It owns nothing: texture and camera belong to others. A polygon given to an object belongs to that object.
class CARDTABLE_API CPolygon
{
public:
    /// Off, at the origin, scale 1, no texture, no parent, no camera of its own.
    CPolygon();
    /// Leaves every scene that lists it.
    ~CPolygon();
    /// A copy belongs to no object, though it keeps the parent of its source.
    CPolygon(const CPolygon& other);
    /// Copies every value; what object this polygon belongs to does not change.
    CPolygon& operator=(const CPolygon& other);

    /// The object whose clip rectangle and clear polygon are used when this polygon is drawn. Does not hand it over.
    void SetParent(CObject* parent);
    /// Null when there is none, or when it has been destroyed.
    CObject* GetParent() const;

    ///@{
    /// Whether the polygon takes part in drawing and hit tests.
    void On() { m_on = 1; }
    void Off() { m_on = 0; }
    long OnFlag() const { return m_on; }
    ///@}
    ///@{
    /// The stamp mark: when it is not 0 the next frame draws the polygon for rest as well, and clears it.
    void SetStamp(long stamp);
    long IsStamp() const { return m_stamp; }
    ///@}

    /// The texture, not owned; null when there is none.
    Bitmap* GetTexture() const { return m_texture; }
    /// Sets the texture and the part of it that is shown: fractions of a texture of width x height texels, left > right
    /// or top > bottom for a mirrored picture. Each edge is truncated to whole texels and lies 1/65536 texel inside.
    /// The bitmap is not owned; null, or one that is destroyed later, draws nothing. Returns 1.
    long SetTexture(Bitmap* texture, int width, int height, double left, double top, double right, double bottom);
    /// Makes this a copy of the source that shows the whole of its texture, whatever part the source shows. Null, or
    /// the polygon itself, changes nothing.
    void Clone(CPolygon* source);

    /// Sets the corners, in world units around the polygon's own origin. Returns 1.
    long Set3D(double x0, double y0, double z0, double x1, double y1, double z1, double x2, double y2, double z2,
               double x3, double y3, double z3);
    /// The same from twelve values, x, y, z of corners 0 to 3. Null changes nothing. Returns 1.
    long Set3D(double* values);

    ///@{
    /// The placement: world units, degrees about x, y and z, and a factor. It takes effect at the next RotatePolygon
    /// and Project.
    void SetPosition(double x, double y, double z);
    void GetPosition(double& x, double& y, double& z) const;
    void SetRotate(double x, double y, double z);
    void GetRotate(double& x, double& y, double& z) const;
    void SetScale(double scale) { m_scale = scale; }
    void GetScale(double& scale) const { scale = m_scale; }
    ///@}

    /// The working coordinates of a corner times the scale, without the position. An index outside 0 to 3 gives zeros.
    void GetPoint(long index, double& x, double& y, double& z) const;
    /// Rotates the working coordinates about the polygon's origin: c about z, then b about y, then a about x. Calls add
    /// up until ResetCoords. Negates y, zero angles included. Costs four table rotations.
    void Rotate(double a, double b, double c);
    /// Rotate by the polygon's own angles.
    void RotatePolygon();
    /// Working coordinates back to the values given to Set3D.
    void ResetCoords();
    /// Projects the working coordinates to the screen through the polygon's own camera, else through the one given,
    /// else through one at the origin. Costs four table rotations; allocates nothing.
    void Project(CCamera* camera);

    /// Nonzero when a point, in half pixels, lies inside the last projection. Replaces the renderer's vertices.
    int IsPointInside(long x, long y) const;
    /// The bounding rectangle of the last projection, half pixels; the renderer's, valid until its next call. Replaces
    /// the renderer's vertices.
    CRect* GetBoundingBox() const;
    /// Draws the last projection into a bitmap in the renderer's current render state, on or off. The clip rectangle,
    /// when not null, receives the area covered; see PolygonRender::Draw.
    void DrawToSurface(Bitmap* target, CRect* clip) const;

private:
    friend class CObject;
    friend class CSceneHandler;

    static constexpr int kCorners = 4;

    void SendVertices() const;

    CObject* m_parent = nullptr;
    Bitmap* m_texture = nullptr;
    long m_on = 0;
    long m_stamp = 0;
    PolyPoint m_points[kCorners];
    TexCoord m_texCoords[kCorners];
    double m_position[3] = {0.0, 0.0, 0.0};
    double m_rotate[3] = {0.0, 0.0, 0.0};
    double m_scale = 1.0;
    double m_depth = 0.0; ///< mean camera-space z of the corners at the last projection
    CCamera* m_camera = nullptr;

    std::uint64_t m_parentSerial = 0; ///< tells the parent from a later object at its address
    CObject* m_owner = nullptr;       ///< the object that will delete this polygon; never copied
};
