// SPDX-License-Identifier: MIT
// Three scripted deals whose every position and pixel is known: they must come out the same with every compiler, at
// every level of optimisation, and on every platform. The plain renderer draws, since it is the one that stays.
#include "host/canvas.h"
#include "host/window.h"
#include "orvane/raster/renderer_choice.h"
#include "tests/support/card_table_test.h"

#include <cstring>
#include <iomanip>
#include <memory>
#include <sstream>

namespace
{

/// FNV-1a over the bytes of what is added.
class Hash
{
public:
    void Add(const void* bytes, std::size_t size)
    {
        for (std::size_t i = 0; i < size; ++i) {
            m_value = (m_value ^ static_cast<const unsigned char*>(bytes)[i]) * 0x100000001B3ULL;
        }
    }
    /// By its bits; both zeros count as one.
    void Add(double value)
    {
        const double stored = value == 0.0 ? 0.0 : value;
        Add(&stored, sizeof stored);
    }
    std::string Text() const
    {
        std::ostringstream text;
        text << std::hex << std::setw(16) << std::setfill('0') << m_value;
        return text.str();
    }

private:
    std::uint64_t m_value = 0xCBF29CE484222325ULL;
};

/// Pictures with a soft pattern, so that a sample taken elsewhere shows.
std::uint32_t Pattern(int x, int y)
{
    const auto wave = [](int value, int period) {
        const int phase = value % period;
        return static_cast<std::uint32_t>(255 * std::min(phase, period - phase) * 2 / period);
    };
    return 0xFF000000U | wave(x * 7 + y, 61) << 16 | wave(x + y * 5, 83) << 8 | wave(x * 3 + y * 2, 47);
}

/// How a deal is played.
struct Deal {
    const char* name;
    long curved;                 ///< 1: the tracks have bends, and the cards turn about every axis
    long sortByDepth;            ///< as the scene's
    int cards;                   ///< they start one every other frame
    std::vector<unsigned> ticks; ///< microseconds from a frame to the next, over and over
    const char* positions;
    const char* pixels;
};

class Golden : public HostTest
{
protected:
    static constexpr int kCardWidth = 48;
    static constexpr int kCardHeight = 66;

    Golden() { orvane::raster::SetRenderer(orvane::raster::Renderer::Reference); }
    ~Golden() override { orvane::raster::SetRenderer(orvane::raster::Renderer::Fast); }

    /// A flight of two moves: up and across, then down on its place.
    static std::unique_ptr<C3DMoveList> Flight(const Deal& deal, int card)
    {
        const double x = (card % 7) * 1.3 - 4.0;
        const double y = (card % 3) * 1.7 - 1.5;
        auto* across = new C3DMove;
        across->Init(-4.5, 3.0, 16.0, x / 3.0, y / 2.0, 11.0 + card * 0.25, 14 + card);
        auto* down = new C3DMove;
        down->Init(x / 3.0, y / 2.0, 11.0 + card * 0.25, x, y, 16.0, 9);
        if (deal.curved != 0) {
            across->SetZ(16.0, -0.11, 11.0 + card * 0.25, -0.07);
            across->SetX(-4.5, 0.03 * card, x / 3.0, -0.02);
            across->SetRotX(0.0, 163.0 + card);
            across->SetRotY(10.0, -0.2, 25.0, 0.3);
            across->SetRotZ(0.0, 77.7 + 31.0 * card);
            across->SetScale(1.0, 1.25);
            down->SetRotX(163.0 + card, 180.0);
            down->SetRotY(25.0, 0.0);
            down->SetRotZ(77.7 + 31.0 * card, 90.0 * card);
            down->SetScale(1.25, 1.0);
        } else {
            across->SetRotX(0.0, 180.0);
            down->SetRotX(180.0, 180.0);
        }
        auto list = std::make_unique<C3DMoveList>();
        list->Init(0, 1);
        list->AddMove(across);
        list->AddMove(down);
        return list;
    }

    void Play(const Deal& deal, Hash& positions, Hash& pixels)
    {
        CCardTable table;
        table.SetCardSize(kCardWidth, kCardHeight);
        table.SetCardDimension(0.75, 1.03125);
        table.Init(1, 2, 4, 3);
        ASSERT_EQ(table.LoadTextures(m_sheet.Path(), m_back.Path(), 1, 0.6), 1);
        const OwnBitmap target(800, 600);
        table.SetTargetBitmap(target);
        table.m_sortByDepth = deal.sortByDepth;
        table.m_skipStampDrawBefore = 1;
        CPocket& pocket = *table.GetPocket(0);
        std::vector<std::unique_ptr<C3DMoveList>> flights;
        for (int frame = 0; frame == 0 || table.IsAnyPolyAnim() != 0; ++frame) {
            ASSERT_LT(frame, 500);
            if (frame % 2 == 0 && frame / 2 < deal.cards) {
                StartCard(deal, table, pocket, flights);
            }
            host.now += deal.ticks[static_cast<std::size_t>(frame) % deal.ticks.size()];
            table.Handler();
            AddPlacements(pocket, positions);
            pixels.Add(target->Buffer(), std::size_t{800} * 600 * 4);
        }
    }

    PictureFile m_sheet{kCardWidth * 4, kCardHeight * 2, &Pattern};
    PictureFile m_back{kCardWidth, kCardHeight, [](int x, int y) { return Pattern(y * 2, x * 3); }};

private:
    static void StartCard(const Deal& deal, CCardTable& table, CPocket& pocket,
                          std::vector<std::unique_ptr<C3DMoveList>>& flights)
    {
        const int card = static_cast<int>(flights.size());
        pocket.AddCard(card % 7);
        if (card % 3 == 2) {
            pocket.SetShaded(pocket.GetNumCards(), 1);
        }
        CObject* object = nullptr;
        pocket.GetCard(object);
        flights.push_back(Flight(deal, card));
        table.StartAnim(flights.back().get(), object);
    }

    static void AddPlacements(CPocket& pocket, Hash& positions)
    {
        for (long position = 1; position <= pocket.GetNumCards(); ++position) {
            CObject* object = nullptr;
            pocket.GetCard(object, position);
            double values[7];
            object->GetPosition(values[0], values[1], values[2]);
            object->GetRotate(values[3], values[4], values[5]);
            object->GetScale(values[6]);
            for (const double value : values) {
                positions.Add(value);
            }
        }
    }
};

TEST_F(Golden, DealsComeOutTheSameEverywhere)
{
    const Deal deals[] = {
        {"straight, one frame a frame", 0, 0, 5, {16667}, "7e9859460fe6246b", "aa7603752f34913c"},
        {"curved, about every axis, far to near", 1, 1, 9, {16667}, "57db11884ba4cc68", "0aaa20b10ea0f6e5"},
        {"curved, with pauses", 1, 0, 7, {16667, 0, 50001, 8000, 16667, 33334}, "acf7b86084882a77", "c6b6992f9402601a"},
    };
    for (const Deal& deal : deals) {
        SCOPED_TRACE(deal.name);
        Hash positions;
        Hash pixels;
        ASSERT_NO_FATAL_FAILURE(Play(deal, positions, pixels));
        EXPECT_EQ(positions.Text(), deal.positions);
        EXPECT_EQ(pixels.Text(), deal.pixels);
    }
}

} // namespace
