// SPDX-License-Identifier: MIT
#include "tests/support/card_table_test.h"

#include <limits>
#include <memory>

namespace
{

using Areas = std::vector<render::Rectangle<int>>;

class Table : public CardTableTest
{
};

TEST_F(Table, PocketsByIndex)
{
    CCardTable fresh;
    const OwnBitmap target(4, 4);
    EXPECT_EQ(fresh.GetPocket(0), nullptr);
    fresh.Draw(0, target);
    fresh.Redraw(target);
    EXPECT_TRUE(host.lines.empty());
    EXPECT_NE(table.GetPocket(0), table.GetPocket(1));
    EXPECT_NE(table.GetPocket(2), nullptr);
    EXPECT_EQ(table.GetPocket(3), nullptr);
    EXPECT_EQ(table.GetPocket(-1), nullptr);
    EXPECT_NE(table.GetActiveCamera(), nullptr);
    EXPECT_DOUBLE_EQ(table.GetLight()->PP(), 10.0);

    fresh.DrawPocket(0, 0, target);
    table.DrawPocket(-1, 0, target);
    table.DrawCard(3, 1, 0, target);
    table.RedrawPocket(7, target);
    table.RedrawCard(3, 1, target);
    table.Exit();
    table.Exit();
    table.RedrawCard(0, 1, target);
    table.Draw(0, target);
    table.Redraw(target);
    EXPECT_EQ(table.GetPocket(0), nullptr);
    const std::string channel = "error game.card.cardtable: CCardTable::";
    EXPECT_EQ(host.lines, (std::vector{channel + "DrawPocket(0), index out of range [0,0]",
                                       channel + "DrawPocket(-1), index out of range [0,3]",
                                       channel + "DrawCard(3), pocket-index out of range [0,3]",
                                       channel + "RedrawPocket(7), index out of range [0,3]",
                                       channel + "RedrawCard(3), pocket-index out of range [0,3]",
                                       channel + "RedrawCard(0), pocket-index out of range [0,3]"}));
    for (const long count : {0L, -1L, static_cast<long>(std::numeric_limits<std::int32_t>::min())}) {
        EXPECT_EQ(table.Init(count, 1, 1, 1), 1);
        EXPECT_EQ(table.GetPocket(0), nullptr);
    }
}

TEST_F(Table, SecondInitDestroysTheEarlierPockets)
{
    Load();
    table.GetPocket(0)->AddCard(3);
    CObject* card = nullptr;
    table.GetPocket(0)->GetCard(card);
    CPolygon witness; // its parent is null once the object is dead
    witness.SetParent(card);
    table.Init(2, 5, 13, 2);
    EXPECT_EQ(witness.GetParent(), nullptr);
    EXPECT_EQ(table.GetPocket(0)->GetNumCards(), 0);
    EXPECT_NE(table.GetCardTexture(0, 0), nullptr) << "textures stay";
    table.Exit();
    EXPECT_EQ(table.GetCardTexture(0, 0), nullptr);
}

class TableFrame : public CardTableTest
{
protected:
    TableFrame()
    {
        table.SetSurfaceOffset(100, 50);
        object.AddPolygon(new CPolygon);
        object.On();
        table.AddObject(&object);
        target->FillRect({0, 0, 640, 480}, Rgba{255, 255, 255, 255});
    }
    /// What a frame asks of the screen whose draw touched this rectangle.
    Areas Frame(std::optional<CRect> drawn)
    {
        renderer.lastDrawn = drawn;
        host.areas.clear();
        EXPECT_EQ(table.Handler(), 1);
        return host.areas;
    }
    bool IsErased(int x, int y) { return PixelAt(*target, x, y) == 0; }

    RecordingRenderer renderer;
    OwnBitmap target{640, 480};
    CObject object;
};

TEST_F(TableFrame, ErasesTheLastFrameAndRepaintsBoth)
{
    EXPECT_EQ(Frame(Edges(-5, 10, 15, 40)), Areas{}) << "no target, nothing to do";
    table.SetTargetBitmap(target);
    table.EraseLastDrawnRegions();
    target->FillRect({0, 0, 640, 480}, Rgba{255, 255, 255, 255});
    EXPECT_EQ(Frame({}), (Areas{{100, 60, 21, 31}}));
    EXPECT_EQ(Frame({}), Areas{});
    EXPECT_EQ(Frame(Edges(-5, 10, 15, 40)), (Areas{{95, 60, 20, 30}}));
    target->FillRect({0, 0, 640, 480}, Rgba{255, 255, 255, 255});
    EXPECT_EQ(Frame(Edges(630, 470, 650, 490)), (Areas{{100, 60, 21, 31}, {730, 520, 20, 20}}));
    EXPECT_TRUE(IsErased(0, 10) && IsErased(20, 40));
    EXPECT_FALSE(IsErased(21, 10) || IsErased(0, 9) || IsErased(0, 41));
    EXPECT_EQ(Frame({}), (Areas{{730, 520, 10, 10}})) << "limited to the target";
    EXPECT_TRUE(IsErased(630, 470) && IsErased(639, 479));
    EXPECT_FALSE(IsErased(629, 470) || IsErased(630, 469));
    object.Off();
    EXPECT_EQ(Frame(Edges(1, 2, 3, 4)), Areas{});
    object.On();
    object.StampObject();
    EXPECT_EQ(Frame(Edges(1, 2, 3, 4)).size(), 2U) << "drawn twice, recorded twice";
}

TEST_F(TableFrame, AnyRectangleIsDefined)
{
    constexpr long kMost = std::numeric_limits<std::int32_t>::max();
    constexpr long kLeast = std::numeric_limits<std::int32_t>::min();
    table.SetTargetBitmap(target);
    table.SetSurfaceOffset(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
    for (const CRect& rect : {Edges(kLeast, kLeast, kMost, kMost), Edges(kMost, kMost, kLeast, kLeast),
                              Edges(700, 500, 710, 510), Edges(0, 0, kMost, kMost), Edges(9, 9, 3, 3)}) {
        Frame(rect);
        Frame({});
    }
    EXPECT_TRUE(IsErased(639, 479)) << "by the one that reaches over the target";
}

} // namespace
