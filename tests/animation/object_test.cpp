// SPDX-License-Identifier: MIT
#include "animation/object.h"
#include "geometry/camera.h"
#include "geometry/polygon.h"
#include "host/rect.h"
#include "scene/scene_handler.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

#include <memory>

namespace
{

using Calls = std::vector<std::string>;

class Object : public HostTest
{
protected:
    /// A polygon at a place of its own, known by its texture's name.
    CPolygon* AddPolygon(CObject& owner, Bitmap* texture, const char* name)
    {
        auto* const polygon = new CPolygon;
        polygon->SetTexture(texture, 1, 1, 0, 0, 1, 1);
        polygon->SetPosition(0, 0, 10);
        renderer.Name(texture, name);
        EXPECT_EQ(owner.AddPolygon(polygon), 1);
        return polygon;
    }
    /// The textures that a frame of the scene draws, in order.
    Calls Drawn(CSceneHandler& scene)
    {
        scene.SetTargetBitmap(target);
        renderer.Take();
        scene.Handler();
        return renderer.Take({"texture"});
    }

    RecordingRenderer renderer;
    OwnBitmap target{4, 4};
    OwnBitmap a{1, 1};
    OwnBitmap b{1, 1};
    CObject object;
};

TEST_F(Object, ScenesFollowItsPolygons)
{
    CSceneHandler first;
    CSceneHandler second;
    CPolygon* const front = AddPolygon(object, a, "a");
    EXPECT_EQ(object.AttachToScene(&first), 1);
    EXPECT_EQ(object.AttachToScene(&first), 0);
    EXPECT_EQ(object.AttachToScene(nullptr), 0);
    second.AddObject(&object);
    EXPECT_EQ(object.AddPolygon(front), 0);
    EXPECT_EQ(object.AddPolygon(nullptr), 0);
    AddPolygon(object, b, "b");
    object.On();
    EXPECT_EQ(Drawn(first), (Calls{"texture a", "texture b"}));
    EXPECT_EQ(Drawn(second), (Calls{"texture a", "texture b"}));

    // A present polygon is offered again: after the scene was emptied it comes back.
    first.RemoveAllPolygons();
    object.AddPolygon(front);
    EXPECT_EQ(Drawn(first), Calls{"texture a"});
    first.AddObject(&object);
    EXPECT_EQ(Drawn(first), (Calls{"texture a", "texture b"}));
    first.RemoveObject(&object);
    first.RemoveObject(&object);
    EXPECT_EQ(Drawn(first), Calls{});
    EXPECT_EQ(Drawn(second), (Calls{"texture a", "texture b"}));

    auto other = std::make_unique<CObject>();
    EXPECT_EQ(other->AddPolygon(front), 0);
    AddPolygon(*other, a, "a");
    first.AddObject(other.get());
    second.AddObject(other.get());
    other.reset();
    EXPECT_EQ(Drawn(first), Calls{});
    EXPECT_EQ(Drawn(second), (Calls{"texture a", "texture b"}));
    EXPECT_EQ(front->GetParent(), &object);
}

TEST_F(Object, SettersReachEveryPolygon)
{
    EXPECT_EQ(object.GetFrontPoly(), nullptr);
    CPolygon* const back = AddPolygon(object, a, "a");
    CPolygon* const face = AddPolygon(object, b, "b");
    EXPECT_EQ(object.GetFrontPoly(), face);
    object.SetPosition(1, 2, 3);
    object.SetRotate(4, 5, 6);
    object.SetScale(7);
    object.StampObject();
    object.On();
    for (const CPolygon* polygon : {back, face}) {
        double x = 0, y = 0, z = 0, scale = 0;
        polygon->GetPosition(x, y, z);
        EXPECT_TRUE(x == 1 && y == 2 && z == 3);
        polygon->GetRotate(x, y, z);
        EXPECT_TRUE(x == 4 && y == 5 && z == 6);
        polygon->GetScale(scale);
        EXPECT_EQ(scale, 7);
        EXPECT_EQ(polygon->IsStamp(), 1);
        EXPECT_EQ(polygon->OnFlag(), 1);
        EXPECT_EQ(polygon->GetParent(), &object);
    }
    object.Off();
    EXPECT_EQ(back->OnFlag() + face->OnFlag(), 0);
}

TEST_F(Object, DrawSetsStateAndClipByTheStampMark)
{
    CSceneHandler scene;
    scene.m_stampMode = 9;
    CPolygon* const back = AddPolygon(object, a, "a");
    CPolygon* const face = AddPolygon(object, b, "b");
    renderer.Name(object.GetClip(), "clip");
    renderer.Name(target, "target");
    object.Draw(&scene, target);
    EXPECT_EQ(renderer.Take(), Calls{}) << "polygons are off";
    object.On();
    face->SetStamp(2);
    object.Draw(&scene, nullptr);
    object.Draw(nullptr, target);
    EXPECT_EQ(renderer.Take(), Calls{});
    object.Draw(&scene, target);
    EXPECT_EQ(renderer.Take({"state", "texture", "draw", "last"}),
              (Calls{"state 1 0", "texture a", "draw target none", "state 1 9", "texture b", "draw target clip"}));
    EXPECT_EQ(back->IsStamp(), 0);
    EXPECT_EQ(face->IsStamp(), 2);
    CPolygon* const clear = object.GetClearPoly();
    EXPECT_EQ(clear->GetTexture(), b);
    EXPECT_EQ(clear->IsStamp(), 2) << "a copy taken while the mark stands";
    clear->DrawToSurface(nullptr, nullptr);
    EXPECT_EQ(renderer.draws.back().vertices, renderer.draws.front().vertices);
    object.SetClearPoly(nullptr);
    EXPECT_EQ(clear->GetTexture(), b);
    EXPECT_EQ(scene.LastDrawnRectsBegin(), scene.LastDrawnRectsEnd());
}

TEST_F(Object, HitTestAsksPolygonsThatAreOnUntilOneIsHit)
{
    CSceneHandler scene;
    CCamera camera;
    camera.SetPosition(-1, 0, 0);
    scene.SetActiveCamera(&camera);
    CPolygon* const back = AddPolygon(object, a, "a");
    AddPolygon(object, b, "b");
    renderer.inside = 3;
    EXPECT_EQ(object.IsPointInside(5, 6, &scene), 0);
    EXPECT_EQ(renderer.Take(), Calls{});
    object.On();
    EXPECT_EQ(scene.IsPointInside(5, 6, &object), 1);
    EXPECT_EQ(renderer.Take(), (Calls{"vertices 1043 600 1043 600 1043 600 1043 600", "inside 5 6"}));
    double x = 0, y = 0, z = 0;
    back->Set3D(0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    object.IsPointInside(5, 6, &scene);
    back->GetPoint(0, x, y, z);
    EXPECT_EQ(y, 7) << "not left rotated";
    back->Set3D(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    renderer.Take();
    renderer.inside = 0;
    EXPECT_EQ(object.IsPointInside(5, 6, &scene), 0);
    EXPECT_EQ(renderer.Take({"inside"}), (Calls{"inside 5 6", "inside 5 6"}));
    renderer.inside = 1;
    back->Off();
    EXPECT_EQ(object.IsPointInside(5, 6, nullptr), 1);
    EXPECT_EQ(renderer.Take(), (Calls{"vertices 800 600 800 600 800 600 800 600", "inside 5 6"}));
    EXPECT_EQ(scene.IsPointInside(5, 6, nullptr), 0);
}

TEST_F(Object, CloneKeepsThePolygonsPlacesAndForgetsItsOwn)
{
    CSceneHandler scene;
    CPolygon* const back = AddPolygon(object, a, "a");
    AddPolygon(object, b, "b")->SetStamp(4);
    back->SetTexture(a, 1, 1, 1, 1, 0, 0);
    object.SetPosition(5, 6, 7);
    object.On();
    object.GetClip()->Set(1, 2, 3, 4);
    object.Draw(&scene, target);
    scene.AddObject(&object);

    CObject clone;
    AddPolygon(clone, a, "a");
    clone.SetScale(3);
    scene.AddObject(&clone);
    clone.Clone(&object);
    clone.Clone(nullptr);
    clone.Clone(&clone);
    double x = -1, y = -1, z = -1, scale = -1;
    clone.GetPosition(x, y, z);
    clone.GetScale(scale);
    EXPECT_TRUE(x == 0 && y == 0 && z == 0 && scale == 1);
    clone.GetFrontPoly()->GetPosition(x, y, z);
    EXPECT_TRUE(x == 5 && y == 6 && z == 7);
    EXPECT_EQ(clone.GetFrontPoly()->GetTexture(), b);
    EXPECT_EQ(clone.GetFrontPoly()->IsStamp(), 4);
    EXPECT_EQ(clone.GetFrontPoly()->GetParent(), &clone);
    EXPECT_EQ(clone.GetClearPoly()->GetTexture(), b);
    EXPECT_EQ(clone.GetClip()->bottom, 4);
    EXPECT_EQ(Drawn(scene), (Calls{"texture a", "texture b", "texture b"})) << "the clone is in no scene";

    object.Off();
    scene.AddObject(&clone);
    renderer.draws.clear();
    EXPECT_EQ(Drawn(scene).front(), "texture a");
    EXPECT_EQ(renderer.draws.front().coords, (std::array<long, 8>{0, 0, 65535, 0, 65535, 65535, 0, 65535}))
        << "a clone of a mirrored back shows the whole picture";
}

TEST_F(Object, KeepsOnlyPolygonsThatAreItsOwn)
{
    CPolygon* const polygon = AddPolygon(object, a, "a");
    CObject other;
    EXPECT_EQ(other.AddPolygon(polygon), 0);
    EXPECT_EQ(other.AddPolygon(object.GetClearPoly()), 0);
    EXPECT_EQ(object.AddPolygon(object.GetClearPoly()), 0);
    EXPECT_EQ(object.AddPolygon(nullptr), 0);
    EXPECT_EQ(other.GetFrontPoly(), nullptr);
    EXPECT_EQ(object.GetFrontPoly(), polygon);
    EXPECT_EQ(polygon->GetParent(), &object);
}

} // namespace
