// SPDX-License-Identifier: MIT
#pragma once

class Bitmap;
class CRect;

/// The renderer of textured quadrilaterals, one a process, reached as glb->polygonRender. It keeps a current texture,
/// texture coordinates, vertices and render states; each stays until it is set again, and a draw resets none.
///
/// Corners are numbered 0 to 3 around the quadrilateral. Vertices are in half pixels of the target: vertex (x, y) lies
/// at pixel position (x / 2, y / 2), pixel centres at + 0.5. A test or another host may put its own renderer in its
/// place: the order of the operations is part of the contract.
class PolygonRender
{
public:
    /// The texture of the following draws; not owned. Null, or an empty bitmap, draws nothing.
    virtual void SetTexture(Bitmap* texture) = 0;
    /// The texel at each corner, in 16.16 fixed-point texels.
    virtual void SetTexCoords(long u0, long v0, long u1, long v1, long u2, long v2, long u3, long v3) = 0;
    /// The corners, in half pixels; z is not used.
    virtual void SetVertices(long x0, long y0, float z0, long x1, long y1, float z1, long x2, long y2, float z2,
                             long x3, long y3, float z3) = 0;
    /// Nonzero when the point, in half pixels, lies inside the current vertices or on their edge, whatever their
    /// winding.
    virtual int IsPointInside(long x, long y) = 0;
    /// State 1: 0 draws for motion, any other value draws for rest (filtered as finely as the renderer can). Other
    /// states have no effect.
    virtual void SetRenderState(long state, long value) = 0;
    /// Draws the current quadrilateral source-over into the target. A null target draws nothing. When the clip pointer
    /// is not null and the quadrilateral does not show its far side, the rectangle it names becomes the area of the
    /// target that was covered, in pixels, or (0, 0, 0, 0) when no pixel was.
    virtual void Draw(Bitmap* target, CRect*& clip) = 0;
    /// The bounding rectangle of the current vertices, in half pixels; owned by the renderer, valid until its next
    /// call.
    virtual CRect* GetBoundingBox() = 0;
    /// The area of the target touched by the latest Draw, in pixels, or null when it touched nothing; owned by the
    /// renderer, valid until its next call.
    virtual CRect* GetLastDrawnRect() = 0;

    virtual ~PolygonRender() = default;

protected:
    ///@{
    /// For the classes that implement it.
    PolygonRender() = default;
    PolygonRender(const PolygonRender&) = default;
    PolygonRender& operator=(const PolygonRender&) = default;
    ///@}
};
