// SPDX-License-Identifier: MIT
#include "tests/support/card_table_test.h"

#include "host/canvas.h"
#include "host/render.h"
#include "host/window.h"

#include <cstring>
#include <limits>
#include <memory>

namespace
{

using Places = std::vector<const CControlBase*>;

/// Cards whose drawing covers what the test says: every pixel of the drawing bitmap tells where it is.
class StaticCards : public CardTableTest
{
protected:
    StaticCards()
    {
        Load();
        dialog->AddCntrlBefore(&under, nullptr);
        dialog->AddCntrlBefore(&anchor, nullptr);
        pocket.SetUseControls(dialog.get(), &anchor);
        renderer.clip = Edges(100, 50, 171, 146);
        renderer.paint = [this](Bitmap& drawing) {
            drawn = &drawing;
            std::uint8_t* pixel = drawing.Buffer();
            for (int y = 0; y < drawing.Height(); ++y) {
                for (int x = 0; x < drawing.Width(); ++x, pixel += 4) {
                    const std::uint32_t colour = Colour(x, y);
                    std::memcpy(pixel, &colour, 4);
                }
            }
        };
        for (const long value : {0, 1, 2}) {
            pocket.AddCard(value);
        }
        for (C3DMoveList& list : moves) {
            auto* const move = new C3DMove;
            move->Init(0, 0, 10, 0, 0, 10, 1);
            list.AddMove(move);
            pocket.AddMove(&list);
        }
    }
    static std::uint32_t Colour(int x, int y)
    {
        return 0xFF000000U | static_cast<std::uint32_t>(y) << 12 | static_cast<std::uint32_t>(x);
    }
    Places Controls() const
    {
        Places controls;
        for (const CControlBase* control = dialog->FirstControl(); control != nullptr;
             control = control->NextControl()) {
            controls.push_back(control);
        }
        return controls;
    }
    /// The control made last: new ones stand directly before the anchor.
    Canvas& Newest() { return *static_cast<Canvas*>(anchor.PrevControl()); }

    RecordingRenderer renderer;
    Bitmap* drawn = nullptr;
    std::unique_ptr<CDialog> dialog = std::make_unique<CDialog>();
    Canvas under;
    Canvas anchor;
    C3DMoveList moves[3];
    CPocket& pocket = *table.GetPocket(0);
};

TEST_F(StaticCards, CopyPlaceAndCleaning)
{
    const struct {
        CRect clip;
        int width, height;            ///< of the control
        int left, top, right, bottom; ///< the part of its picture that is filled
        int clearX, clearY, clearWidth, clearHeight;
    } cases[] = {
        {Edges(100, 50, 171, 146), 71, 96, 0, 0, 71, 96, 99, 49, 73, 98},
        {Edges(0, 0, 71, 96), 71, 96, 0, 0, 71, 96, 0, 0, 73, 98},
        {Edges(760, 0, 831, 96), 71, 96, 0, 0, 40, 96, 759, 0, 41, 98},
        {Edges(10, 550, 81, 646), 71, 96, 0, 0, 71, 50, 9, 549, 73, 51},
        {Edges(-10, -20, 61, 76), 71, 96, 10, 20, 71, 96, 0, 0, 73, 98},
        {Edges(0, 0, 0, 0), 0, 0, 0, 0, 0, 0, 0, 0, 2, 2},
    };
    for (const auto& c : cases) {
        renderer.clip = c.clip;
        pocket.RemoveAllCardControls();
        pocket.DrawCard(1, 0, nullptr);
        const auto which = testing::Message() << (&c - cases);
        const Canvas& control = Newest();
        EXPECT_EQ(control.Width(), c.width) << which;
        EXPECT_EQ(control.Height(), c.height) << which;
        EXPECT_EQ(control.X(), c.clip.left) << which;
        EXPECT_EQ(control.Y(), c.clip.top) << which;
        const Bitmap& picture = *control.GetBitmap();
        for (int y = 0; y < c.height; ++y) {
            for (int x = 0; x < c.width; ++x) {
                const bool filled = x >= c.left && x < c.right && y >= c.top && y < c.bottom;
                const int fromX = x + static_cast<int>(c.clip.left);
                const int fromY = y + static_cast<int>(c.clip.top);
                ASSERT_EQ(PixelAt(picture, x, y), filled ? Colour(fromX, fromY) : 0) << which << ' ' << x << ' ' << y;
            }
        }
        for (int y = 0; y < 600; ++y) {
            for (int x = 0; x < 800; ++x) {
                const bool cleared =
                    x >= c.clearX && x < c.clearX + c.clearWidth && y >= c.clearY && y < c.clearY + c.clearHeight;
                ASSERT_EQ(PixelAt(*drawn, x, y) == 0, cleared) << which << ' ' << x << ' ' << y;
            }
        }
    }
    constexpr long kMost = std::numeric_limits<std::int32_t>::max();
    for (const CRect& odd : {Edges(-kMost - 1, -kMost - 1, kMost, kMost), Edges(kMost, kMost, -kMost, -kMost),
                             Edges(kMost - 5, 0, kMost, 5), Edges(-kMost, -kMost, -kMost + 9, -kMost + 9)}) {
        renderer.clip = odd;
        pocket.ForceRedrawStatics(); // defined, whatever the renderer says
    }
}

TEST_F(StaticCards, MadeOnceThenShown)
{
    EXPECT_FALSE(pocket.StaticCardMember(3));
    pocket.DrawCard(3, 0, nullptr);
    EXPECT_TRUE(pocket.StaticCardMember(3));
    Canvas& third = Newest();
    EXPECT_EQ(Controls(), (Places{&under, &third, &anchor}));
    EXPECT_EQ(renderer.draws.size(), 2U);
    EXPECT_EQ(renderer.draws.front().state, 1);
    pocket.ShowCard(3, false);
    EXPECT_FALSE(third.IsShown());
    pocket.DrawCard(3, 0, nullptr);
    EXPECT_TRUE(third.IsShown());
    pocket.ShowCard(3, false);
    pocket.RedrawCard(3, nullptr);
    EXPECT_TRUE(third.IsShown());
    pocket.ShowCard(9, true);
    EXPECT_EQ(renderer.draws.size(), 2U) << "shown again, not rendered again";

    pocket.DrawCard(1, 0, nullptr);
    Canvas& first = Newest();
    pocket.DrawCard(2, 0, nullptr);
    Canvas& second = Newest();
    EXPECT_EQ(Controls(), (Places{&under, &third, &first, &second, &anchor}));
    host.invalidated.clear();
    pocket.LiftCard(3);
    EXPECT_EQ(Controls(), (Places{&under, &first, &second, &third, &anchor}));
    pocket.ChangeZOrder(3, &under);
    EXPECT_EQ(Controls(), (Places{&under, &third, &first, &second, &anchor}));
    EXPECT_EQ(host.invalidated, (Places{&third, &third}));
    pocket.ChangeZOrder(3, nullptr);
    EXPECT_EQ(Controls(), (Places{&under, &first, &second, &anchor, &third}));
    pocket.LiftCard(9);
    pocket.ChangeZOrder(9, &under);

    EXPECT_TRUE(pocket.AddStaticCard(nullptr, 7, nullptr));
    EXPECT_EQ(Newest().Width(), 0) << "no card: nothing to render";
    pocket.SetUseControls(dialog.get(), nullptr);
    EXPECT_FALSE(pocket.AddStaticCard(nullptr, 8, nullptr));
    pocket.SetUseControls(nullptr, &anchor);
    EXPECT_FALSE(pocket.AddStaticCard(nullptr, 8, nullptr));
    EXPECT_TRUE(pocket.StaticCardMember(3)) << "controls stay as they are";
}

TEST_F(StaticCards, RenderedAnewOnRequest)
{
    pocket.Draw(0, nullptr);
    CObject* card = nullptr;
    pocket.GetCard(card, 2);
    card->GetFrontPoly()->SetStamp(0);
    host.invalidated.clear();
    renderer.draws.clear();
    renderer.clip = Edges(1, 2, 11, 22);
    pocket.SetShaded(2, 1);
    EXPECT_TRUE(renderer.draws.empty());
    pocket.ChangeCard(2, 5);
    ASSERT_EQ(renderer.draws.size(), 2U);
    EXPECT_EQ(renderer.draws[1].texture, table.GetCardTexture(0, 5));
    EXPECT_EQ(renderer.draws[1].state, 1);
    EXPECT_EQ(card->GetFrontPoly()->IsStamp(), 0);
    EXPECT_EQ(host.invalidated.size(), 1U);
    EXPECT_EQ(host.invalidated[0]->Height(), 20);
    EXPECT_EQ(host.invalidated[0]->X(), 1);

    EXPECT_TRUE(pocket.AddStaticCard(card, 40, nullptr)); // a control without a card at its position
    EXPECT_TRUE(pocket.AddStaticCard(card, -2, nullptr));
    host.invalidated.clear();
    renderer.draws.clear();
    pocket.ForceRedrawStatics();
    EXPECT_EQ(renderer.draws.size(), 6U);
    EXPECT_EQ(host.invalidated.size(), 5U) << "repainted also where no card stands";
    pocket.SetUseControls(nullptr, nullptr);
    pocket.ForceRedrawStatics();
    EXPECT_EQ(renderer.draws.size(), 6U);
}

TEST_F(StaticCards, RemovingCardsRemovesControls)
{
    pocket.DrawCard(3, 0, nullptr);
    pocket.DrawCard(1, 0, nullptr);
    pocket.DrawCard(2, 0, nullptr);
    const auto shown = [this] {
        std::string positions;
        for (int position = 1; position <= 3; ++position) {
            positions += pocket.StaticCardMember(position) ? std::to_string(position) : ".";
        }
        return positions;
    };
    EXPECT_EQ(pocket.RemoveCard(), 1);
    EXPECT_EQ(shown(), "1.3") << "the one made last goes, whichever card that shows";
    EXPECT_EQ(pocket.RemoveCard(3), 0);
    EXPECT_EQ(shown(), "1..") << "no such card any more, but its control goes";
    pocket.DrawCard(2, 0, nullptr);
    EXPECT_EQ(pocket.RemoveCard(1), 1);
    EXPECT_EQ(shown(), "1..") << "the control of the card above follows it down";
    pocket.RemoveCardControl(1);
    EXPECT_EQ(Controls(), (Places{&under, &anchor}));
    pocket.RemoveLastCardControl();
    pocket.RemoveCardControl(1);
    pocket.Draw(0, nullptr);
    EXPECT_EQ(shown(), "1..");
    EXPECT_EQ(pocket.RemoveCards(), 1);
    EXPECT_EQ(Controls(), (Places{&under, &anchor}));
}

TEST_F(StaticCards, DialogsAndPocketsDieInAnyOrder)
{
    pocket.Draw(0, nullptr);
    CDialog other;
    Canvas otherAnchor;
    other.AddCntrlBefore(&otherAnchor, nullptr);
    pocket.SetUseControls(&other, &otherAnchor);
    pocket.RemoveCardControl(1);
    EXPECT_EQ(Controls().size(), 4U) << "left the dialog it stands in";
    pocket.SetUseControls(nullptr, nullptr);
    pocket.RemoveAllCardControls();
    EXPECT_EQ(Controls().size(), 4U) << "out of reach while controls are off";
    table.Init(2, 5, 13, 2);
    EXPECT_EQ(Controls(), (Places{&under, &anchor})) << "no control outlives its pocket";
    CPocket& fresh = *table.GetPocket(0);
    fresh.AddCard(3);
    fresh.AddMove(&moves[0]);
    fresh.SetUseControls(dialog.get(), &anchor);
    fresh.Draw(0, nullptr);
    dialog.reset();
    table.Exit();
}

TEST_F(StaticCards, OneDrawingBitmapForAllPockets)
{
    CPocket& second = *table.GetPocket(1);
    second.AddCard(4);
    second.AddMove(&moves[0]);
    second.SetUseControls(dialog.get(), &anchor);
    pocket.DrawCard(1, 0, nullptr);
    Bitmap* const shared = drawn;
    EXPECT_EQ(shared->Width(), 800);
    EXPECT_EQ(shared->Height(), 600);
    second.DrawCard(1, 0, nullptr);
    EXPECT_EQ(drawn, shared);
    // It grows with the screen, and a smaller screen leaves it.
    host.host.SetActiveSize(1024, 300);
    pocket.DrawCard(2, 0, nullptr);
    EXPECT_EQ(drawn->Width(), 1024);
    EXPECT_EQ(drawn->Height(), 600);
    host.host.SetActiveSize(640, 480);
    pocket.ForceRedrawStatics();
    EXPECT_EQ(drawn->Width(), 1024);
    const Bitmap* const large = drawn;
    {
        const CPocket brief; // takes the shared bitmap away when it goes
    }
    EXPECT_EQ(large->Width(), 0);
    pocket.DrawCard(3, 0, nullptr);
    EXPECT_EQ(drawn->Width(), 800);
}

} // namespace
