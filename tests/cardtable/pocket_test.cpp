// SPDX-License-Identifier: MIT
#include "tests/support/card_table_test.h"

#include <limits>
#include <memory>

namespace
{

using Calls = std::vector<std::string>;
using Values = std::vector<long>;

constexpr long kMost = std::numeric_limits<std::int32_t>::max();
constexpr long kLeast = std::numeric_limits<std::int32_t>::min();

class Pocket : public CardTableTest
{
protected:
    Pocket() { Load(); }

    void Pile(std::initializer_list<long> values)
    {
        pocket.RemoveCards();
        for (const long value : values) {
            EXPECT_EQ(pocket.AddCard(value), 1) << value;
        }
    }
    Values Cards()
    {
        Values values;
        for (long position = 1; position <= pocket.GetNumCards(); ++position) {
            values.push_back(pocket.GetCard(position));
        }
        return values;
    }
    CObject* Object(long position)
    {
        CObject* object = nullptr;
        pocket.GetCard(object, position);
        return object;
    }
    Bitmap* Face(long position) { return Object(position)->GetFrontPoly()->GetTexture(); }
    /// A list of one frame that puts a card at this x.
    static void Aim(C3DMoveList& list, double x)
    {
        auto* const move = new C3DMove;
        move->Init(x, 0, 10, x, 0, 10, 1);
        list.AddMove(move);
    }

    CPocket& pocket = *table.GetPocket(0);
};

TEST_F(Pocket, LookupsByPosition)
{
    CObject* object = nullptr;
    EXPECT_EQ(pocket.GetCard(), -1);
    EXPECT_EQ(pocket.GetCard(object), -1);
    EXPECT_EQ(pocket.RemoveCard(), 0);
    EXPECT_EQ(pocket.RemoveCard(1), 0);
    EXPECT_EQ(pocket.RemoveCards(), 1);
    Pile({5, 9});
    EXPECT_EQ(pocket.GetNumCards(), 2);
    EXPECT_EQ(pocket.GetCard(), 9);
    EXPECT_EQ(Cards(), (Values{5, 9}));
    for (const long nowhere : {0L, -1L, 3L, kMost, kLeast}) {
        CObject* const untouched = Object(1);
        object = untouched;
        CRect* clip = nullptr;
        CPolygon* polygon = nullptr;
        EXPECT_EQ(pocket.GetCard(nowhere), -1) << nowhere;
        EXPECT_EQ(pocket.GetCard(object, nowhere), -1) << nowhere;
        EXPECT_EQ(object, untouched);
        EXPECT_EQ(pocket.ChangeCard(nowhere, 1) + pocket.SetShaded(nowhere, 1) + pocket.RemoveCard(nowhere), 0);
        EXPECT_EQ(pocket.GetClip(nowhere, clip) + pocket.GetClearPoly(nowhere, polygon), 2);
        EXPECT_TRUE(clip == nullptr && polygon == nullptr);
        EXPECT_EQ(pocket.GetMove(nowhere), nullptr);
        pocket.DrawCard(nowhere, 0, nullptr);
        pocket.RedrawCard(nowhere, nullptr);
    }
    EXPECT_EQ(pocket.GetCard(object), 9);
    EXPECT_EQ(object, Object(2));
    CRect* clip = nullptr;
    CPolygon* polygon = nullptr;
    pocket.GetClip(2, clip);
    pocket.GetClearPoly(2, polygon);
    EXPECT_EQ(clip, object->GetClip());
    EXPECT_EQ(polygon, object->GetClearPoly());
    EXPECT_EQ(pocket.RemoveCard(1), 1);
    EXPECT_EQ(Cards(), Values{9});
    EXPECT_EQ(pocket.RemoveCard(), 1);
    EXPECT_EQ(pocket.GetCard(object), -1);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Pocket, ValuesNameTheirPictures)
{
    Pile({0, 27, 53, 100});
    EXPECT_EQ(Face(1), table.GetCardTexture(0, 0));
    EXPECT_EQ(Face(2), table.GetCardTexture(2, 1));
    EXPECT_EQ(Face(3), table.GetCardTexture(4, 1));
    EXPECT_EQ(Face(4)->Width(), 4) << "the back";
    for (const long none : {54L, 101L, kMost}) {
        EXPECT_EQ(pocket.AddCard(none), 0) << none;
    }
    EXPECT_EQ(Cards(), (Values{0, 27, 53, 100}));
    // Below 0 the running number is below 0 too, so the first picture; a row of -1 is the face-down card.
    EXPECT_EQ(pocket.AddCard(-1), 1);
    EXPECT_EQ(pocket.AddCard(kLeast), 1);
    EXPECT_EQ(pocket.AddCard(-13), 1);
    EXPECT_EQ(Face(5), table.GetCardTexture(0, 0));
    EXPECT_EQ(Face(6), table.GetCardTexture(0, 0));
    EXPECT_EQ(Face(7), Face(4));
    table.Init(1, 1, 0, 1);
    EXPECT_EQ(table.GetPocket(0)->AddCard(1), 0) << "no columns to divide by";
    EXPECT_EQ(CPocket().AddCard(1), 0) << "no table";
}

TEST_F(Pocket, FacesChangeByTheFaceListAlone)
{
    EXPECT_EQ(table.LoadAdditionalCardTexture(sheet.Path()), 1);
    EXPECT_EQ(table.LoadTextures(sheet.Path(), back.Path(), 1, 0.5), 1);
    pocket.SetUseAdditionalTexture(1);
    Pile({3, 4});
    EXPECT_EQ(Face(1), table.GetAdditionalCardTexture(0, 3));
    EXPECT_EQ(pocket.ChangeCard(1, 14), 1);
    EXPECT_EQ(Face(1), table.GetCardTexture(1, 1));
    EXPECT_EQ(pocket.ChangeCard(1, 99), 1);
    EXPECT_EQ(Face(1), table.GetCardTexture(1, 1)) << "no such picture: the face stays";
    EXPECT_EQ(pocket.GetCard(1), 99) << "the value does not";
    EXPECT_EQ(pocket.ChangeCard(1, 100), 1);
    EXPECT_EQ(Face(1)->Width(), 4);
    EXPECT_EQ(pocket.SetShaded(1, 1), 1);
    EXPECT_EQ(Face(1)->Width(), 4) << "a face-down card has no shaded face";
    EXPECT_EQ(pocket.ChangeCard(1, 7), 1);
    EXPECT_EQ(pocket.SetShaded(1, 1), 1);
    EXPECT_EQ(Face(1), table.GetShadedCardTexture(0, 7));
    EXPECT_EQ(pocket.SetShaded(1, 0), 1);
    EXPECT_EQ(Face(1), table.GetCardTexture(0, 7));
    Load(0);
    Pile({1});
    Bitmap* const face = Face(1);
    EXPECT_EQ(pocket.SetShaded(1, 1), 1);
    EXPECT_EQ(Face(1), face) << "without shaded pictures it stays";
    for (const long odd : {-1L, kLeast, kMost, 54L}) {
        EXPECT_EQ(pocket.ChangeCard(1, odd), 1);
        EXPECT_EQ(pocket.GetCard(1), odd);
        EXPECT_EQ(pocket.SetShaded(1, 0), 1);
    }
}

TEST_F(Pocket, DrawPlacesCardsByTheirMoves)
{
    RecordingRenderer renderer;
    const OwnBitmap target(4, 4);
    C3DMoveList moves[4];
    EXPECT_EQ(pocket.GetMove(0), nullptr);
    EXPECT_EQ(pocket.AddMove(nullptr), 0);
    for (int i = 0; i < 4; ++i) {
        Aim(moves[i], i);
        EXPECT_EQ(pocket.AddMove(&moves[i]), 1);
    }
    Pile({0, 1, 2});
    const auto places = [&](long offset) {
        std::vector<double> xs;
        for (long position = 1; position <= 3; ++position) {
            Object(position)->SetPosition(-9, 0, 10);
        }
        pocket.Draw(offset, target);
        for (long position = 1; position <= 3; ++position) {
            double x = 0, y = 0, z = 0;
            Object(position)->GetPosition(x, y, z);
            xs.push_back(x);
        }
        return xs;
    };
    using Places = std::vector<double>;
    EXPECT_EQ(places(0), (Places{0, 1, 2}));
    EXPECT_EQ(renderer.draws.size(), 6U);
    EXPECT_EQ(renderer.draws.back().state, 1);
    EXPECT_EQ(Object(1)->GetFrontPoly()->IsStamp(), 1) << "the marks of a draw stay";
    EXPECT_EQ(places(1), (Places{1, 2, 3}));
    EXPECT_EQ(places(2), (Places{2, 3, -9}));
    EXPECT_EQ(places(-1), (Places{-9, 0, 1}));
    EXPECT_EQ(places(kMost), (Places{-9, -9, -9}));
    EXPECT_EQ(places(kLeast), (Places{-9, -9, -9}));
    table.DrawCard(0, 2, 2, target);
    double x = 0, y = 0, z = 0;
    Object(2)->GetPosition(x, y, z);
    EXPECT_EQ(x, 3);
    EXPECT_EQ(pocket.GetMove(3), &moves[3]);
    EXPECT_EQ(pocket.GetMove(4), nullptr);
    EXPECT_EQ(pocket.RemoveMoves(), 1);
    EXPECT_EQ(pocket.GetMove(0), nullptr);
    moves[0].First();
    EXPECT_EQ(moves[0].Exists(), 1) << "the list is still its owner's";
}

TEST_F(Pocket, RedrawKeepsTheMarks)
{
    RecordingRenderer renderer;
    const OwnBitmap target(4, 4);
    Pile({0, 1, 2});
    table.Redraw(target);
    EXPECT_TRUE(renderer.draws.empty()) << "never switched on";
    for (long position = 1; position <= 3; ++position) {
        Object(position)->On();
    }
    Object(2)->GetFrontPoly()->SetStamp(8);
    table.Redraw(target);
    ASSERT_EQ(renderer.draws.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(renderer.draws[i].state, 1) << i;
        EXPECT_EQ(renderer.draws[i].clip, Object(static_cast<long>(i / 2) + 1)->GetClip()) << "in pile order";
    }
    EXPECT_EQ(Object(1)->GetFrontPoly()->IsStamp(), 0);
    EXPECT_EQ(Object(2)->GetFrontPoly()->IsStamp(), 8);
    pocket.m_skipTopCard = 1;
    pocket.Redraw(target);
    EXPECT_EQ(renderer.draws.size(), 10U);
    pocket.RemoveCards();
    pocket.Redraw(target);
    pocket.Draw(0, target);
    EXPECT_EQ(renderer.draws.size(), 10U);
}

TEST_F(Pocket, CameraReachesPresentAndLaterCards)
{
    RecordingRenderer renderer;
    CCamera camera;
    camera.SetPosition(-1, 0, 0);
    table.SetCardDimension(0, 0);
    Pile({0, 1});
    pocket.SetCamera(&camera);
    pocket.AddCard(2);
    for (long position = 1; position <= 3; ++position) {
        Object(position)->SetPosition(2, 0, 10);
        EXPECT_EQ(SidesOf(*Object(position), renderer)[0].vertices[0], 1529) << position;
    }
}

TEST_F(Pocket, TotalClipIsTheUnionAndLogged)
{
    CRect total = Edges(1, 2, 3, 4);
    CRect* clip = &total;
    EXPECT_EQ(pocket.GetTotalClip(clip), 1);
    EXPECT_EQ(host.lines, Calls{"info game.components.card.pocket: FinalClip: 1 2 3 4\n"});
    Pile({0, 1, 2});
    Object(1)->GetClip()->Set(10, 20, 30, 40);
    Object(2)->GetClip()->Set(5, 25, 12, 60);
    pocket.GetTotalClip(clip);
    EXPECT_EQ(host.lines.back(), "info game.components.card.pocket: FinalClip: 5 20 30 60\n");
    EXPECT_TRUE(total.left == 5 && total.top == 20 && total.right == 30 && total.bottom == 60);
    CRect* none = nullptr;
    EXPECT_EQ(pocket.GetTotalClip(none), 1);
}

TEST_F(Pocket, CardsInFlightDieWithTheirPocket)
{
    RecordingRenderer renderer;
    const OwnBitmap target(4, 4);
    C3DMoveList list;
    Aim(list, 1);
    table.SetTargetBitmap(target);
    Pile({0, 1});
    table.StartAnim(&list, Object(2));
    table.GetPocket(1)->AddCard(3);
    pocket.RemoveCard();
    table.Handler();
    EXPECT_TRUE(renderer.draws.empty());
    table.StartAnim(&list, Object(1));
    table.Init(1, 5, 13, 2);
    table.Handler();
    EXPECT_TRUE(renderer.draws.empty());
    EXPECT_EQ(table.IsAnyPolyAnim(), 0);
}

TEST_F(Pocket, CardDeletedByAListLeavesItsPocket)
{
    Pile({0, 1, 2});
    auto list = std::make_unique<C3DMoveList>();
    list->Init(1, 0);
    Aim(*list, 1);
    table.StartAnim(list.get(), Object(2));
    list.reset();
    EXPECT_EQ(Cards(), (Values{0, 2}));
    table.Handler();
}

TEST_F(Pocket, MoveListMayDieFirst)
{
    C3DMoveList kept;
    Aim(kept, 1);
    std::optional<C3DMoveList> brief;
    pocket.AddMove(&brief.emplace());
    pocket.AddMove(&kept);
    Pile({0, 1});
    brief.reset();
    pocket.Draw(0, nullptr);
    EXPECT_EQ(pocket.GetMove(0), nullptr);
    EXPECT_EQ(pocket.GetMove(1), &kept);
    brief.emplace();
    EXPECT_EQ(pocket.GetMove(0), nullptr) << "another list at the old address";
}

} // namespace
