// SPDX-License-Identifier: MIT
#include "animation/move_3d.h"

#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/camera.h"
#include "geometry/lifetime.h"
#include "geometry/polygon.h"

C3DMove::C3DMove() = default;

C3DMove::~C3DMove()
{
    if (m_list != nullptr) {
        m_list->Forget(this);
    }
    Exit();
}

C3DMove::C3DMove(const C3DMove& other)
{
    *this = other;
}

C3DMove& C3DMove::operator=(const C3DMove& other)
{
    if (this == &other) {
        return *this;
    }
    m_object = other.m_object;
    m_x = other.m_x;
    m_y = other.m_y;
    m_z = other.m_z;
    m_scale = other.m_scale;
    m_rotX = other.m_rotX;
    m_rotY = other.m_rotY;
    m_rotZ = other.m_rotZ;
    m_polygon = other.m_polygon;
    m_camera = other.m_camera;
    m_frames = other.m_frames;
    m_objectSerial = other.m_objectSerial;
    m_polygonSerial = other.m_polygonSerial;
    return *this;
}

template <typename Action> void C3DMove::EveryTrack(Action action)
{
    for (CPointMove* track : {&m_x, &m_y, &m_z, &m_scale, &m_rotX, &m_rotY, &m_rotZ}) {
        action(*track);
    }
}

void C3DMove::Exit()
{
    m_object = nullptr;
    m_polygon = nullptr;
    m_camera = nullptr;
    m_frames = 0;
    m_objectSerial = 0;
    m_polygonSerial = 0;
    EveryTrack([](CPointMove& track) { track = CPointMove(); });
}

void C3DMove::Init(double x0, double y0, double z0, double x1, double y1, double z1, long frames)
{
    Exit();
    m_frames = frames;
    SetX(x0, x1);
    SetY(y0, y1);
    SetZ(z0, z1);
    SetRotX(0.0, 0.0);
    SetRotY(0.0, 0.0);
    SetRotZ(0.0, 0.0);
    SetScale(1.0, 1.0);
}

/// Fills the tracks while the number of frames is still 0: they hold the captured placement at every frame and have no
/// frames of their own.
void C3DMove::SetStanding(double x, double y, double z, double a, double b, double c, double scale)
{
    SetX(x, x);
    SetY(y, y);
    SetZ(z, z);
    SetRotX(a, a);
    SetRotY(b, b);
    SetRotZ(c, c);
    SetScale(scale, scale);
}

void C3DMove::Init(CPolygon* polygon, long frames)
{
    Exit();
    if (polygon != nullptr) {
        m_polygonSerial = PolygonLives().Watch(polygon);
        m_polygon = polygon;
        double x, y, z, a, b, c, scale;
        polygon->GetPosition(x, y, z);
        polygon->GetRotate(a, b, c);
        polygon->GetScale(scale);
        SetStanding(x, y, z, a, b, c, scale);
    }
    m_frames = frames;
}

void C3DMove::Init(CCamera* camera, long frames)
{
    Exit();
    if (camera != nullptr) {
        m_camera = camera;
        double x, y, z, a, b, c;
        camera->GetPosition(x, y, z);
        camera->GetRotate(a, b, c);
        SetStanding(x, y, z, a, b, c, 1.0);
    }
    m_frames = frames;
}

void C3DMove::Init(CObject* object, long frames)
{
    Exit();
    if (object != nullptr) {
        Aim(object);
        double x, y, z, a, b, c, scale;
        object->GetPosition(x, y, z);
        object->GetRotate(a, b, c);
        object->GetScale(scale);
        SetStanding(x, y, z, a, b, c, scale);
    }
    m_frames = frames;
}

void C3DMove::SetX(double start, double end)
{
    m_x.Set(start, end, m_frames);
}

void C3DMove::SetY(double start, double end)
{
    m_y.Set(start, end, m_frames);
}

void C3DMove::SetZ(double start, double end)
{
    m_z.Set(start, end, m_frames);
}

void C3DMove::SetScale(double start, double end)
{
    m_scale.Set(start, end, m_frames);
}

void C3DMove::SetRotX(double start, double end)
{
    m_rotX.Set(start, end, m_frames);
}

void C3DMove::SetRotY(double start, double end)
{
    m_rotY.Set(start, end, m_frames);
}

void C3DMove::SetRotZ(double start, double end)
{
    m_rotZ.Set(start, end, m_frames);
}

void C3DMove::SetX(double start, double startBend, double end, double endBend)
{
    m_x.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::SetY(double start, double startBend, double end, double endBend)
{
    m_y.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::SetZ(double start, double startBend, double end, double endBend)
{
    m_z.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::SetScale(double start, double startBend, double end, double endBend)
{
    m_scale.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::SetRotX(double start, double startBend, double end, double endBend)
{
    m_rotX.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::SetRotY(double start, double startBend, double end, double endBend)
{
    m_rotY.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::SetRotZ(double start, double startBend, double end, double endBend)
{
    m_rotZ.Set(start, startBend, end, endBend, m_frames);
}

void C3DMove::First()
{
    EveryTrack([](CPointMove& track) { track.First(); });
}

void C3DMove::Next()
{
    EveryTrack([](CPointMove& track) { track.Next(); });
}

void C3DMove::Prev()
{
    EveryTrack([](CPointMove& track) { track.Prev(); });
}

void C3DMove::Last()
{
    EveryTrack([](CPointMove& track) { track.Last(); });
}

void C3DMove::Advance(long count)
{
    EveryTrack([count](CPointMove& track) { track.Advance(count); });
}

void C3DMove::Aim(CObject* object)
{
    m_objectSerial = ObjectLives().Watch(object);
    m_object = object;
}

CPolygon* C3DMove::TargetPolygon() const
{
    return PolygonLives().Lives(m_polygon, m_polygonSerial) ? m_polygon : nullptr;
}

CObject* C3DMove::TargetObject() const
{
    return ObjectLives().Lives(m_object, m_objectSerial) ? m_object : nullptr;
}

CObject* C3DMove::AnimatedObject() const
{
    return TargetPolygon() == nullptr && m_camera == nullptr ? TargetObject() : nullptr;
}

template <typename Target> static void Place(Target& target, const double (&position)[3], const double (&rotation)[3])
{
    target.SetPosition(position[0], position[1], position[2]);
    target.SetRotate(rotation[0], rotation[1], rotation[2]);
}

void C3DMove::Set3D()
{
    double position[3];
    double rotation[3];
    Get3DPos(position[0], position[1], position[2]);
    Get3DRot(rotation[0], rotation[1], rotation[2]);
    if (CPolygon* const polygon = TargetPolygon()) {
        Place(*polygon, position, rotation);
        polygon->SetScale(m_scale.GetPoint());
    } else if (m_camera != nullptr) {
        Place(*m_camera, position, rotation);
    } else if (CObject* const object = TargetObject()) {
        Place(*object, position, rotation);
        object->SetScale(m_scale.GetPoint());
    }
}

void C3DMove::Get3DPos(double& x, double& y, double& z) const
{
    x = m_x.GetPoint();
    y = m_y.GetPoint();
    z = m_z.GetPoint();
}

void C3DMove::Get3DRot(double& x, double& y, double& z) const
{
    x = m_rotX.GetPoint();
    y = m_rotY.GetPoint();
    z = m_rotZ.GetPoint();
}

void* C3DMove::GetObjectPtr() const
{
    if (CPolygon* const polygon = TargetPolygon()) {
        return polygon;
    }
    if (m_camera != nullptr) {
        return m_camera;
    }
    return TargetObject();
}
