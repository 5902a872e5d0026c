// SPDX-License-Identifier: MIT
#include "examples/common/shuffle.h"
#include "examples/deal/deal_script.h"
#include "tests/examples/test_deck.h"
#include "tests/examples/watching_renderer.h"

#include "animation/object.h"
#include "cardtable/pocket.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace
{

constexpr int kWidth = 480;
constexpr int kHeight = 270;

/// A table of its own with a whole deck in the stock.
struct Game {
    explicit Game(std::uint64_t seed, double speed = 1.0)
        : patience(table, deck.Files(), common::ShuffledDeck(deal::DeckFiles::kCards, seed)), script(patience, speed)
    {
    }

    TestDeck deck;
    deal::HeadlessTable table{kWidth, kHeight, deal::Patience::kPiles, deal::GridOf(deck.Files())};
    deal::Patience patience;
    deal::DealScript script;
};

/// FNV-1a over whole numbers, the same on machines of either byte order.
class Hash
{
public:
    void Add(long value)
    {
        for (int shift = 0; shift < 32; shift += 8) {
            m_value = (m_value ^ (static_cast<std::uint64_t>(value) >> shift & 0xFFU)) * 0x100000001B3U;
        }
    }
    std::uint64_t Value() const { return m_value; }

private:
    std::uint64_t m_value = 0xCBF29CE484222325U;
};

/// Piles, places of the cards in quarter pixels, and the rectangles of all controls in their order.
std::uint64_t StateHash(Game& game)
{
    Hash hash;
    for (std::size_t p = 0; p < deal::Patience::kPiles; ++p) {
        const cardkit::Pile* pile = &game.table.Table().At(p);
        hash.Add(pile->NumCards());
        for (long position = 1; position <= pile->NumCards(); ++position) {
            double x = 0.0;
            double y = 0.0;
            double z = 0.0;
            CObject* const card = pile->CardAt(position);
            hash.Add(pile->Pocket().GetCard(position));
            hash.Add(pile->FacingAt(position) == cardkit::Facing::Up ? 1 : 0);
            hash.Add(pile->Pocket().StaticCardMember(static_cast<int>(position)) ? 1 : 0);
            card->GetPosition(x, y, z);
            for (const double value : {x, y, z}) {
                hash.Add(std::lround(value * 4.0));
            }
        }
    }
    for (const CControlBase* c = game.table.Table().Dialog().FirstControl(); c != nullptr; c = c->NextControl()) {
        for (const long edge : {c->X(), c->Y(), c->Width(), c->Height()}) {
            hash.Add(edge);
        }
    }
    return hash.Value();
}

std::vector<std::uint8_t> ScreenPixels(const orvane::Host& host)
{
    const Bitmap& screen = host.Screen();
    const auto size = static_cast<std::size_t>(screen.Width()) * static_cast<std::size_t>(screen.Height()) * 4;
    return {screen.Buffer(), screen.Buffer() + size};
}

/// Cards outside the stock that no card control shows.
std::size_t CardsWithoutControl(Game& game)
{
    std::size_t count = 0;
    for (std::size_t p = 0; p < deal::Patience::kPiles; ++p) {
        const cardkit::Pile* pile = &game.table.Table().At(p);
        for (long position = 1; p != deal::Patience::kStock && position <= pile->NumCards(); ++position) {
            count += pile->Pocket().StaticCardMember(static_cast<int>(position)) ? 0U : 1U;
        }
    }
    return count;
}

} // namespace

TEST(Deal, EndsInTheSameStateOnEveryMachine)
{
    Game game(7);
    std::vector<std::uint64_t> hashes; // the last scene leaves everything as it was: the raised card comes back
    for (const auto scene :
         {&deal::DealScript::DealColumns, &deal::DealScript::GatherTopCards, &deal::DealScript::TurnUpColumns,
          &deal::DealScript::ShowFoundationHints, &deal::DealScript::RaiseCard}) {
        (game.script.*scene)();
        hashes.push_back(StateHash(game));
    }
    EXPECT_EQ(hashes, (std::vector<std::uint64_t>{1242110873208709155U, 10080280166149918206U, 17981820489816593210U,
                                                  5561586314848497168U, 5561586314848497168U}));
}

TEST(Deal, EndsInTheSameStateAtEverySpeedAndInAnotherForAnotherSeed)
{
    std::uint64_t hash = 0;
    {
        Game normal(3);
        normal.script.Play();
        hash = StateHash(normal);
    }
    for (const double speed : {0.5, 3.7, 10.0}) {
        Game game(3, speed);
        game.script.Play();
        EXPECT_EQ(StateHash(game), hash) << speed;
    }
    Game other(4, 10.0);
    other.script.Play();
    EXPECT_NE(StateHash(other), hash);
}

TEST(Deal, LaysOutAPatience)
{
    Game game(5, 10.0);
    const std::vector<long> order = common::ShuffledDeck(deal::DeckFiles::kCards, 5);
    game.script.DealColumns();
    std::size_t next = order.size();
    for (int round = 0; round < deal::TableLayout::kColumns; ++round) {
        for (int column = round; column < deal::TableLayout::kColumns; ++column) {
            const cardkit::Pile& pile =
                game.table.Table().At(deal::Patience::kFirstColumn + static_cast<std::size_t>(column));
            EXPECT_EQ(pile.Pocket().GetCard(round + 1), order[--next]);
            EXPECT_EQ(pile.FacingAt(round + 1), column == round ? cardkit::Facing::Up : cardkit::Facing::Down);
        }
    }
    EXPECT_EQ(game.table.Table().At(deal::Patience::kStock).NumCards(), static_cast<long>(next));
}

TEST(Deal, EveryFrameShowsEveryCardOnceAndNoneEdgeOn)
{
    for (const double speed : {0.3, 1.0, 2.6}) {
        Game game(11, speed);
        const WatchingRenderer renderer;
        std::size_t mostInAir = 0;
        int drawsBefore = 0;
        game.table.SetFrameObserver([&](const deal::FrameReport& report) {
            EXPECT_EQ(CardsWithoutControl(game), report.cardsInAir) << "frame " << report.number;
            EXPECT_GE(renderer.Draws() - drawsBefore, static_cast<int>(2 * report.cardsInAir));
            drawsBefore = renderer.Draws();
            mostInAir = std::max(mostInAir, report.cardsInAir);
        });
        game.script.Play();
        EXPECT_EQ(renderer.EdgeOnDraws(), 0) << "speed " << speed;
        EXPECT_GE(mostInAir, 5U);
    }
}

TEST(Deal, ComposingTheDamageGivesTheWholePicture)
{
    constexpr int kEvery = 7;
    Game game(13);
    int compared = 0;
    game.table.SetFrameObserver([&](const deal::FrameReport& report) {
        if (report.number % kEvery == 0) {
            const std::vector<std::uint8_t> composed = ScreenPixels(game.table.Host());
            game.table.Host().ComposeAll();
            ASSERT_EQ(composed, ScreenPixels(game.table.Host())) << "frame " << report.number;
            ++compared;
        }
    });
    game.script.Play();
    EXPECT_GT(compared, 50);
}

TEST(Deal, NobodySeesACardTakeOffOrLand)
{
    Game game(19);
    std::vector<std::uint8_t> before;
    std::size_t inAirBefore = 0;
    int takeOffs = 0;
    int landings = 0;
    game.table.SetFrameObserver([&](const deal::FrameReport& report) {
        std::vector<std::uint8_t> now = ScreenPixels(game.table.Host());
        if (report.cardsInAir == 0 && inAirBefore == 1) {
            EXPECT_GT(report.repaintedPixels, 0); // the card has changed hands
            EXPECT_EQ(now, before) << "frame " << report.number;
            ++landings;
        }
        if (report.cardsInAir > 0 && inAirBefore == 0) {
            EXPECT_EQ(now, before) << "frame " << report.number;
            ++takeOffs;
        }
        inAirBefore = report.cardsInAir;
        before = std::move(now);
    });
    game.script.Play();
    EXPECT_EQ(takeOffs, 4); // the first card of each scene with flights
    EXPECT_EQ(landings, 4); // and the last
}

TEST(Deal, RestRepaintsNothing)
{
    Game game(17, 5.0);
    game.script.Play();
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(game.table.Frame().repaintedPixels, 0);
    }
}

TEST(Deal, RestingCardsStandOnWholePixelsInTheirSize)
{
    const TestDeck deck;
    for (const auto& [width, height] : {std::pair{480, 270}, std::pair{801, 599}, std::pair{1280, 720}}) {
        deal::HeadlessTable table(width, height, deal::Patience::kPiles, deal::GridOf(deck.Files()));
        deal::Patience patience(table, deck.Files(), common::ShuffledDeck(deal::DeckFiles::kCards, 1));
        deal::DealScript(patience, 10.0).DealColumns();
        const std::vector<render::Rectangle<int>> slots = patience.Layout().Slots();
        for (int column = 0; column < deal::TableLayout::kColumns; ++column) {
            CRect* clip = nullptr;
            table.Table().At(deal::Patience::kFirstColumn + static_cast<std::size_t>(column)).Pocket().GetClip(1, clip);
            const auto& slot = slots[slots.size() - deal::TableLayout::kColumns + static_cast<std::size_t>(column)];
            EXPECT_EQ(clip->left, slot.x);
            EXPECT_EQ(clip->top, slot.y);
            EXPECT_EQ(clip->Width(), slot.width);
            EXPECT_EQ(clip->Height(), slot.height);
        }
    }
}
