// SPDX-License-Identifier: MIT
#include "png_picture.h"
#include "tools/deck/card.h"
#include "tools/deck/card_body.h"
#include "tools/deck/path_data.h"
#include "tools/deck/sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using deck::CardSize;

constexpr CardSize kFullSize;
constexpr int kJokers = 2;

PngPicture PictureOf(deck::Canvas canvas)
{
    const auto pixels = canvas.Pixels();
    return {canvas.Width(), canvas.Height(), {pixels.begin(), pixels.end()}};
}

PngPicture Cell(const PngPicture& sheet, int column, int row)
{
    constexpr CardSize size = kFullSize;
    PngPicture cell{size.width, size.height, {}};
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            cell.pixels.push_back(sheet.At(column * size.width + x, row * size.height + y));
        }
    }
    return cell;
}

PngPicture HalfTurned(PngPicture picture)
{
    std::reverse(picture.pixels.begin(), picture.pixels.end());
    return picture;
}

int Channel(std::uint32_t pixel, int shift)
{
    return static_cast<int>(pixel >> shift & 0xff);
}

// The mean difference of a channel, 0 to 255, over the middle of two equal-sized pictures.
double MeanDifference(const PngPicture& a, const PngPicture& b, int margin = 0)
{
    long sum = 0;
    long count = 0;
    for (int y = margin; y < a.height - margin; ++y) {
        for (int x = margin; x < a.width - margin; ++x) {
            for (const int shift : {0, 8, 16, 24}) {
                sum += std::abs(Channel(a.At(x, y), shift) - Channel(b.At(x, y), shift));
                ++count;
            }
        }
    }
    return static_cast<double>(sum) / static_cast<double>(count);
}

bool IsOnRing(int x, int y, CardSize size)
{
    return x == 0 || y == 0 || x == size.width - 1 || y == size.height - 1;
}

class DeckTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { s_sheet = PictureOf(deck::DrawFaceSheet(kFullSize)); }

    // Calls check(column, row) for the 54 cells that hold a card.
    template <typename Check> static void ForEachCard(Check check)
    {
        for (int row = 0; row < deck::kSheetRows; ++row) {
            const int columns = row == deck::kSheetRows - 1 ? kJokers : deck::kSheetColumns;
            for (int column = 0; column < columns; ++column) {
                check(column, row);
            }
        }
    }

    static PngPicture s_sheet;
};

PngPicture DeckTest::s_sheet;

// Small differences are left to another version of the drawing library; a changed figure is far above the bound.
TEST_F(DeckTest, CommittedPicturesAreWhatTheProgramDraws)
{
    constexpr double kBound = 0.5;
    const PngPicture faces = LoadPng(DECK_ASSETS "/deck.png");
    ASSERT_EQ(faces.width, s_sheet.width);
    ASSERT_EQ(faces.height, s_sheet.height);
    for (int row = 0; row < deck::kSheetRows; ++row) {
        for (int column = 0; column < deck::kSheetColumns; ++column) {
            EXPECT_LT(MeanDifference(Cell(faces, column, row), Cell(s_sheet, column, row)), kBound)
                << "column " << column << ", row " << row;
        }
    }

    const PngPicture back = LoadPng(DECK_ASSETS "/back.png");
    ASSERT_EQ(back.width, kFullSize.width);
    ASSERT_EQ(back.height, kFullSize.height);
    EXPECT_LT(MeanDifference(back, PictureOf(deck::DrawBack(kFullSize))), kBound);
    EXPECT_EQ(back.pixels, HalfTurned(back).pixels);
}

TEST_F(DeckTest, DrawsTheSameTwice)
{
    EXPECT_EQ(PictureOf(deck::DrawFaceSheet(kFullSize)).pixels, s_sheet.pixels);
}

TEST_F(DeckTest, BackIsSymmetricUnderAHalfTurnAtEverySize)
{
    for (const CardSize size : {kFullSize, CardSize{71, 96}, CardSize{75, 105}, CardSize{9, 8}}) {
        const PngPicture back = PictureOf(deck::DrawBack(size));
        EXPECT_EQ(back.pixels, HalfTurned(back).pixels) << size.width << " x " << size.height;
    }
}

TEST_F(DeckTest, NoCardReachesPastItsBody)
{
    deck::Canvas blank(kFullSize.width, kFullSize.height);
    deck::DrawCardBody(blank);
    const PngPicture body = PictureOf(std::move(blank));
    ForEachCard([&](int column, int row) {
        const PngPicture cell = Cell(s_sheet, column, row);
        for (const int x : {0, cell.width - 1}) {
            for (const int y : {0, cell.height - 1}) {
                EXPECT_EQ(cell.At(x, y), 0U) << "corner of column " << column << ", row " << row;
            }
        }
        int faults = 0;
        for (int y = 0; y < cell.height; ++y) {
            for (int x = 0; x < cell.width; ++x) {
                const bool outside = Channel(body.At(x, y), 24) < 255 || IsOnRing(x, y, kFullSize);
                faults += outside && cell.At(x, y) != body.At(x, y) ? 1 : 0;
            }
        }
        EXPECT_EQ(faults, 0) << "column " << column << ", row " << row;
    });
}

TEST_F(DeckTest, UnusedCellsAreTransparent)
{
    const int row = deck::kSheetRows - 1;
    for (int column = kJokers; column < deck::kSheetColumns; ++column) {
        const PngPicture cell = Cell(s_sheet, column, row);
        EXPECT_TRUE(std::all_of(cell.pixels.begin(), cell.pixels.end(), [](auto pixel) { return pixel == 0; }));
    }
}

// The straight colour of a half-covered pixel is the edge line's: darker would show as a fringe on the table.
TEST_F(DeckTest, RoundedCornersHaveNoDarkFringe)
{
    constexpr int kEnoughAlpha = 32;
    constexpr double kTolerance = 10.0;
    const deck::Colour edge = deck::ColourOf(deck::Ink::Edge);
    int checked = 0;
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            const std::uint32_t pixel = s_sheet.At(x, y);
            const int alpha = Channel(pixel, 24);
            if (alpha < kEnoughAlpha || alpha == 255) {
                continue;
            }
            EXPECT_GT(255.0 * Channel(pixel, 16) / alpha, 255.0 * edge.red - kTolerance);
            EXPECT_GT(255.0 * Channel(pixel, 8) / alpha, 255.0 * edge.green - kTolerance);
            EXPECT_GT(255.0 * Channel(pixel, 0) / alpha, 255.0 * edge.blue - kTolerance);
            ++checked;
        }
    }
    EXPECT_GT(checked, 10);
}

// Without the indices: a table of pips or figures that names a card twice shows here.
TEST_F(DeckTest, EveryCardIsDifferentInItsMiddle)
{
    constexpr int kIndexColumn = 50;
    std::vector<PngPicture> cards;
    ForEachCard([&](int column, int row) { cards.push_back(Cell(s_sheet, column, row)); });
    ASSERT_EQ(cards.size(), 54U);
    for (std::size_t a = 0; a < cards.size(); ++a) {
        for (std::size_t b = a + 1; b < cards.size(); ++b) {
            EXPECT_GT(MeanDifference(cards[a], cards[b], kIndexColumn), 1.0) << "cards " << a << " and " << b;
        }
    }
}

TEST_F(DeckTest, CourtsAndEvenPipsReadTheSameFromBothEnds)
{
    constexpr double kBound = 1.5; // anti-aliasing only
    for (int row = 0; row < deck::kSheetRows - 1; ++row) {
        for (const deck::Rank rank : {2, 4, 10, 11, 12, 13}) {
            const PngPicture card = Cell(s_sheet, rank - deck::kAce, row);
            EXPECT_LT(MeanDifference(card, HalfTurned(card)), kBound) << "rank " << rank << ", row " << row;
        }
    }
}

TEST(PathDataTest, RefusesWhatItDoesNotKnow)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    cairo_t* cairo = cairo_create(surface);
    for (const char* data : {"A 1 2", "M 1", "m 1 2", "M 1 2 3 4", "L 1 x", "O 1 2"}) {
        EXPECT_THROW(deck::AppendPath(cairo, data), std::logic_error) << data;
    }
    EXPECT_NO_THROW(deck::AppendPath(cairo, "M 1 2 L 3 4 Q 5 6 7 8 C 1 2 3 4 5 6 Z O 1 2 3"));
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}

} // namespace
