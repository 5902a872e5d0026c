// SPDX-License-Identifier: MIT
#include "examples/deal/options.h"
#include "examples/deal/program.h"
#include "tests/examples/test_deck.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace
{

struct Result {
    int code;
    std::string out;
    std::string errors;
};

Result RunDeal(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream errors;
    const int code = deal::RunProgram(arguments, "no-such-folder", out, errors);
    return {code, out.str(), errors.str()};
}

std::string FirstBytes(const std::string& file, std::size_t count)
{
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(count, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes;
}

} // namespace

TEST(DealOptions, AreRead)
{
    const deal::Options options = deal::ParseOptions({"--size",    "800x600", "--seed",     "18446744073709551615",
                                                      "--speed",   "2.5",     "--out",      "here",
                                                      "--deck",    "faces",   "--rows",     "4",
                                                      "--columns", "14",      "--last-row", "10",
                                                      "--card",    "71x96",   "--back",     "rear"},
                                                     "assets");
    EXPECT_EQ(options.width, 800);
    EXPECT_EQ(options.height, 600);
    EXPECT_EQ(options.seed, 18446744073709551615U);
    EXPECT_EQ(options.speed, 2.5);
    EXPECT_EQ(options.outputFolder, "here");
    EXPECT_EQ(options.deck.sheet, "faces");
    EXPECT_EQ(options.deck.back, "rear");
    EXPECT_EQ(options.deck.rows, 4);
    EXPECT_EQ(options.deck.columns, 14);
    EXPECT_EQ(options.deck.lastRow, 10);
    EXPECT_EQ(options.deck.cellWidth, 71);
    EXPECT_EQ(options.deck.cellHeight, 96);
    EXPECT_EQ(deal::ParseOptions({}, "assets").deck.sheet, "assets/deck.png");
}

TEST(DealOptions, MisuseIsExplained)
{
    struct Case {
        std::vector<std::string> arguments;
        const char* mentioned;
    };
    const std::vector<Case> cases{
        {{"--sise", "1x1"}, "unknown option '--sise'"},
        {{"extra"}, "'extra'"},
        {{"--speed"}, "--speed: a value is missing"},
        {{"--deck", ""}, "--deck"},
        {{"--out", ""}, "--out"},
        {{"--size", "0x0"}, "--size: '0x0'"},
        {{"--size", "-800x600"}, "from 320x240"},
        {{"--size", "800"}, "--size"},
        {{"--size", "800x600x2"}, "--size"},
        {{"--size", "99999999999x600"}, "to 7680x4320"},
        {{"--size", "nanxinf"}, "--size"},
        {{"--card", "0x96"}, "--card"},
        {{"--card", "71x"}, "--card"},
        {{"--rows", "0"}, "--rows: '0' is not a whole number from 1 to 100"},
        {{"--rows", "3.5"}, "--rows"},
        {{"--columns", "-13"}, "--columns"},
        {{"--columns", "2147483648"}, "--columns"},
        {{"--last-row", "14"}, "do not fit into a row of 13"},
        {{"--rows", "4", "--last-row", "12"}, "holds 51 cards"},
        {{"--seed", "-1"}, "--seed"},
        {{"--seed", "18446744073709551616"}, "--seed"},
        {{"--seed", "1 "}, "--seed"},
        {{"--speed", "0"}, "a number from 0.1 to 10"},
        {{"--speed", "-1"}, "--speed"},
        {{"--speed", "nan"}, "--speed"},
        {{"--speed", "inf"}, "--speed"},
        {{"--speed", "1e300"}, "--speed"},
        {{"--speed", "1.2.3"}, "--speed"},
        {{"--speed", "."}, "--speed"},
    };
    for (const Case& c : cases) {
        const Result result = RunDeal(c.arguments);
        EXPECT_EQ(result.code, deal::kUsage) << c.mentioned;
        EXPECT_NE(result.errors.find(c.mentioned), std::string::npos) << result.errors;
        EXPECT_TRUE(result.out.empty());
    }
    const Result help = RunDeal({"--speed", "2", "--help"});
    EXPECT_EQ(help.code, deal::kSuccess);
    EXPECT_NE(help.out.find("--last-row"), std::string::npos);
}

TEST(DealProgram, FailuresAreExplained)
{
    const TestDeck deck;
    std::ofstream(deck.Path("text.png")) << "not a picture";
    const std::string out = deck.Path("out");
    struct Case {
        std::vector<std::string> arguments;
        std::string mentioned;
    };
    const std::vector<Case> cases{
        {{"--out", out}, "no-such-folder/deck.png"},
        {{"--out", out, "--deck", deck.Path("text.png"), "--back", deck.Path("back.png")}, "text.png"},
        {{"--out", out, "--deck", deck.Path("sheet.png"), "--back", deck.Path("none.png")}, "card back"},
        {{"--out", out, "--deck", deck.Path("sheet.png"), "--back", deck.Path("back.png"), "--card", "31x42"},
         "is 390 x 168 pixels, too small for 13 x 5 cards of 31 x 42, 403 x 210"},
        {{"--out", deck.Path("text.png") + "/below"}, "cannot make the folder"},
        {{"--out", deck.Path("text.png")}, "cannot make the folder"},
    };
    for (const Case& c : cases) {
        const Result result = RunDeal(c.arguments);
        EXPECT_EQ(result.code, deal::kFailure) << c.mentioned;
        EXPECT_NE(result.errors.find(c.mentioned), std::string::npos) << result.errors;
    }
}

TEST(DealProgram, WritesTheFilm)
{
    const TestDeck deck;
    const Result result = RunDeal({"--deck", deck.Path("sheet.png"), "--back", deck.Path("back.png"), "--rows", "4",
                                   "--last-row", "13", "--size", "480x270", "--speed", "4", "--out", deck.Path("a/b")});
    EXPECT_EQ(result.code, deal::kSuccess) << result.errors;
    EXPECT_NE(result.out.find("100 frames at rest repainted 0 pixels"), std::string::npos) << result.out;
    EXPECT_EQ(FirstBytes(deck.Path("a/b/deal.webp"), 4), "RIFF");
    EXPECT_EQ(FirstBytes(deck.Path("a/b/film.png"), 4), "\x89PNG");
    EXPECT_EQ(FirstBytes(deck.Path("a/b/table.png"), 4), "\x89PNG");
}
