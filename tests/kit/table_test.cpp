// SPDX-License-Identifier: MIT
#include "tests/kit/kit_game.h"

#include "animation/object.h"
#include "cardtable/pocket.h"

#include <cmath>
#include <limits>
#include <random>

using namespace cardkit;

namespace
{

const std::vector<std::vector<Card>> kStart{{{0}, {1}, {2}, {3}, {4}, {5}, {6}, {7}, {8}, {9}}, {}, {}};
const std::vector<std::vector<Card>> kEnd{
    {{0}, {1}, {2}}, {{9}, {8}, {7, Facing::Up}, {6, Facing::Up}}, {{5, Facing::Up}, {4, Facing::Up}, {3, Facing::Up}}};

} // namespace

TEST_F(KitGame, ArrangedCardsFlyHomeAndTheEndIsThatOfLayingThem)
{
    table.Lay(kEnd);
    UntilQuiet();
    const std::vector<std::uint8_t> wanted = Screen();
    for (const double speed : {1.0, 0.4, 7.0, Table::kInstant}) {
        for (const int stopAt : {0, 1, 9, 1000}) { // frames before everything is finished at once
            table.SetSpeed(speed);
            table.Lay(kStart);
            UntilQuiet();
            EXPECT_NE(Screen(), wanted);
            table.Arrange(kEnd, kFlight, 2.5);
            EXPECT_EQ(table.IsMoving(), speed != Table::kInstant);
            for (int i = 0; i < stopAt && table.IsMoving(); ++i) {
                Frame();
            }
            table.FinishAll();
            UntilQuiet();
            for (std::size_t i = 0; i < kEnd.size(); ++i) {
                EXPECT_EQ(table.At(i).Cards(), kEnd[i]);
            }
            EXPECT_EQ(Screen(), wanted) << "speed " << speed << ", finished after " << stopAt;
        }
    }
    table.SetSpeed(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(table.Speed(), Table::kNormalSpeed);
}

TEST_F(KitGame, RestCostsNothingAndReducedMotionStaysFlat)
{
    table.Lay(kStart);
    table.SetReducedMotion(true);
    table.Arrange(kEnd, kFlight, 0.0);
    while (table.IsMoving()) {
        Frame();
        for (std::size_t i = 0; i < table.NumPiles(); ++i) {
            for (long position = 1; position <= table.At(i).NumCards(); ++position) {
                const Placement place = PlacementOf(*table.At(i).CardAt(position));
                EXPECT_NEAR(place.z, 0.0, 1e-9);
                EXPECT_TRUE(place.rotX == 0.0 || place.rotX == 180.0);
            }
        }
    }
    UntilQuiet();
    EXPECT_FALSE(table.Frame());
    EXPECT_FALSE(host.host.HasDamage());
}

TEST_F(KitGame, ANewOrderStartsWhereTheCardIsSeen)
{
    table.Lay(kStart);
    table.Order(0, 9, 1, Facing::Up, kFlight);
    for (int i = 0; i < 8; ++i) {
        Frame();
    }
    const Placement before = PlacementOf(*table.At(1).CardAt(1));
    EXPECT_LT(before.z, -10.0);
    table.Order(1, 9, 2, Facing::Up, kFlight);
    Frame();
    const Placement after = PlacementOf(*table.At(2).CardAt(1));
    EXPECT_LT(std::hypot(after.x - before.x, after.y - before.y), 3.0);
    EXPECT_NEAR(after.z, before.z, 3.0);
    EXPECT_NEAR(after.rotX, before.rotX, 12.0);
    UntilQuiet();
    EXPECT_EQ(Values(2), std::vector<long>{9});
    EXPECT_TRUE(table.At(2).IsResting(1));
}

TEST_F(KitGame, CardsThatMakeRoomSlideAndCoveredOnesHaveNoControl)
{
    table.Lay(kStart);
    EXPECT_FALSE(table.At(0).Pocket().StaticCardMember(1));
    EXPECT_TRUE(table.At(0).Pocket().StaticCardMember(10));
    for (long value = 9; value > 0; --value) {
        table.Order(0, value, 2, Facing::Up, kFlight);
        UntilQuiet();
        EXPECT_TRUE(table.At(2).Displaced().empty());
        EXPECT_TRUE(table.At(0).Pocket().StaticCardMember(static_cast<int>(value)));
    }
    for (long value = 10; value < 20; ++value) { // beyond the room of 120 pixels
        table.Add(2, {value, Facing::Up});
    }
    table.Order(0, 0, 2, Facing::Up, kFlight);
    UntilQuiet();
    EXPECT_TRUE(table.At(2).Displaced().empty());
    EXPECT_LE(table.At(2).HomePixel(20).x, 260 + 120);
}

TEST_F(KitGame, ArrangedAnywayTheTableHoldsWhatIsWanted)
{
    using Piles = std::vector<std::vector<Card>>;
    const Piles start{{{0}, {1}, {2}}, {{3}, {4, Facing::Up}, {5, Facing::Up}}, {{6}}};
    const Piles covered{{{0}, {1}, {2}}, {{3}, {4}, {5, Facing::Up}, {6}}, {}}; // 4 turns its back under others
    const Piles turned{{{2}, {0, Facing::Up}, {1}}, {{6}, {5}, {4}, {3, Facing::Up}}, {}};
    const std::vector<const Piles*> arrangements{&covered, &turned, &start, &turned, &covered};
    table.Lay(start);
    for (const int framesBetween : {1000, 5, 0}) {
        for (const Piles* const wanted : arrangements) {
            table.Arrange(*wanted, kFlight, 2.0);
            for (int frame = 0; frame < framesBetween && Frame(); ++frame) {
            }
        }
        UntilQuiet();
        for (std::size_t i = 0; i < covered.size(); ++i) {
            EXPECT_EQ(table.At(i).Cards(), covered[i]) << "pile " << i << ", " << framesBetween << " frames between";
        }
        const std::vector<std::uint8_t> flown = Screen();
        table.Lay(covered);
        Frame();
        EXPECT_EQ(flown, Screen());
    }
}

TEST_F(KitGame, RandomOrdersKeepEveryCardAndThePicture)
{
    std::mt19937 random(5);
    table.Lay(kStart);
    for (int step = 0; step < 300; ++step) {
        const std::size_t from = random() % 3;
        const std::size_t to = random() % 4; // one that is not there too
        const auto facing = random() % 2 == 0 ? Facing::Up : Facing::Down;
        Flight flight = kFlight;
        flight.delay = static_cast<int>(random() % 4);
        switch (random() % 8) {
        case 0:
            table.FinishAll();
            break;
        case 1:
            table.StartWaiting();
            break;
        case 2:
            table.Hold(from, static_cast<long>(random() % 6));
            break;
        case 3:
            table.MoveHeld(static_cast<int>(random() % 90) - 45, static_cast<int>(random() % 90) - 45);
            break;
        case 4:
            table.LetGo(kFlight);
            break;
        case 5:
            table.Arrange(random() % 2 == 0 ? kStart : kEnd, flight, 1.5);
            break;
        case 6:
            table.Resize(kWidth, kHeight, kCard, Layouts());
            break;
        default:
            table.Order(from, static_cast<long>(random() % 12), to, facing, flight);
            break;
        }
        for (std::size_t frames = random() % 4; frames > 0; --frames) {
            Frame();
        }
        ASSERT_FALSE(HasFatalFailure() || HasNonfatalFailure()) << "step " << step;
    }
    table.LetGo(kFlight);
    UntilQuiet();
    std::vector<long> values;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::vector<long> pile = Values(i);
        values.insert(values.end(), pile.begin(), pile.end());
        for (long position = 1; position <= table.At(i).NumCards(); ++position) {
            EXPECT_TRUE(table.At(i).IsResting(position));
        }
    }
    std::sort(values.begin(), values.end());
    EXPECT_EQ(values, (std::vector<long>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(KitGame, SpotsAreFoundTopmostFirstAndBadSheetsChangeNothing)
{
    table.Lay(kEnd);
    EXPECT_EQ(table.SpotAt({151, 41}), (Spot{1, 1}));
    EXPECT_EQ(table.SpotAt({151, 80}), (Spot{1, 4}));
    EXPECT_EQ(table.SpotAt({21, 31}), (Spot{0, 3}));
    EXPECT_EQ(table.SpotAt({5, 5}), std::nullopt);
    table.Lay({});
    EXPECT_EQ(table.SpotAt({151, 41}), (Spot{1, 0}));
    table.Lay(kEnd);
    UntilQuiet();
    const std::vector<std::uint8_t> before = Screen();
    EXPECT_THROW(table.UseSheet({"no such file.png", back.Path(), 31, 44}), std::runtime_error);
    EXPECT_THROW(table.UseSheet({faces.Path(), back.Path(), 32, 44}), std::runtime_error);
    EXPECT_THROW(table.UseSheet({faces.Path(), "no such file.png", 31, 44}), std::runtime_error);
    EXPECT_THROW(table.Resize(kWidth, kHeight, kCard, {}), std::invalid_argument);
    host.host.ComposeAll();
    EXPECT_EQ(Screen(), before);
}
