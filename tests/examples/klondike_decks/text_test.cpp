// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/text_painter.h"
#include "tests/support/test_host.h"

#include <cstdlib>
#include <random>

namespace
{

using klondike::FontFiles;
using klondike::FontWeight;
using klondike::TextPainter;
using klondike::TextSize;
using klondike::TextStyle;

constexpr Rgba kInk{250, 200, 100, 255};
constexpr int kMargin = 20;

/// The box of all pixels that are not transparent, relative to the margin.
struct Ink {
    int left = 1 << 20;
    int top = 1 << 20;
    int right = -1;
    int bottom = -1;
};

Ink InkOf(const Bitmap& bitmap)
{
    Ink ink;
    for (int y = 0; y < bitmap.Height(); ++y) {
        for (int x = 0; x < bitmap.Width(); ++x) {
            if (PixelAt(bitmap, x, y) != 0U) {
                ink.left = std::min(ink.left, x - kMargin);
                ink.top = std::min(ink.top, y - kMargin);
                ink.right = std::max(ink.right, x - kMargin + 1);
                ink.bottom = std::max(ink.bottom, y - kMargin + 1);
            }
        }
    }
    return ink;
}

class TextTest : public HostTest
{
protected:
    void SetUp() override
    {
        if (!painter.Error().empty()) {
            GTEST_SKIP() << painter.Error();
        }
    }

    TextPainter painter;
};

TEST_F(TextTest, FillsTheBoxThatItMeasures)
{
    for (const char* text : {"Hello", "j", "Äußerst ÅÇ gjpqy", "W", "A♠ K♥ 10♦", "\xF0\x9F\x82\xA1", "fi 11:11"}) {
        for (const TextStyle style : {TextStyle{9}, {16}, {33, FontWeight::Bold}, {120}}) {
            SCOPED_TRACE(text + std::string(" ") + std::to_string(style.pixels));
            const TextSize size = painter.Measure(text, style);
            OwnBitmap bitmap(size.width + 2 * kMargin, size.height + 2 * kMargin);
            painter.Draw(*bitmap, kMargin, kMargin, text, style, kInk);
            const Ink ink = InkOf(*bitmap);
            EXPECT_GE(ink.left, 0);
            EXPECT_GE(ink.top, 0);
            EXPECT_LE(ink.right, size.width);
            EXPECT_LE(ink.bottom, size.height);
            // The room beside the letters, and what the widest letter's advance leaves free.
            const int room = std::max(2, style.pixels / 4);
            EXPECT_LE(ink.left, room);
            EXPECT_GE(ink.right, size.width - room);
            EXPECT_NEAR(size.height, painter.Measure("", style).height, 1);
        }
    }
}

TEST_F(TextTest, GrowsWithItsStyle)
{
    const int regular = painter.Measure("Klondike", {16}).width;
    EXPECT_GT(painter.Measure("Klondike", {17}).width, regular);
    EXPECT_GT(painter.Measure("Klondike", {16, FontWeight::Bold}).width, regular);
    EXPECT_NEAR(painter.Measure("Klondike", {160}).width, 10 * regular, regular);
    EXPECT_EQ(painter.Measure("", {16}).width, 0);
    for (const int pixels : {0, -4, 513, 1 << 30}) {
        EXPECT_EQ(painter.Measure("Klondike", {pixels}).width, 0) << pixels;
    }
}

TEST_F(TextTest, BlendsItsColourOverThePicture)
{
    OwnBitmap bitmap(200, 60);
    bitmap->FillRect({0, 0, 200, 60}, {0, 0, 200, 255});
    painter.Draw(*bitmap, 5, 5, "MMM", {40}, {255, 0, 0, 128});
    int reddest = 0;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 200; ++x) {
            const std::uint32_t pixel = PixelAt(*bitmap, x, y);
            ASSERT_EQ(pixel >> 24, 255U);
            reddest = std::max(reddest, static_cast<int>(pixel >> 16 & 255U));
        }
    }
    EXPECT_NEAR(reddest, 128, 1);
}

TEST_F(TextTest, IsCutAtTheEdges)
{
    OwnBitmap whole(200, 60);
    painter.Draw(*whole, 20, 10, "Mortimer", {30}, kInk);
    OwnBitmap part(30, 20);
    painter.Draw(*part, 20 - 60, 10 - 15, "Mortimer", {30}, kInk);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x) {
            ASSERT_EQ(PixelAt(*part, x, y), PixelAt(*whole, x + 60, y + 15)) << x << ", " << y;
        }
    }
    OwnBitmap empty(0, 0);
    for (const int far : {-2147483647 - 1, -300, 300, 2147483647}) {
        painter.Draw(*whole, far, 10, "far", {30}, kInk);
        painter.Draw(*whole, 20, far, "far", {30}, kInk);
        painter.Draw(*empty, far, far, "far", {30}, kInk);
    }
}

TEST_F(TextTest, TakesAnyBytes)
{
    using namespace std::string_view_literals;
    EXPECT_GT(painter.Measure("\xFF", {16}).width, 0);
    for (const std::string_view wrong : {"\xFF"sv, "\x80"sv, "\xC3"sv, "\xE2\x99"sv, "\xED\xA0\x80"sv, "\xC0\xAF"sv,
                                         "\xF5\x80\x80\x80"sv, "\xF0\x80\x80\x80"sv}) {
        std::string characters;
        for (std::size_t i = 0; i < wrong.size(); ++i) {
            characters += "\xEF\xBF\xBD";
        }
        EXPECT_EQ(painter.Measure(wrong, {16}).width, painter.Measure(characters, {16}).width);
    }
    EXPECT_EQ(painter.Measure("a\0b\t\x7F"sv, {16}).width, painter.Measure("ab", {16}).width);
    EXPECT_EQ(painter.Measure(std::string(5000000, 'x'), {16}).width,
              painter.Measure(std::string(4096, 'x'), {16}).width);

    std::mt19937 random(1);
    OwnBitmap bitmap(300, 40);
    for (int i = 0; i < 300; ++i) {
        std::string bytes(random() % 40, ' ');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        painter.Draw(*bitmap, 0, 0, bytes, {16}, kInk);
        const int width = painter.Measure(bytes, {16}).width;
        EXPECT_LE(painter.Measure(painter.Fitting(bytes, {16}, width / 2), {16}).width, width / 2);
    }
}

TEST_F(TextTest, WrapsAtBlanksAndLineEnds)
{
    const TextStyle style{16};
    const std::string text = "Drag a card onto another of\nthe other colour.\n\nUnbreakablylongwordsstandalone here";
    const std::vector<std::string> lines = painter.Wrap(text, style, 120);
    std::string joined;
    for (const std::string& line : lines) {
        joined += (joined.empty() ? "" : " ") + line;
        EXPECT_TRUE(painter.Measure(line, style).width <= 120 || line.find(' ') == std::string::npos) << line;
    }
    std::string unbroken = text;
    std::replace(unbroken.begin(), unbroken.end(), '\n', ' ');
    EXPECT_EQ(joined, unbroken);
    EXPECT_EQ(painter.Wrap("a\nb", style, 1000), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(painter.Wrap("", style, 1000), std::vector<std::string>{""});
}

TEST_F(TextTest, CutsWhatDoesNotFit)
{
    const TextStyle style{16};
    const std::string text = "Größe der Karten";
    const int width = painter.Measure(text, style).width;
    EXPECT_EQ(painter.Fitting(text, style, width), text);
    std::size_t length = text.size();
    for (int room = width - 1; room >= 0; --room) {
        const std::string cut = painter.Fitting(text, style, room);
        ASSERT_LE(painter.Measure(cut, style).width, room);
        ASSERT_LE(cut.size(), length + 2); // the ellipsis has three bytes
        ASSERT_TRUE(cut.empty() || cut.ends_with("…")) << cut;
        length = cut.size();
    }
    EXPECT_EQ(length, 0U);
}

TEST_F(HostTest, WithoutAFontTextIsLeftOut)
{
    for (const FontFiles& files : {FontFiles{}, {"/not/there.ttf", ""}, {"/dev/null", "/dev/null"}}) {
        const TextPainter painter(files);
        EXPECT_NE(painter.Error(), "");
        EXPECT_EQ(painter.Error().find('\n'), std::string::npos);
        EXPECT_NE(painter.Error().find(files.regular), std::string::npos);
        EXPECT_EQ(painter.Measure("text", {16}).width, 0);
        EXPECT_EQ(painter.Measure("text", {16}).height, 0);
        OwnBitmap bitmap(50, 30);
        painter.Draw(*bitmap, 0, 0, "text", {16}, kInk);
        EXPECT_EQ(InkOf(*bitmap).right, -1);
        EXPECT_EQ(painter.Wrap("two words", {16}, 5), std::vector<std::string>{"two words"});
    }
}

TEST_F(TextTest, AVariableNamesAnotherFont)
{
    ASSERT_EQ(setenv(TextPainter::kFontVariable, "/not/there.ttf", 1), 0);
    EXPECT_NE(TextPainter().Error().find("/not/there.ttf"), std::string::npos);
    const FontFiles files = klondike::FindFonts("KLONDIKE_NO_SUCH_VARIABLE");
    ASSERT_EQ(setenv(TextPainter::kFontVariable, files.bold.c_str(), 1), 0);
    EXPECT_EQ(TextPainter().Measure("Klondike", {16}).width, painter.Measure("Klondike", {16, FontWeight::Bold}).width);
    unsetenv(TextPainter::kFontVariable);
}

} // namespace
