// SPDX-License-Identifier: MIT
#include "deck_files_maker.h"

#include "examples/klondike/decks/deck_cache.h"
#include "host/rectangle.h"
#include "tests/tools/png_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace
{

namespace fs = std::filesystem;
using klondike::Deck;
using klondike::DeckError;
using klondike::DeckFiles;
using klondike::Rendered;

/// What the channels of a pixel on a card's outermost line may be away from the card's colour. An element's edge is
/// where it was drawn, to the precision of the drawing library's anti-aliasing.
int EdgeTolerance(Deck::Kind kind)
{
    return kind == Deck::Kind::SvgElements ? 32 : 3;
}

int LargestDifference(std::uint32_t a, std::uint32_t b)
{
    int largest = 0;
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
        const int difference = static_cast<int>(a >> shift & 255U) - static_cast<int>(b >> shift & 255U);
        largest = std::max(largest, std::abs(difference));
    }
    return largest;
}

/// Every pixel of a card has its own card's colour.
void ExpectPlainCard(const PngPicture& picture, const render::Rectangle<int>& card, std::uint32_t colour, int edge)
{
    int wrong = 0;
    for (int y = 0; y < card.height; ++y) {
        for (int x = 0; x < card.width; ++x) {
            const bool isEdge = x == 0 || y == 0 || x == card.width - 1 || y == card.height - 1;
            const int difference = LargestDifference(picture.At(card.x + x, card.y + y), colour);
            wrong += difference > (isEdge ? edge : 3) ? 1 : 0;
        }
    }
    EXPECT_EQ(wrong, 0) << "the card at " << card.x << ", " << card.y;
}

void ExpectPlainDeck(const DeckFiles& files, int width, int height, int edge)
{
    EXPECT_EQ(files.cardWidth, width);
    EXPECT_EQ(files.cardHeight, height);
    const PngPicture sheet = LoadPng(files.sheet);
    const PngPicture back = LoadPng(files.back);
    ASSERT_EQ(sheet.width, DeckFiles::kColumns * width);
    ASSERT_EQ(sheet.height, DeckFiles::kRows * height);
    ASSERT_EQ(back.width, width);
    ASSERT_EQ(back.height, height);
    for (int suit = 0; suit < DeckFiles::kRows; ++suit) {
        for (int rank = 0; rank < DeckFiles::kColumns; ++rank) {
            ExpectPlainCard(sheet, {rank * width, suit * height, width, height}, ColourOf(suit, rank), edge);
        }
    }
    ExpectPlainCard(back, {0, 0, width, height}, ColourOf(kBackSuit, 0), edge);
}

std::size_t CountFiles(const fs::path& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(DeckCache, DrawsEveryKindInCellsOfExactlyTheSize)
{
    const DeckFolder folder;
    WriteSheet(folder / "sheet.png", 13, 5, 20, 30);
    WriteSheet(folder / "wide.png", 20, 3, 9, 13);
    WriteBack(folder / "back.png", 50, 20);
    Write(folder / "it's a \"grid\".svg", GridDrawing());
    Write(folder / "elements.svg", ElementsDrawing());
    Deck wide = DeckOf(Deck::Kind::Sheet, folder / "wide.png");
    wide.columns = 20;
    wide.rows = 3;
    wide.back = (folder / "back.png").string();
    const std::vector<Deck> decks{DeckOf(Deck::Kind::Sheet, folder / "sheet.png"), wide,
                                  DeckOf(Deck::Kind::SvgGrid, folder / "it's a \"grid\".svg"),
                                  DeckOf(Deck::Kind::SvgElements, folder / "elements.svg")};
    for (const Deck& deck : decks) {
        for (const auto& [width, height] : {std::pair{71, 96}, {8, 8}, {41, 23}}) {
            SCOPED_TRACE(deck.faces + " " + std::to_string(width));
            ExpectPlainDeck(Rendered(deck, width, height, (folder / "cache/inner").string()), width, height,
                            EdgeTolerance(deck.kind));
        }
    }
}

TEST(DeckCache, ShrinksSheetsTrueToTheArea)
{
    const DeckFolder folder;
    WriteStripes(folder / "stripes.png", 40, 40);
    const DeckFiles files =
        Rendered(DeckOf(Deck::Kind::Sheet, folder / "stripes.png"), 10, 10, (folder / "cache").string());
    const PngPicture sheet = LoadPng(files.sheet);
    for (const std::uint32_t pixel : sheet.pixels) {
        ASSERT_NEAR(static_cast<int>(pixel & 255U), 128, 3);
        ASSERT_EQ(pixel >> 24, 255U);
    }
}

TEST(DeckCache, UsesItsFilesAgainUntilTheDeckChanges)
{
    const DeckFolder folder;
    const std::string cache = (folder / "cache").string();
    Write(folder / "grid.svg", GridDrawing());
    const Deck deck = DeckOf(Deck::Kind::SvgGrid, folder / "grid.svg");
    const DeckFiles first = Rendered(deck, 10, 14, cache);
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    WriteBack(first.back, 10, 14); // recognised by its bytes: it must stay
    const std::string marked = ReadAll(first.back);
    fs::last_write_time(first.sheet, longAgo);
    EXPECT_EQ(Rendered(deck, 10, 14, cache).back, first.back);
    EXPECT_EQ(ReadAll(first.back), marked);
    EXPECT_GT(fs::last_write_time(first.sheet), longAgo) << "used, so no longer the oldest";
    EXPECT_EQ(CountFiles(cache), 2U);

    // What a machine that lost its power may leave.
    const std::string whole = ReadAll(first.sheet);
    for (const std::size_t length : {std::size_t{0}, std::size_t{20}, whole.size() - 1, whole.size() / 2}) {
        fs::resize_file(first.sheet, length);
        EXPECT_EQ(Rendered(deck, 10, 14, cache).sheet, first.sheet);
        EXPECT_EQ(ReadAll(first.sheet), whole);
    }

    EXPECT_NE(Rendered(deck, 10, 15, cache).sheet, first.sheet);
    fs::last_write_time(deck.faces, longAgo);
    EXPECT_NE(Rendered(deck, 10, 14, cache).sheet, first.sheet);
}

TEST(DeckCache, SaysWhyThereAreNoPictures)
{
    const DeckFolder folder;
    const std::string cache = (folder / "cache").string();
    Write(folder / "grid.svg", GridDrawing());
    Write(folder / "cut.svg", GridDrawing().substr(0, 300));
    Write(folder / "two\nlines.svg", "<svg>\xCE=</svg>");
    Write(folder / "a file", "in the way");
    Write(folder / "sizeless.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='0' height='0'></svg>");
    const Deck grid = DeckOf(Deck::Kind::SvgGrid, folder / "grid.svg");
    std::stop_source stopped;
    stopped.request_stop();
    for (const auto& [width, height] : {std::pair{7, 100}, {100, 0}, {-5, 100}, {1201, 100}, {100, 2147483647}}) {
        EXPECT_THROW(Rendered(grid, width, height, cache), DeckError) << width;
    }
    EXPECT_THROW(Rendered(grid, 10, 14, (folder / "a file").string()), DeckError);
    EXPECT_THROW(Rendered(grid, 10, 14, cache, stopped.get_token()), DeckError);
    for (const char* name : {"cut.svg", "missing.svg", "a file", "sizeless.svg", "two\nlines.svg"}) {
        for (const auto kind : {Deck::Kind::Sheet, Deck::Kind::SvgGrid, Deck::Kind::SvgElements}) {
            try {
                Rendered(DeckOf(kind, folder / name), 10, 14, cache);
                ADD_FAILURE() << name;
            } catch (const DeckError& error) {
                const std::string text = error.what();
                EXPECT_NE(text.find(std::string(name).substr(0, 3)), std::string::npos) << text;
                EXPECT_EQ(text.find('\n'), std::string::npos) << text;
            }
        }
    }
    EXPECT_THROW(Rendered(DeckOf(Deck::Kind::SvgElements, folder / "grid.svg"), 10, 14, cache), DeckError);
    EXPECT_FALSE(fs::exists(cache)) << "nothing was drawn, so nothing is there";
}

TEST(DeckCache, StaysWithinItsBoundsAndRemovesNothingElse)
{
    const DeckFolder folder;
    const fs::path cache = folder / "cache";
    const auto now = fs::file_time_type::clock::now();
    const auto place = [&](const std::string& name, std::uintmax_t megabytes, int hoursAgo) {
        Write(cache / name, "x");
        fs::resize_file(cache / name, megabytes << 20);
        fs::last_write_time(cache / name, now - std::chrono::hours(hoursAgo));
    };
    place("deck-0123456789abcdef-71x96-faces.png", 30, 5);
    place("deck-0123456789abcdef-72x96-faces.png", 30, 4);
    place("deck-0123456789abcdef-73x96-back.png", 30, 3);
    place("deck-0123456789abcdef-73x96-faces.png.123-4.new", 1, 2);
    place("deck-0123456789abcdef-74x96-faces.png.123-4.new", 1, 0);
    place("holiday.png", 90, 100);
    place("deck-of mine-faces.png", 90, 100);
    Write(folder / "grid.svg", GridDrawing());
    const DeckFiles files = Rendered(DeckOf(Deck::Kind::SvgGrid, folder / "grid.svg"), 20, 28, cache.string());
    EXPECT_FALSE(fs::exists(cache / "deck-0123456789abcdef-71x96-faces.png"));
    EXPECT_FALSE(fs::exists(cache / "deck-0123456789abcdef-73x96-faces.png.123-4.new"));
    for (const fs::path& kept :
         {cache / "deck-0123456789abcdef-72x96-faces.png", cache / "deck-0123456789abcdef-73x96-back.png",
          cache / "deck-0123456789abcdef-74x96-faces.png.123-4.new", cache / "holiday.png",
          cache / "deck-of mine-faces.png", fs::path(files.sheet), fs::path(files.back)}) {
        EXPECT_TRUE(fs::exists(kept)) << kept;
    }
}

} // namespace
