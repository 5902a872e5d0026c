// SPDX-License-Identifier: MIT
#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/camera.h"
#include "geometry/polygon.h"
#include "scene/scene_handler.h"
#include "tests/support/test_host.h"

#include <array>

namespace
{

using Point = std::array<double, 3>;

Point PositionOf(const C3DMove& move)
{
    Point point{};
    move.Get3DPos(point[0], point[1], point[2]);
    return point;
}

Point RotationOf(const C3DMove& move)
{
    Point point{};
    move.Get3DRot(point[0], point[1], point[2]);
    return point;
}

template <typename Target> Point PositionOf(const Target& target)
{
    Point point{};
    target.GetPosition(point[0], point[1], point[2]);
    return point;
}

template <typename Target> Point RotationOf(const Target& target)
{
    Point point{};
    target.GetRotate(point[0], point[1], point[2]);
    return point;
}

template <typename Target> double ScaleOf(const Target& target)
{
    double scale = 0;
    target.GetScale(scale);
    return scale;
}

class Move : public HostTest
{
};

TEST_F(Move, StraightMoveOfAnObjectReachesItsPolygons)
{
    CObject object;
    auto* const polygon = new CPolygon;
    object.AddPolygon(polygon);
    object.SetScale(3);
    CSceneHandler scene;
    C3DMoveList list;
    auto* const move = new C3DMove;
    move->Init(0, 0, 0, 10, 20, 30, 11);
    list.AddMove(move);
    EXPECT_EQ(move->GetObjectPtr(), nullptr);
    move->Set3D(); // without a target
    scene.StartAnim(&list, &object);
    EXPECT_EQ(move->GetObjectPtr(), &object);
    for (int i = 0; i < 5; ++i) {
        move->Next();
    }
    EXPECT_EQ(PositionOf(*move), (Point{5, 10, 15}));
    EXPECT_EQ(RotationOf(*move), (Point{0, 0, 0}));
    move->Set3D();
    EXPECT_EQ(PositionOf(object), (Point{5, 10, 15}));
    EXPECT_EQ(PositionOf(*polygon), (Point{5, 10, 15}));
    EXPECT_EQ(ScaleOf(*polygon), 1);
}

TEST_F(Move, TargetFormHasFramesOnlyOnceItsXTrackIsSet)
{
    CObject object;
    object.SetPosition(1, 2, 3);
    object.SetRotate(4, 5, 6);
    object.SetScale(7);
    C3DMove move;
    move.Init(&object, 10);
    move.SetZ(3, 9);
    EXPECT_EQ(move.Exists(), 0);
    EXPECT_EQ(PositionOf(move), (Point{1, 2, 3}));
    EXPECT_EQ(RotationOf(move), (Point{4, 5, 6}));
    move.SetX(1, 1);
    for (int frame = 0; frame < 10; ++frame, move.Next()) {
        EXPECT_EQ(move.Exists(), 1) << frame;
        EXPECT_EQ(move.IsLast(), frame == 9 ? 1 : 0) << frame;
        if (frame == 9) {
            EXPECT_EQ(PositionOf(move), (Point{1, 2, 9}));
        }
    }
    EXPECT_EQ(move.Exists(), 0);
    object.SetScale(1);
    move.Set3D();
    EXPECT_EQ(ScaleOf(object), 7);
}

TEST_F(Move, CameraIsMovedAndTurned)
{
    CCamera camera;
    camera.SetPosition(1, 2, 3);
    C3DMove move;
    move.Init(&camera, 5);
    move.SetRotY(0, 90);
    move.SetX(1, 1);
    EXPECT_EQ(move.GetObjectPtr(), &camera);
    move.Last();
    move.Set3D();
    EXPECT_EQ(PositionOf(camera), (Point{1, 2, 3}));
    EXPECT_EQ(RotationOf(camera), (Point{0, 90, 0}));
}

TEST_F(Move, PolygonAndCameraGoBeforeAnObject)
{
    CSceneHandler scene;
    CCamera camera;
    CPolygon polygon;
    CObject object;
    object.AddPolygon(new CPolygon);
    for (const bool usesPolygon : {true, false}) {
        C3DMoveList list;
        auto* const move = new C3DMove;
        if (usesPolygon) {
            move->Init(&polygon, 8);
        } else {
            move->Init(&camera, 8);
        }
        move->SetX(0, 7);
        list.AddMove(move);
        scene.DrawLastFrame(&list, &object, nullptr);
        EXPECT_EQ(move->GetObjectPtr(), usesPolygon ? static_cast<void*>(&polygon) : &camera);
        EXPECT_EQ(usesPolygon ? PositionOf(polygon) : PositionOf(camera), (Point{7, 0, 0}));
        EXPECT_EQ(PositionOf(object), (Point{0, 0, 0}));
        object.GetFrontPoly()->SetStamp(0);
        list.Next(0);
        list.StampObject();
        EXPECT_EQ(object.GetFrontPoly()->IsStamp(), 0) << "a polygon or a camera is no object to stamp";
    }
}

TEST_F(Move, EachSetterReachesItsOwnTrack)
{
    C3DMove move;
    CPolygon target;
    move.Init(&target, 2);
    move.SetX(0, 1);
    move.SetY(0, 0.5, 2, 0.5);
    move.SetZ(0, 3);
    move.SetRotX(0, 0, 4, 0);
    move.SetRotY(0, 5);
    move.SetRotZ(0, 0, 6, 0);
    move.SetScale(0, 7);
    move.Last();
    move.Set3D();
    EXPECT_EQ(PositionOf(target), (Point{1, 2, 3}));
    EXPECT_EQ(RotationOf(target), (Point{4, 5, 6}));
    EXPECT_EQ(ScaleOf(target), 7);
}

TEST_F(Move, CurvedXInTheMiddleRewindsThatTrackAlone)
{
    C3DMove move;
    move.Init(0, 0, 0, 10, 10, 10, 11);
    for (int i = 0; i < 10; ++i) {
        move.Next();
    }
    EXPECT_EQ(move.IsLast(), 1);
    move.SetX(0, 0.5, 100, 0.5);
    EXPECT_EQ(move.IsLast(), 0);
    EXPECT_EQ(PositionOf(move), (Point{0, 10, 10}));
    move.SetY(0, 100);
    EXPECT_EQ(PositionOf(move), (Point{0, 100, 10}));
}

TEST_F(Move, ExitAndCopies)
{
    CObject object;
    C3DMove move;
    EXPECT_EQ(PositionOf(move), (Point{-1, -1, -1}));
    move.Init(&object, 4);
    move.SetX(2, 2);
    const C3DMove copy = move;
    move.Exit();
    EXPECT_EQ(move.GetObjectPtr(), nullptr);
    EXPECT_EQ(PositionOf(move), (Point{-1, -1, -1}));
    EXPECT_EQ(RotationOf(move), (Point{-1, -1, -1}));
    EXPECT_EQ(copy.GetObjectPtr(), &object);
    EXPECT_EQ(PositionOf(copy), (Point{2, 0, 0}));
    move.Init(static_cast<CObject*>(nullptr), 3);
    move.Init(static_cast<CPolygon*>(nullptr), 3);
    move.Init(static_cast<CCamera*>(nullptr), 3);
    EXPECT_EQ(move.GetObjectPtr(), nullptr);
}

} // namespace
