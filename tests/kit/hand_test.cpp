// SPDX-License-Identifier: MIT
#include "kit/hand.h"
#include "tests/kit/kit_game.h"

using namespace cardkit;

namespace
{

/// Face-up cards may be taken; the third pile takes them.
class Rules final : public HandRules
{
public:
    explicit Rules(Table& table) : m_table(table) {}
    bool MayTake(const Spot& spot) override { return m_table.At(spot.pile).FacingAt(spot.position) == Facing::Up; }
    bool MayDrop(const Spot& from, std::size_t pile) override { return pile == 2 && from.pile != 2; }
    void Dropped(const Spot& from, std::size_t pile) override
    {
        const std::vector<Card> cards = m_table.At(from.pile).Cards();
        for (auto i = static_cast<std::size_t>(from.position) - 1; i < cards.size(); ++i) {
            m_table.Order(from.pile, cards[i].value, pile, cards[i].facing, {});
        }
        ++drops;
    }
    void Tapped(const std::optional<Spot>& spot, int clicks) override
    {
        tapped = spot;
        tapClicks = clicks;
    }

    int drops = 0;
    int tapClicks = 0;
    std::optional<Spot> tapped;

private:
    Table& m_table;
};

} // namespace

class HandTest : public KitGame
{
protected:
    HandTest()
    {
        table.Lay({{{0}}, {{1}, {2, Facing::Up}, {3, Facing::Up}}, {{4, Facing::Up}}});
        UntilQuiet();
        before = Screen();
    }

    Rules rules{table};
    Hand hand{table, rules};
    std::vector<std::uint8_t> before;
};

TEST_F(HandTest, ARunIsPickedUpUnseenAndDroppedWhereItIsAllowed)
{
    hand.Press({155, 50}, 1); // the second card of the column
    hand.Move({158, 52});
    EXPECT_FALSE(hand.IsDragging());
    hand.Move({155, 56});
    ASSERT_TRUE(hand.IsDragging());
    hand.Move({155, 50}); // back where it was: nobody sees that it is held
    EXPECT_FALSE(Frame());
    EXPECT_EQ(Screen(), before);
    EXPECT_EQ(table.HeldArea().x, 150);
    hand.Move({155 + 100, 50 + 10});
    EXPECT_FALSE(Frame()); // what is held still needs no frames
    EXPECT_EQ(table.HeldArea().x, 250);
    hand.Release({155 + 115, 50 + 5});
    EXPECT_EQ(rules.drops, 1);
    UntilQuiet();
    EXPECT_EQ(Values(2), (std::vector<long>{4, 2, 3}));
    EXPECT_EQ(Values(1), std::vector<long>{1});
}

TEST_F(HandTest, IllegalDropsCancelsAndTapsLeaveEverythingAsItWas)
{
    hand.Press({155, 80}, 1);
    hand.Move({40, 200});
    hand.Release({20, 40});
    EXPECT_EQ(rules.drops, 0);
    UntilQuiet();
    EXPECT_EQ(Screen(), before);

    hand.Press({155, 80}, 1);
    hand.Move({300, 50});
    Frame();
    hand.Press({155, 80}, 1); // a second button while the first one holds
    UntilQuiet();
    hand.Cancel();
    hand.Release({300, 50});
    UntilQuiet();
    EXPECT_EQ(Screen(), before);

    hand.Press({152, 42}, 1); // face down: it cannot be taken
    hand.Move({300, 50});
    EXPECT_FALSE(hand.IsDragging());
    hand.Release({300, 50});
    EXPECT_EQ(rules.tapped, std::nullopt);
    hand.Press({155, 80}, 2);
    hand.Release({157, 79});
    EXPECT_EQ(rules.tapped, (Spot{1, 3}));
    EXPECT_EQ(rules.tapClicks, 2);
    hand.Move({300, 50});
    hand.Release({300, 50});
    UntilQuiet();
    EXPECT_EQ(Screen(), before);
    EXPECT_EQ(rules.drops, 0);
}

TEST_F(HandTest, ACardInFlightCanBeCaught)
{
    table.Order(1, 3, 2, Facing::Up, kFlight);
    for (int i = 0; i < 9; ++i) {
        Frame();
    }
    const Pixel seen = table.Plane().TopLeft(PlacementOf(*table.At(2).CardAt(2)), kCard);
    hand.Press({seen.x + 15, seen.y + 20}, 1);
    hand.Move({seen.x + 15, seen.y + 40});
    EXPECT_TRUE(hand.IsDragging());
    EXPECT_FALSE(table.IsMoving());
    Frame();
    hand.Cancel();
    UntilQuiet();
    EXPECT_EQ(Values(2), (std::vector<long>{4, 3}));
    EXPECT_TRUE(table.At(2).IsResting(2));
}
