// SPDX-License-Identifier: MIT
// The two commands as a user types them.
#include "png_picture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

constexpr int kColumns = 13;
constexpr int kRows = 5;
constexpr int kJokers = 2;
constexpr int kCellWidth = 20;
constexpr int kCellHeight = 28;

struct Outcome {
    int exitCode = -1;
    std::string output;
};

Outcome RunCommand(const std::string& command)
{
    Outcome outcome;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) {
        return outcome;
    }
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr) {
        outcome.output += buffer.data();
    }
    const int status = pclose(pipe);
    outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

class DeckCommands : public testing::Test
{
protected:
    void SetUp() override
    {
        m_folder = fs::path(testing::TempDir()) /
                   (std::string("deck_commands_") + testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    void TearDown() override { fs::remove_all(m_folder); }

    std::string File(const std::string& name) const { return (m_folder / name).string(); }
    void Write(const std::string& name, const std::string& text) const { std::ofstream(File(name)) << text; }

    fs::path m_folder;
};

struct BadCall {
    std::string arguments;
    std::string complaint;
};

void ExpectRefused(const std::string& command, const std::vector<BadCall>& calls)
{
    for (const BadCall& call : calls) {
        const Outcome outcome = RunCommand(command + " " + call.arguments);
        EXPECT_EQ(outcome.exitCode, 1) << call.arguments;
        EXPECT_NE(outcome.output.find(call.complaint), std::string::npos) << call.arguments << ": " << outcome.output;
    }
}

// A sheet whose cells carry their column and row in their colour.
std::string ColourOfCell(int column, int row)
{
    return "rgb(" + std::to_string(10 * column) + "," + std::to_string(40 * row) + ",99)";
}

std::uint32_t PixelOfCell(int column, int row)
{
    return 0xff000063U | static_cast<std::uint32_t>(10 * column) << 16 | static_cast<std::uint32_t>(40 * row) << 8;
}

std::string DeckOfColours()
{
    std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 13 5'>";
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            svg += "<rect x='" + std::to_string(column) + "' y='" + std::to_string(row) +
                   "' width='1' height='1' fill='" + ColourOfCell(column, row) + "'/>";
        }
    }
    return svg + "</svg>";
}

TEST_F(DeckCommands, DrawDeckRefusesBadCalls)
{
    Write("file", "in the way");
    ExpectRefused(DRAW_DECK, {{"", "no folder"},
                              {File("a") + " " + File("b"), "more than one folder"},
                              {File("a") + " --size 3x4", "unknown option"},
                              {File("a") + " --card", "needs a size"},
                              {File("a") + " --card 71", "WxH"},
                              {File("a") + " --card 0x96", "WxH"},
                              {File("a") + " --card 71x99999999999", "WxH"},
                              {File("a") + " --card -71x96", "WxH"},
                              {File("file"), File("file")}});
    EXPECT_FALSE(fs::exists(File("a")));
}

TEST_F(DeckCommands, DrawDeckDrawsCardsOfAnySize)
{
    const Outcome outcome = RunCommand(std::string(DRAW_DECK) + " " + File("deep/er") + " --card 71x96");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    const PngPicture faces = LoadPng(File("deep/er/deck.png"));
    EXPECT_EQ(faces.width, kColumns * 71);
    EXPECT_EQ(faces.height, kRows * 96);
    EXPECT_EQ(LoadPng(File("deep/er/back.png")).width, 71);
}

TEST_F(DeckCommands, SheetFromSvgRefusesBadCalls)
{
    Write("deck.svg", DeckOfColours());
    const std::string deck = File("deck.svg");
    const std::string out = " --out " + File("out");
    ExpectRefused(SHEET_FROM_SVG, {{"", "no deck"},
                                   {deck, "no folder"},
                                   {deck + " --out", "needs a value"},
                                   {deck + out + " --card 71", "WxH"},
                                   {deck + out + " --card 7x96", "8 to 2400"},
                                   {deck + " " + deck + out, "more than one deck"},
                                   {deck + out + " --cards 71x96", "unknown option"}});
    const Outcome withoutConverter = RunCommand("PATH= /bin/bash " SHEET_FROM_SVG " " + deck + out);
    EXPECT_EQ(withoutConverter.exitCode, 1);
    EXPECT_NE(withoutConverter.output.find("librsvg2-bin"), std::string::npos) << withoutConverter.output;
    EXPECT_FALSE(fs::exists(File("out")));
}

TEST_F(DeckCommands, SheetFromSvgRefusesBrokenFiles)
{
    if (RunCommand("command -v rsvg-convert").exitCode != 0) {
        GTEST_SKIP() << "rsvg-convert is not installed";
    }
    Write("junk.svg", "not a picture");
    Write("empty.svg", "");
    Write("cut.svg", DeckOfColours().substr(0, 600));
    Write("junk.svgz", "\x1f\x8b and no more");
    const std::string out = " --out " + File("out");
    ExpectRefused(SHEET_FROM_SVG, {{File("junk.svg") + out, "junk.svg: not a readable SVG"},
                                   {File("empty.svg") + out, "empty.svg: not a readable SVG"},
                                   {File("cut.svg") + out, "cut.svg: not a readable SVG"},
                                   {File("junk.svgz") + out, "junk.svgz: not a readable SVG"},
                                   {File("none.svg") + out, "no such file"},
                                   {m_folder.string() + out, "not a readable file"}});
    EXPECT_FALSE(fs::exists(File("out")));
}

TEST_F(DeckCommands, SheetFromSvgCutsFacesAndBack)
{
    if (RunCommand("command -v rsvg-convert").exitCode != 0) {
        GTEST_SKIP() << "rsvg-convert is not installed";
    }
    Write("deck.svg", DeckOfColours());
    RunCommand("gzip -c " + File("deck.svg") + " > " + File("deck.svgz"));
    for (const char* name : {"deck.svg", "deck.svgz"}) {
        const Outcome outcome =
            RunCommand(std::string(SHEET_FROM_SVG) + " " + File(name) + " --card 20x28 --out " + File("out"));
        ASSERT_EQ(outcome.exitCode, 0) << outcome.output;
        const PngPicture faces = LoadPng(File("out/faces.png"));
        ASSERT_EQ(faces.width, kColumns * kCellWidth);
        ASSERT_EQ(faces.height, kRows * kCellHeight);
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                const bool empty = row == kRows - 1 && column >= kJokers;
                const std::uint32_t expected = empty ? 0U : PixelOfCell(column, row);
                for (const int dx : {0, kCellWidth - 1}) {
                    EXPECT_EQ(faces.At(column * kCellWidth + dx, row * kCellHeight), expected) << column << ", " << row;
                }
            }
        }
        const PngPicture back = LoadPng(File("out/back.png"));
        ASSERT_EQ(back.width, kCellWidth);
        ASSERT_EQ(back.height, kCellHeight);
        for (const std::uint32_t pixel : back.pixels) {
            ASSERT_EQ(pixel, PixelOfCell(kJokers, kRows - 1));
        }
        fs::remove_all(File("out"));
    }
}

} // namespace
