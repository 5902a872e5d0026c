// SPDX-License-Identifier: MIT
// Objects, scenes, lists, moves and polygons die in any order. Places are used again on purpose: whatever stands at an
// old address must not be taken for what stood there. Reading of freed memory shows in the sanitizers.
#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/polygon.h"
#include "scene/scene_handler.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

#include <memory>
#include <optional>

namespace
{

class Life : public HostTest
{
protected:
    Life()
    {
        Fly(list, 100);
        scene.emplace();
        scene->SetTargetBitmap(target);
    }
    static void Fly(C3DMoveList& moves, long frames)
    {
        auto* const move = new C3DMove;
        move->Init(1, 0, 10, static_cast<double>(frames), 0, 10, frames);
        moves.AddMove(move);
    }
    static void Fill(CObject& object)
    {
        object.AddPolygon(new CPolygon);
        object.AddPolygon(new CPolygon);
    }
    static double X(const CObject& object)
    {
        double x = 0, y = 0, z = 0;
        object.GetPosition(x, y, z);
        return x;
    }
    std::size_t Draws(CSceneHandler& played)
    {
        renderer.draws.clear();
        played.Handler();
        return renderer.draws.size();
    }

    RecordingRenderer renderer;
    OwnBitmap target{4, 4};
    std::optional<CSceneHandler> scene;
    std::optional<CObject> object; ///< an object made anew in it stands at the old address
    C3DMoveList list;
};

TEST_F(Life, ObjectDiesInFlightAndItsPlaceIsTakenByAnother)
{
    scene->StartAnim(&list, &object.emplace());
    Fill(*object);
    object->On();
    EXPECT_EQ(Draws(*scene), 2U);
    EXPECT_EQ(X(*object), 1);
    const CObject* const address = &*object;
    object.reset();
    EXPECT_EQ(Draws(*scene), 0U);
    EXPECT_EQ(scene->IsAnyPolyAnim(), 1) << "the list plays on";

    Fill(object.emplace());
    ASSERT_EQ(&*object, address);
    C3DMoveList fresh;
    Fly(fresh, 7);
    scene->StartAnim(&fresh, &*object); // so that the new object is known too
    for (int i = 0; i < 200; ++i) {
        scene->UpdateAllMoves();
    }
    EXPECT_EQ(X(*object), 7) << "flown by its own list alone";
    list.First();
    list.Set3D();
    EXPECT_EQ(X(*object), 7);
    object->GetFrontPoly()->SetStamp(0);
    list.Next(0);
    list.StampObject();
    EXPECT_EQ(object->GetFrontPoly()->IsStamp(), 0);
    EXPECT_EQ(list.Get()->GetObjectPtr(), nullptr);
}

TEST_F(Life, SceneDiesFirst)
{
    Fill(object.emplace());
    auto second = std::make_unique<CSceneHandler>();
    scene->StartAnim(&list, &*object);
    second->AddObject(&*object);
    scene.reset();
    object->AddPolygon(new CPolygon);
    second->SetTargetBitmap(target);
    object->On();
    EXPECT_EQ(Draws(*second), 3U);
    scene.emplace().SetTargetBitmap(target); // at the old address
    object->AddPolygon(new CPolygon);
    EXPECT_EQ(Draws(*scene), 0U) << "a new scene is not the one that was joined";
    second.reset();
    object.reset();
}

TEST_F(Life, ListDiesWhilePlayingAndItsPlaceIsTakenByAnother)
{
    Fill(object.emplace());
    std::optional<C3DMoveList> brief;
    Fly(brief.emplace(), 50);
    scene->StartAnim(&*brief, &*object);
    scene->UpdateAllMoves();
    CSceneHandler copy = *scene;
    brief.reset();
    Fly(brief.emplace(), 50);
    auto* const move = new C3DMove;
    move->Init(&*object, 5);
    move->SetX(77, 77);
    brief->Init(0, 0);
    brief->AddMove(move);
    EXPECT_EQ(scene->IsAnyPolyAnim(), 0);
    scene->UpdateAllMoves();
    copy.UpdateAllMoves();
    EXPECT_EQ(X(*object), 1);
    brief.reset();
    EXPECT_EQ(scene->IsAnyPolyAnim() + copy.IsAnyPolyAnim(), 0);
}

TEST_F(Life, ListOwningItsObjectDiesWhilePlaying)
{
    auto* const owned = new CObject;
    Fill(*owned);
    auto moves = std::make_unique<C3DMoveList>();
    moves->Init(1, 0);
    Fly(*moves, 9);
    scene->StartAnim(moves.get(), owned);
    EXPECT_EQ(Draws(*scene), 2U);
    moves.reset();
    EXPECT_EQ(Draws(*scene), 0U);
    EXPECT_EQ(scene->IsAnyPolyAnim(), 0);
}

TEST_F(Life, PolygonsDieInScenesAndUnderMoves)
{
    CSceneHandler second;
    std::optional<CPolygon> polygon;
    C3DMove move;
    polygon.emplace().On();
    scene->AddPolygon(&*polygon);
    second.AddPolygon(&*polygon);
    move.Init(&*polygon, 3);
    move.SetX(5, 5);
    EXPECT_EQ(Draws(*scene), 1U);
    polygon.reset();
    EXPECT_EQ(move.GetObjectPtr(), nullptr);
    polygon.emplace().On();
    EXPECT_EQ(Draws(*scene), 0U);
    move.Set3D();
    double x = -1, y = 0, z = 0;
    polygon->GetPosition(x, y, z);
    EXPECT_EQ(x, 0);
    // A parent that has died is no parent, nor is another object in its place.
    polygon->SetParent(&object.emplace());
    EXPECT_EQ(polygon->GetParent(), &*object);
    object.reset();
    EXPECT_EQ(polygon->GetParent(), nullptr);
    CPolygon child;
    child.SetParent(&object.emplace());
    EXPECT_EQ(polygon->GetParent(), nullptr);
    scene->AddPolygon(&*polygon);
    EXPECT_EQ(Draws(*scene), 1U);
}

TEST_F(Life, MoveDiesWhileItsListPlays)
{
    Fill(object.emplace());
    scene->StartAnim(&list, &*object);
    scene->UpdateAllMoves();
    delete list.Get();
    scene->UpdateAllMoves();
    EXPECT_EQ(scene->IsAnyPolyAnim(), 0);
    EXPECT_EQ(X(*object), 1);
}

TEST_F(Life, CopiesOfAScenePlayAndEndByThemselves)
{
    Fill(object.emplace());
    scene->StartAnim(&list, &*object);
    scene->m_stampMode = 5;
    renderer.lastDrawn = Edges(1, 1, 2, 2);
    Draws(*scene);
    auto copy = std::make_unique<CSceneHandler>(*scene);
    EXPECT_EQ(copy->m_stampMode, 5);
    EXPECT_EQ(copy->GetTargetBitmap(), target);
    EXPECT_EQ(std::distance(copy->LastDrawnRectsBegin(), copy->LastDrawnRectsEnd()), 2);
    EXPECT_EQ(Draws(*copy), 2U);
    EXPECT_EQ(X(*object), 2) << "both name the same list";
    const CSceneHandler& same = *copy;
    *copy = same;
    EXPECT_EQ(Draws(*copy), 2U);
    CSceneHandler assigned;
    assigned.StartAnim(&list, &*object);
    assigned = *scene;
    scene.reset();
    EXPECT_EQ(Draws(assigned), 2U);
    copy->RemoveAllPolygons();
    EXPECT_EQ(assigned.IsAnyPolyAnim(), 1);
    object.reset();
    EXPECT_EQ(Draws(assigned) + Draws(*copy), 0U);
    copy.reset();
    EXPECT_EQ(assigned.IsAnyPolyAnim(), 1);
}

} // namespace
