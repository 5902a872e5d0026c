// SPDX-License-Identifier: MIT
#include "geometry/polygon.h"

#include "geometry/int32.h"
#include "geometry/lifetime.h"
#include "geometry/projection.h"
#include "host/bitmap.h"
#include "host/globals.h"
#include "host/memory.h"
#include "host/polygon_render.h"

#include <type_traits>

// Clone copies the record byte by byte.
static_assert(std::is_standard_layout_v<CPolygon>);

namespace
{

/// A fraction of a side of the texture as a 16.16 coordinate: whole texels, 1/65536 texel inside.
long InnerEdge(double fraction, int side)
{
    constexpr long long kOne = 65536;
    const long texels = TruncateToInt32(fraction * side);
    const long fixed = WrapToInt32(texels * kOne);
    return fixed != 0 ? WrapToInt32(static_cast<long long>(fixed) - 1) : 0;
}

} // namespace

CPolygon::CPolygon() = default;

CPolygon::~CPolygon()
{
    PolygonLives().Ended(this);
}

CPolygon::CPolygon(const CPolygon& other) : CPolygon()
{
    *this = other;
}

CPolygon& CPolygon::operator=(const CPolygon& other)
{
    if (this != &other) {
        CObject* const owner = m_owner;
        xMemcpy(static_cast<void*>(this), &other, sizeof(CPolygon));
        m_owner = owner;
    }
    return *this;
}

void CPolygon::SetParent(CObject* parent)
{
    m_parentSerial = ObjectLives().Watch(parent);
    m_parent = parent;
}

CObject* CPolygon::GetParent() const
{
    return ObjectLives().Lives(m_parent, m_parentSerial) ? m_parent : nullptr;
}

void CPolygon::SetStamp(long stamp)
{
    m_stamp = WrapToInt32(stamp);
}

long CPolygon::SetTexture(Bitmap* texture, int width, int height, double left, double top, double right, double bottom)
{
    const long l = InnerEdge(left, width);
    const long r = InnerEdge(right, width);
    const long t = InnerEdge(top, height);
    const long b = InnerEdge(bottom, height);
    m_texCoords[0] = {l, t};
    m_texCoords[1] = {r, t};
    m_texCoords[2] = {r, b};
    m_texCoords[3] = {l, b};
    m_texture = texture;
    return 1;
}

void CPolygon::Clone(CPolygon* source)
{
    if (source == nullptr || source == this) {
        return;
    }
    *this = *source;
    if (m_texture != nullptr) {
        SetTexture(m_texture, m_texture->Width(), m_texture->Height(), 0.0, 0.0, 1.0, 1.0);
    }
}

long CPolygon::Set3D(double x0, double y0, double z0, double x1, double y1, double z1, double x2, double y2, double z2,
                     double x3, double y3, double z3)
{
    double values[] = {x0, y0, z0, x1, y1, z1, x2, y2, z2, x3, y3, z3};
    return Set3D(values);
}

long CPolygon::Set3D(double* values)
{
    if (values != nullptr) {
        for (PolyPoint& point : m_points) {
            point.bx = *values++;
            point.by = *values++;
            point.bz = *values++;
        }
        ResetCoords();
    }
    return 1;
}

void CPolygon::SetPosition(double x, double y, double z)
{
    m_position[0] = x;
    m_position[1] = y;
    m_position[2] = z;
}

void CPolygon::GetPosition(double& x, double& y, double& z) const
{
    x = m_position[0];
    y = m_position[1];
    z = m_position[2];
}

void CPolygon::SetRotate(double x, double y, double z)
{
    m_rotate[0] = x;
    m_rotate[1] = y;
    m_rotate[2] = z;
}

void CPolygon::GetRotate(double& x, double& y, double& z) const
{
    x = m_rotate[0];
    y = m_rotate[1];
    z = m_rotate[2];
}

void CPolygon::GetPoint(long index, double& x, double& y, double& z) const
{
    const PolyPoint point = index >= 0 && index < kCorners ? m_points[index] : PolyPoint{};
    x = point.x * m_scale;
    y = point.y * m_scale;
    z = point.z * m_scale;
}

void CPolygon::Rotate(double a, double b, double c)
{
    for (PolyPoint& point : m_points) {
        RotatePoint(point.x, point.y, point.z, a, b, c, point.x, point.y, point.z);
    }
}

void CPolygon::RotatePolygon()
{
    Rotate(m_rotate[0], m_rotate[1], m_rotate[2]);
}

void CPolygon::ResetCoords()
{
    for (PolyPoint& point : m_points) {
        point.x = point.bx;
        point.y = point.by;
        point.z = point.bz;
    }
}

void CPolygon::Project(CCamera* camera)
{
    const CCamera* const fallback = camera != nullptr ? camera : &g_defaultCamera;
    const CCamera& viewer = m_camera != nullptr ? *m_camera : *fallback;
    m_depth = 0.0;
    for (PolyPoint& point : m_points) {
        double ex = 0.0;
        double ey = 0.0;
        double ez = 0.0;
        ToCameraSpace(viewer, point.x * m_scale + m_position[0], point.y * m_scale + m_position[1],
                      point.z * m_scale + m_position[2], ex, ey, ez);
        m_depth += ez;
        ProjectToScreen(ex, ey, ez, point.sx, point.sy);
    }
    m_depth *= 0.25;
}

void CPolygon::SendVertices() const
{
    const PolyPoint* p = m_points;
    glb->polygonRender->SetVertices(p[0].sx, p[0].sy, 0.0F, p[1].sx, p[1].sy, 0.0F, p[2].sx, p[2].sy, 0.0F, p[3].sx,
                                    p[3].sy, 0.0F);
}

int CPolygon::IsPointInside(long x, long y) const
{
    SendVertices();
    return glb->polygonRender->IsPointInside(x, y);
}

CRect* CPolygon::GetBoundingBox() const
{
    SendVertices();
    return glb->polygonRender->GetBoundingBox();
}

void CPolygon::DrawToSurface(Bitmap* target, CRect* clip) const
{
    const TexCoord* t = m_texCoords;
    SendVertices();
    glb->polygonRender->SetTexCoords(t[0].u, t[0].v, t[1].u, t[1].v, t[2].u, t[2].v, t[3].u, t[3].v);
    glb->polygonRender->SetTexture(m_texture);
    glb->polygonRender->Draw(target, clip);
}
