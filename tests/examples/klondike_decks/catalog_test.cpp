// SPDX-License-Identifier: MIT
#include "deck_files_maker.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace
{

namespace fs = std::filesystem;
using klondike::Deck;
using klondike::DeckCatalog;

std::string Without(std::string text, const std::string& part)
{
    const std::size_t at = text.find(part);
    return at == std::string::npos ? text : text.erase(at, part.size());
}

DeckCatalog Find(const DeckFolder& folder, const std::vector<std::string>& names)
{
    std::vector<std::string> folders;
    for (const std::string& name : names) {
        folders.push_back((folder / name).string());
    }
    return klondike::FindDecks((folder / "assets").string(), folders);
}

TEST(DeckCatalog, FindsEveryKindOfDeck)
{
    const DeckFolder folder;
    fs::create_directories(folder / "assets");
    WriteSheet(folder / "assets/deck.png", 13, 5, 4, 6);
    WriteBack(folder / "assets/back.png", 4, 6);
    Write(folder / "own/zebra \"z\"; ls.svg", GridDrawing());
    WritePacked(folder / "own/inner/old_french.svgz", GridDrawing());
    WritePacked(folder / "own/elements.svgz", ElementsDrawing());
    WriteSheet(folder / "own/photo.png", 10, 6, 5, 7);
    WriteBack(folder / "own/photo back.png", 5, 7);
    Write(folder / "own/photo.deck",
          "# by hand\r\nname  Snapshots \r\n\r\ncolumns 10\r\nrows 6\r\nback photo back.png\r\n");
    WriteSheet(folder / "own/plain.png", 13, 5, 5, 7);
    Write(folder / "own/plain.deck", "");
    WritePacked(folder / "packages/deck/drawing.svgz", ElementsDrawing());
    Write(folder / "packages/deck/index.desktop", "[Deck]\nName=Zebra \"z\"; ls\nName[de]=Anders\nSVG=drawing.svgz\n");
    Write(folder / "packages/deck/11.png", "a preview, of no interest");

    const DeckCatalog catalog = Find(folder, {"own", "not there", "packages"});
    EXPECT_EQ(catalog.problems, std::vector<std::string>{});
    const std::vector<std::pair<std::string, Deck::Kind>> expected{{"Cardtable", Deck::Kind::Sheet},
                                                                   {"Elements", Deck::Kind::SvgElements},
                                                                   {"Old french", Deck::Kind::SvgGrid},
                                                                   {"Plain", Deck::Kind::Sheet},
                                                                   {"Snapshots", Deck::Kind::Sheet},
                                                                   {"Zebra \"z\"; ls", Deck::Kind::SvgGrid},
                                                                   {"Zebra \"z\"; ls 2", Deck::Kind::SvgElements}};
    ASSERT_EQ(catalog.decks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(catalog.decks[i].name, expected[i].first);
        EXPECT_EQ(catalog.decks[i].kind, expected[i].second) << expected[i].first;
        EXPECT_TRUE(fs::exists(catalog.decks[i].faces)) << catalog.decks[i].faces;
    }
    EXPECT_EQ(catalog.decks[4].back, (folder / "own/photo back.png").string());
    EXPECT_EQ(catalog.decks[4].columns, 10);
    EXPECT_EQ(catalog.decks[4].rows, 6);
}

TEST(DeckCatalog, LeavesOutBrokenDecksAndSaysWhy)
{
    const DeckFolder folder;
    const std::string grid = GridDrawing();
    const std::string elements = ElementsDrawing();
    Write(folder / "b/a junk.svg", "no drawing");
    Write(folder / "b/b cut.svg", grid.substr(0, grid.size() / 2));
    WritePacked(folder / "b/c.svgz", grid);
    fs::resize_file(folder / "b/c.svgz", fs::file_size(folder / "b/c.svgz") - 9);
    Write(folder / "b/d empty.svgz", "");
    WriteSheet(folder / "b/sheet.png", 13, 5, 4, 6);
    const std::string sheet = ReadAll(folder / "b/sheet.png");
    for (const char* name : {"e", "f", "g", "h"}) {
        Write(folder / ("b/" + std::string(name) + ".png"), sheet);
    }
    Write(folder / "b/e.deck", "columns 13x\n");
    Write(folder / "b/f.deck", "columns 9\nrows 6\n");
    Write(folder / "b/g.deck", "back missing.png\n");
    Write(folder / "b/h.deck", "colums 13\n");
    Write(folder / "b/i.deck", "name Without a picture\n");
    Write(folder / "b/j.deck", "");
    Write(folder / "b/j.png", sheet.substr(0, sheet.size() - 20));
    Write(folder / "b/k/index.desktop", "SVG=missing.svgz\n");
    Write(folder / "b/l/index.desktop", "SVG=../outside.svg\n");
    Write(folder / "b/m/index.desktop", "SVG=one missing.svg\n");
    Write(folder / "b/m/one missing.svg", Without(elements, "id='7_heart'"));
    Write(folder / "b/n/index.desktop", "");
    fs::create_directories(folder / "b/folder.svg");

    const std::vector<std::pair<std::string, std::string>> expected{
        {"assets", "PNG"},          {"a junk.svg", "no SVG"},
        {"b cut.svg", "middle"},    {"c.svgz", "read"},
        {"d empty.svgz", "no SVG"}, {"e.deck", "13x"},
        {"f.png", "55 cells"},      {"missing.png", "PNG"},
        {"h.deck", "colums"},       {"i.png", "PNG"},
        {"j.png", "PNG"},           {"missing.svgz", "missing"},
        {"l/index", "no drawing"},  {"one missing.svg", "lacks"},
        {"n/index", "no drawing"}};
    const DeckCatalog catalog = Find(folder, {"b"});
    EXPECT_TRUE(catalog.decks.empty());
    ASSERT_EQ(catalog.problems.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NE(catalog.problems[i].find(expected[i].first), std::string::npos) << catalog.problems[i];
        EXPECT_NE(catalog.problems[i].find(expected[i].second), std::string::npos) << catalog.problems[i];
        EXPECT_EQ(catalog.problems[i].find('\n'), std::string::npos);
    }
}

TEST(DeckCatalog, TellsTheShapeOfACard)
{
    const DeckFolder folder;
    WriteSheet(folder / "sheet.png", 13, 5, 4, 6);
    Write(folder / "grid.svg", GridDrawing());
    Write(folder / "elements.svg", ElementsDrawing());
    Write(folder / "junk.svg", "<svg");
    EXPECT_NEAR(*CardAspect(DeckOf(Deck::Kind::Sheet, folder / "sheet.png")), 4.0 / 6.0, 1e-9);
    EXPECT_NEAR(*CardAspect(DeckOf(Deck::Kind::SvgGrid, folder / "grid.svg")), 100.0 / 140.0, 1e-9);
    // With its border a card is 50 x 70; its outlines alone are 46 x 66.
    EXPECT_NEAR(*CardAspect(DeckOf(Deck::Kind::SvgElements, folder / "elements.svg")), 50.0 / 70.0, 0.002);
    EXPECT_FALSE(CardAspect(DeckOf(Deck::Kind::SvgGrid, folder / "junk.svg")));
    EXPECT_FALSE(CardAspect(DeckOf(Deck::Kind::SvgElements, folder / "missing.svg")));
    EXPECT_FALSE(CardAspect(DeckOf(Deck::Kind::SvgElements, folder / "grid.svg")));
    EXPECT_FALSE(CardAspect(DeckOf(Deck::Kind::Sheet, folder / "grid.svg")));
}

TEST(DeckCatalog, LooksInTheFoldersThatExist)
{
    const DeckFolder folder;
    fs::create_directories(folder / "share/carddecks");
    fs::create_directories(folder / "own");
    const std::string share = (folder / "share").string();
    ASSERT_EQ(setenv("XDG_DATA_DIRS", (share + ":" + share + "/:/not there").c_str(), 1), 0);
    const std::vector<std::string> expected{(folder / "own").string(), (folder / "share/carddecks").string()};
    EXPECT_EQ(klondike::DeckFolders((folder / "own").string()), expected);
    EXPECT_EQ(klondike::DeckFolders("").size(), 1U);
    unsetenv("XDG_DATA_DIRS");
}

} // namespace
