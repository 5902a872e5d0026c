// SPDX-License-Identifier: MIT
#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "geometry/camera.h"
#include "geometry/polygon.h"
#include "scene/scene_handler.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

namespace
{

using Calls = std::vector<std::string>;
using Numbers = std::vector<double>;

class Scene : public HostTest
{
protected:
    Scene() { object.AddPolygon(new CPolygon); }

    /// A move from x `first`, one more a frame, aimed by whoever plays it.
    static void Add(C3DMoveList& list, double first, long frames)
    {
        auto* const move = new C3DMove;
        move->Init(first, 0, 10, first + static_cast<double>(frames) - 1, 0, 10, frames);
        list.AddMove(move);
    }
    double X(const CObject& placed) const
    {
        double x = 0, y = 0, z = 0;
        placed.GetPosition(x, y, z);
        return x;
    }
    /// The object's x after each of that many frames; a frame that stamps the object counts as a hundred more.
    Numbers Frames(int count)
    {
        Numbers values;
        for (int i = 0; i < count; ++i) {
            object.GetFrontPoly()->SetStamp(0);
            scene.UpdateAllMoves();
            values.push_back(X(object) + (object.GetFrontPoly()->IsStamp() != 0 ? 100 : 0));
        }
        return values;
    }

    CSceneHandler scene;
    CObject object;
    C3DMoveList list;
};

TEST_F(Scene, StartsEmpty)
{
    CCamera camera, other;
    EXPECT_EQ(scene.m_stampMode, 1);
    EXPECT_EQ(scene.m_skipStampDrawBefore + scene.m_skipStampDrawAfter + scene.m_sortByDepth, 0);
    EXPECT_FALSE(scene.HasTargetBitmap());
    EXPECT_EQ(scene.GetLight(), nullptr);
    EXPECT_EQ(scene.IsAnyPolyAnim(), 0);
    scene.SetActiveCamera(&camera);
    scene.AddCamera(&camera);
    scene.AddCamera(&other);
    scene.RemoveAllCameras();
    scene.RemoveCamera(&other);
    EXPECT_EQ(scene.GetActiveCamera(), &camera);
    scene.RemoveCamera(&camera);
    EXPECT_EQ(scene.GetActiveCamera(), nullptr);
}

TEST_F(Scene, StartedAnimationPlaysOnceAndLeaves)
{
    Add(list, 0, 2);
    Add(list, 10, 2);
    scene.StartAnim(&list, &object);
    EXPECT_EQ(object.GetFrontPoly()->OnFlag(), 1);
    EXPECT_EQ(scene.IsAnyPolyAnim(), 1);
    EXPECT_EQ(Frames(3), (Numbers{0, 1, 10}));
    EXPECT_EQ(scene.IsAnyPolyAnim(), 1);
    EXPECT_EQ(Frames(2), (Numbers{111, 11}));
    EXPECT_EQ(scene.IsAnyPolyAnim(), 0);
    list.First();
    EXPECT_EQ(Frames(1), (Numbers{11})) << "the entry is gone";
    scene.StartAnim(&list, &object);
    scene.RemoveAllPolygons();
    EXPECT_EQ(scene.IsAnyPolyAnim(), 0);
    EXPECT_EQ(Frames(1), (Numbers{11}));
}

TEST_F(Scene, EntryThatStaysIsIdleUntilItsListIsRestarted)
{
    Add(list, 5, 1);
    scene.InsertMoveList(&list, 0, 0);
    scene.DrawFirstFrame(&list, &object, nullptr); // aims the move
    list.First();
    EXPECT_EQ(Frames(2), (Numbers{105, 5}));
    object.SetPosition(0, 0, 0);
    EXPECT_EQ(Frames(1), (Numbers{0}));
    EXPECT_EQ(scene.IsAnyPolyAnim(), 0);
    list.First();
    EXPECT_EQ(scene.IsAnyPolyAnim(), 1);
    EXPECT_EQ(Frames(1), (Numbers{105}));
}

TEST_F(Scene, RemovalSkipsNoEntryAndEmptyListsGoUnapplied)
{
    C3DMoveList empty[3];
    C3DMoveList first, second;
    CObject others[2];
    Add(first, 3, 3);
    Add(second, 6, 3);
    for (C3DMoveList& nothing : empty) {
        scene.StartAnim(&nothing, &object);
    }
    EXPECT_EQ(object.GetFrontPoly()->OnFlag(), 1);
    scene.StartAnim(&first, &others[0]);
    scene.InsertMoveList(&empty[0], 1, 0);
    scene.StartAnim(&second, &others[1]);
    EXPECT_EQ(Frames(1), (Numbers{0}));
    EXPECT_EQ(X(others[0]), 3);
    EXPECT_EQ(X(others[1]), 6);
    Add(empty[0], 50, 1);
    Add(empty[2], 60, 1);
    scene.UpdateAllMoves();
    EXPECT_EQ(X(others[1]), 7);
    EXPECT_EQ(X(object), 0);
}

TEST_F(Scene, ListInsertedTwiceAdvancesTwice)
{
    Add(list, 0, 9);
    scene.StartAnim(&list, &object);
    scene.InsertMoveList(&list, 1, 0);
    scene.InsertMoveList(nullptr, 1, 0);
    EXPECT_EQ(Frames(4), (Numbers{1, 3, 5, 7}));
}

TEST_F(Scene, MoveWithoutFramesEndsTheWalkAndThePlaying)
{
    CObject earlier;
    Add(list, 0, 1);
    Add(list, 10, 0);
    auto* const last = new C3DMove;
    last->Init(&earlier, 2);
    last->SetX(20, 21);
    list.AddMove(last);
    scene.StartAnim(&list, &object);
    EXPECT_EQ(last->GetObjectPtr(), &earlier) << "not reached by the walk";
    EXPECT_EQ(Frames(2), (Numbers{100, 0}));
    EXPECT_EQ(scene.IsAnyPolyAnim(), 0);
    scene.InsertMoveList(&list, 0, 0);
    list.First();
    EXPECT_EQ(Frames(1), (Numbers{100}));
    EXPECT_EQ(Frames(1), (Numbers{0}));
    EXPECT_EQ(X(earlier), 20) << "an entry that stays goes on with the move after it";
    EXPECT_EQ(scene.IsAnyPolyAnim(), 1);
}

TEST_F(Scene, EveryListIsAskedWhetherItPlays)
{
    C3DMoveList second;
    Add(list, 0, 5);
    Add(second, 0, 1);
    Add(second, 10, 2);
    scene.InsertMoveList(&list, 0, 0);
    scene.InsertMoveList(&second, 0, 0);
    second.Next(0);
    C3DMove* const before = second.Get();
    EXPECT_EQ(scene.IsAnyPolyAnim(), 1);
    EXPECT_NE(second.Get(), before) << "asking moves a list on";
}

TEST_F(Scene, FirstAndLastFrameAreStamped)
{
    RecordingRenderer renderer;
    const OwnBitmap target(4, 4);
    renderer.Name(target, "target");
    renderer.Name(object.GetClip(), "clip");
    Add(list, 0, 3);
    Add(list, 10, 3);
    scene.m_stampMode = 6;
    scene.DrawFirstFrame(&list, &object, target);
    EXPECT_EQ(renderer.Take({"state", "draw", "last"}), (Calls{"state 1 6", "draw target clip"}));
    EXPECT_EQ(X(object), 0);
    scene.DrawLastFrame(&list, &object, target);
    EXPECT_EQ(renderer.Take({"state", "draw", "last"}), (Calls{"state 1 6", "draw target clip"}));
    EXPECT_EQ(X(object), 12);
    EXPECT_EQ(object.GetFrontPoly()->IsStamp(), 1);
    object.Off();
    object.GetFrontPoly()->SetStamp(0);
    scene.DrawFirstFrame(&list, &object, nullptr);
    EXPECT_EQ(renderer.Take(), Calls{});
    EXPECT_EQ(X(object), 0);
    EXPECT_EQ(object.GetFrontPoly()->OnFlag() + object.GetFrontPoly()->IsStamp(), 2);
    C3DMoveList empty;
    scene.DrawFirstFrame(&empty, &object, target);
    scene.DrawLastFrame(&empty, &object, target);
    EXPECT_EQ(renderer.Take({"draw"}).size(), 2U);
    scene.SetTargetBitmap(target);
    scene.Handler();
    EXPECT_EQ(renderer.Take(), Calls{}) << "the object did not join the scene";
}

TEST_F(Scene, MisuseIsLoggedAndChangesNothing)
{
    scene.StartAnim(nullptr, &object);
    EXPECT_EQ(object.GetFrontPoly()->OnFlag(), 0);
    scene.DrawLastFrame(&list, nullptr, nullptr);
    EXPECT_EQ(host.lines,
              (Calls{"error game.components.card.scenehandler: CSceneHandler::StartAnim no valid activeMoveList",
                     "error game.components.card.scenehandler: CSceneHandler::DrawLastFrame no valid activeObject"}));
    scene.StartAnim(&list, nullptr);
    scene.DrawFirstFrame(&list, nullptr, nullptr);
    scene.DrawFirstFrame(nullptr, &object, nullptr);
    scene.DrawLastFrame(nullptr, &object, nullptr);
    scene.AddObject(nullptr);
    scene.RemoveObject(nullptr);
    scene.RemovePolygon(nullptr);
    EXPECT_EQ(scene.IsAnyPolyAnim(), 0);
    EXPECT_EQ(object.GetFrontPoly()->OnFlag(), 0);
}

} // namespace
