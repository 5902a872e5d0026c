// SPDX-License-Identifier: MIT
#include "animation/object.h"
#include "geometry/polygon.h"
#include "scene/scene_handler.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

namespace
{

using Calls = std::vector<std::string>;

std::vector<long> LeftEdges(CSceneHandler& scene)
{
    std::vector<long> edges;
    for (auto rect = scene.LastDrawnRectsBegin(); rect != scene.LastDrawnRectsEnd(); ++rect) {
        edges.push_back(rect->left);
    }
    return edges;
}

class Frame : public HostTest
{
protected:
    Frame()
    {
        Fill(near, nearTexture, "near", 5);
        Fill(far, farTexture, "far", 9);
        renderer.Name(near.GetClip(), "near");
        renderer.Name(far.GetClip(), "far");
        renderer.Name(target, "target");
        renderer.lastDrawn = Edges(1, 2, 3, 4);
        scene.m_stampMode = 7;
        scene.SetTargetBitmap(target);
        scene.AddObject(&near);
        scene.AddObject(&far);
    }
    void Fill(CObject& object, Bitmap* texture, const char* name, double depth)
    {
        auto* const polygon = new CPolygon;
        polygon->Set3D(-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0);
        polygon->SetTexture(texture, 1, 1, 0, 0, 1, 1);
        object.AddPolygon(polygon);
        object.SetPosition(0, 0, depth);
        object.On();
        renderer.Name(texture, name);
    }
    Calls Play(std::initializer_list<const char*> words)
    {
        renderer.Take();
        renderer.draws.clear();
        scene.Handler();
        return renderer.Take(words);
    }

    RecordingRenderer renderer;
    OwnBitmap target{4, 4};
    OwnBitmap nearTexture{1, 1};
    OwnBitmap farTexture{1, 1};
    CSceneHandler scene;
    CObject near;
    CObject far;
};

TEST_F(Frame, OrderOfDrawingAndRecords)
{
    const auto words = {"state", "draw", "last"};
    EXPECT_EQ(Play(words),
              (Calls{"state 1 0", "draw target near", "last rect", "state 1 0", "draw target far", "last rect"}));
    EXPECT_EQ(LeftEdges(scene).size(), 2U);
    near.GetClip()->Set(1, 1, 2, 2);
    far.GetClip()->Set(1, 1, 2, 2);
    far.Off();
    scene.m_sortByDepth = 1;
    EXPECT_EQ(Play(words), (Calls{"state 1 0", "draw target near", "last rect"}));
    EXPECT_EQ(near.GetClip()->right, 0) << "reset before the drawing";
    EXPECT_EQ(far.GetClip()->right, 2) << "off: not looked at";
    far.On();
    EXPECT_EQ(Play(words),
              (Calls{"state 1 0", "draw target far", "last rect", "state 1 0", "draw target near", "last rect"}));
    renderer.lastDrawn.reset();
    Play({});
    EXPECT_TRUE(LeftEdges(scene).empty());
    scene.PushLastDrawnRect();
    EXPECT_TRUE(LeftEdges(scene).empty());
    renderer.lastDrawn = Edges(8, 0, 9, 1);
    scene.PushLastDrawnRect();
    EXPECT_EQ(LeftEdges(scene), std::vector<long>{8});

    // All clips are reset before the first draw of a sorted frame.
    far.GetClip()->Set(1, 1, 2, 2);
    near.GetClip()->Set(1, 1, 2, 2);
    bool reset = false;
    renderer.paint = [&](Bitmap&) { reset = near.GetClip()->right == 0 && far.GetClip()->right == 0; };
    Play({});
    EXPECT_TRUE(reset);
    near.Off();
    far.Off();
    EXPECT_EQ(Play({}), Calls{});
    EXPECT_TRUE(LeftEdges(scene).empty());
}

TEST_F(Frame, StampProtocol)
{
    const struct {
        bool target;
        long skipBefore, skipAfter;
        Calls calls;
        std::size_t records;
    } cases[] = {
        {true, 0, 0, {"state 1 0", "draw target far", "last rect", "state 1 7", "draw target far", "last rect"}, 3},
        {true, 1, 0, {"state 1 0", "state 1 7", "draw target far", "last rect"}, 2},
        {true, 0, 5, {"state 1 0", "draw target far", "last rect", "state 1 7"}, 2},
        {true, 1, 1, {"state 1 0", "state 1 7"}, 1},
        {false, 0, 0, {"state 1 0", "last rect", "state 1 7", "last rect"}, 3},
        {false, 1, 1, {"state 1 0", "state 1 7"}, 1},
    };
    for (const auto& c : cases) {
        for (const long sorted : {0, 1}) {
            const auto which = testing::Message() << (&c - cases) << " sorted " << sorted;
            scene.SetTargetBitmap(c.target ? static_cast<Bitmap*>(target) : nullptr);
            scene.m_skipStampDrawBefore = c.skipBefore;
            scene.m_skipStampDrawAfter = c.skipAfter;
            scene.m_sortByDepth = sorted;
            far.GetClearPoly()->SetTexture(nullptr, 0, 0, 0, 0, 0, 0);
            far.GetFrontPoly()->SetStamp(3);
            Calls plain{"state 1 0", "draw target near", "last rect"};
            if (!c.target) {
                plain.erase(plain.begin() + 1);
            }
            Calls expected = plain;
            expected.insert(sorted != 0 ? expected.begin() : expected.end(), c.calls.begin(), c.calls.end());
            EXPECT_EQ(Play({"state", "draw", "last"}), expected) << which;
            EXPECT_EQ(LeftEdges(scene).size(), c.records) << which;
            EXPECT_EQ(far.GetFrontPoly()->IsStamp(), 0) << which;
            EXPECT_EQ(far.GetClearPoly()->GetTexture(), farTexture) << which;
            EXPECT_EQ(far.GetClearPoly()->IsStamp(), 0) << "copied after the mark was cleared";
            EXPECT_EQ(near.GetClearPoly()->GetTexture(), nullptr) << which;

            // An ordinary polygon again on the next frame.
            const Calls next = Play({"state", "draw"});
            EXPECT_EQ(next.size(), c.target ? 4U : 2U) << which;
            EXPECT_EQ(next.back(), c.target ? sorted != 0 ? "draw target near" : "draw target far" : "state 1 0");
        }
    }
}

TEST_F(Frame, ClearPolygonKeepsTheTurnedCorners)
{
    far.SetRotate(0, 0, 90);
    far.StampObject();
    scene.Handler();
    double x = 0, y = 0, z = 0;
    far.GetClearPoly()->GetPoint(1, x, y, z);
    EXPECT_NEAR(x, -1, 1e-12);
    EXPECT_NEAR(y, 1, 1e-12);
    far.GetFrontPoly()->GetPoint(1, x, y, z);
    EXPECT_TRUE(x == 1 && y == -1) << "the polygon itself is reset";
    EXPECT_EQ(renderer.draws.back().state, 7) << "the state is not put back after the stamp";
    // The mark of a polygon that is off waits for it.
    far.Off();
    far.StampObject();
    Play({});
    EXPECT_EQ(far.GetFrontPoly()->IsStamp(), 1);
    far.On();
    EXPECT_EQ(Play({"draw"}).size(), 3U);
}

TEST_F(Frame, PolygonWithoutAParentIsDrawnWithoutAClip)
{
    CPolygon loose;
    loose.On();
    loose.SetStamp(1);
    scene.AddPolygon(&loose);
    scene.AddPolygon(nullptr);
    for (const long sorted : {0, 1}) {
        scene.m_sortByDepth = sorted;
        Play({});
        EXPECT_EQ(renderer.draws[2].clip, nullptr);
    }
}

} // namespace
