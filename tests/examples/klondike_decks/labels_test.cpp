// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/button_face.h"
#include "examples/klondike/labels/panel.h"
#include "pixels.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace
{

using klondike::ButtonFace;
using klondike::ButtonState;
using klondike::ButtonSymbol;
using klondike::FontFiles;
using klondike::Panel;
using klondike::PanelLine;
using klondike::TextPainter;

constexpr ButtonState kStates[] = {ButtonState::Normal, ButtonState::Hover, ButtonState::Pressed,
                                   ButtonState::Disabled};

/// No colour above its alpha: the pixels are premultiplied.
void ExpectPremultiplied(const Bitmap& bitmap)
{
    for (const std::uint32_t pixel : PixelsOf(bitmap)) {
        const std::uint32_t alpha = pixel >> 24;
        ASSERT_TRUE((pixel >> 16 & 255U) <= alpha && (pixel >> 8 & 255U) <= alpha && (pixel & 255U) <= alpha);
    }
}

double Mean(const Bitmap& bitmap, unsigned shift)
{
    const std::vector<std::uint32_t> pixels = PixelsOf(bitmap);
    return std::accumulate(pixels.begin(), pixels.end(), 0.0,
                           [&](double sum, std::uint32_t pixel) { return sum + (pixel >> shift & 255U); }) /
           static_cast<double>(pixels.size());
}

class LabelsTest : public HostTest
{
protected:
    TextPainter painter;
};

TEST_F(LabelsTest, EveryButtonLooksDifferent)
{
    std::set<std::vector<std::uint32_t>> seen;
    std::size_t made = 0;
    for (int symbol = 0; symbol <= static_cast<int>(ButtonSymbol::Close); ++symbol) {
        for (const ButtonState state : kStates) {
            for (const bool isFocused : {false, true}) {
                const ButtonFace face{static_cast<ButtonSymbol>(symbol), "", state, isFocused};
                const OwnedBitmap button = MakeButtonFace(painter, face, 40, 40);
                ASSERT_NE(button, nullptr);
                ExpectPremultiplied(*button);
                for (const int x : {0, 39}) {
                    EXPECT_EQ(PixelAt(*button, x, 0), 0U) << "a rounded corner";
                    EXPECT_EQ(PixelAt(*button, x, 39), 0U) << "a rounded corner";
                }
                seen.insert(PixelsOf(*button));
                ++made;
            }
        }
    }
    EXPECT_EQ(seen.size(), made);
}

TEST_F(LabelsTest, AButtonShowsItsState)
{
    const auto light = [&](ButtonState state) {
        return Mean(*MakeButtonFace(painter, {ButtonSymbol::Undo, "Undo", state}, 120, 40), 8);
    };
    EXPECT_GT(light(ButtonState::Hover), light(ButtonState::Normal));
    EXPECT_LT(light(ButtonState::Pressed), light(ButtonState::Normal));
    EXPECT_LT(light(ButtonState::Disabled), light(ButtonState::Normal));
}

TEST_F(LabelsTest, AButtonIsAsWideAsItsText)
{
    if (!painter.Error().empty()) {
        GTEST_SKIP() << painter.Error();
    }
    const ButtonFace face{ButtonSymbol::NewGame, "Neues Spiel"};
    for (const int height : {16, 32, 77}) {
        const int width = ButtonWidth(painter, face, height);
        EXPECT_GT(width, ButtonWidth(painter, {ButtonSymbol::None, face.text}, height));
        EXPECT_EQ(ButtonWidth(painter, {ButtonSymbol::NewGame, ""}, height), height);
        // Made wider it shows the same in its middle, so nothing of it was cut.
        const OwnedBitmap fitting = MakeButtonFace(painter, face, width, height);
        const OwnedBitmap wide = MakeButtonFace(painter, face, width + 40, height);
        for (int x = height / 3; x < width - height / 3; ++x) {
            ASSERT_EQ(PixelAt(*fitting, x, height / 2), PixelAt(*wide, x + 20, height / 2)) << x;
        }
    }
}

TEST_F(LabelsTest, ButtonsOfAnySize)
{
    const TextPainter noFont{FontFiles{}};
    for (const int side : {1, 2, 3, 7, 400}) {
        const ButtonFace face{ButtonSymbol::Help, "Help", ButtonState::Hover, true};
        ASSERT_NE(MakeButtonFace(painter, face, side, side), nullptr);
        ASSERT_NE(MakeButtonFace(painter, face, 2 * side, side), nullptr);
        ASSERT_NE(MakeButtonFace(noFont, face, side, 2 * side), nullptr);
    }
    EXPECT_EQ(MakeButtonFace(painter, {}, 0, 10), nullptr);
    EXPECT_EQ(MakeButtonFace(painter, {}, 10, -1), nullptr);
    EXPECT_EQ(MakeButtonFace(painter, {}, Bitmap::kMaxSide + 1, 10), nullptr);
    EXPECT_EQ(ButtonWidth(noFont, {ButtonSymbol::Help, "Help"}, 30), 30);
}

using Kind = PanelLine::Kind;

std::vector<PanelLine> Menu()
{
    return {{"Menu", Kind::Title},
            {"New game", Kind::Item, "N"},
            {"Draw three cards, as the older rules have it, and the banks too", Kind::Item, "Ctrl+Shift+D"},
            {"", Kind::Separator},
            {"A text that is so long that it has to be cut into several lines.", Kind::Text},
            {"Anunbreakablewordthatislongerthanthepaneliswide", Kind::Note}};
}

TEST_F(LabelsTest, APanelHasItsLinesUnderEachOther)
{
    for (const int pixels : {8, 16, 31}) {
        const Panel panel = MakePanel(painter, Menu(), {pixels, 0, 20 * pixels});
        ASSERT_NE(panel.picture, nullptr);
        ExpectPremultiplied(*panel.picture);
        ASSERT_EQ(panel.lines.size(), Menu().size());
        EXPECT_LE(panel.picture->Width(), 20 * pixels);
        int bottom = 0;
        for (const render::Rectangle<int>& line : panel.lines) {
            EXPECT_GE(line.y, bottom);
            EXPECT_GT(line.height, 0);
            EXPECT_GE(line.x, 0);
            EXPECT_LE(line.x + line.width, panel.picture->Width());
            bottom = line.y + line.height;
        }
        EXPECT_LT(bottom, panel.picture->Height());
        // The shadow is dark alone: what is light outside the plate is text that ran out.
        for (int y = 0; y < panel.picture->Height(); ++y) {
            for (int x = 0; x < pixels / 2; ++x) {
                ASSERT_EQ(PixelAt(*panel.picture, x, y) & 0xFFFFFFU, 0U);
                ASSERT_EQ(PixelAt(*panel.picture, panel.picture->Width() - 1 - x, y) & 0xFFFFFFU, 0U);
            }
        }
    }
    EXPECT_GE(MakePanel(painter, Menu(), {10, 500, 640}).picture->Width(), 500);
}

TEST_F(LabelsTest, MarksChangeTheirOwnLineAlone)
{
    const klondike::PanelStyle style{16, 0, 400};
    const Panel plain = MakePanel(painter, Menu(), style);
    for (const bool isMark : {true, false}) {
        std::vector<PanelLine> lines = Menu();
        (isMark ? lines[2].isMarked : lines[2].isChecked) = true;
        const Panel changed = MakePanel(painter, lines, style);
        ASSERT_EQ(changed.lines, plain.lines);
        int inside = 0;
        for (int y = 0; y < plain.picture->Height(); ++y) {
            for (int x = 0; x < plain.picture->Width(); ++x) {
                const bool isChanged = PixelAt(*plain.picture, x, y) != PixelAt(*changed.picture, x, y);
                const render::Rectangle<int>& line = plain.lines[2];
                const bool isInside = y >= line.y && y < line.y + line.height;
                ASSERT_TRUE(isInside || !isChanged) << x << ", " << y;
                inside += isChanged ? 1 : 0;
            }
        }
        EXPECT_GT(inside, 20);
    }
}

TEST_F(LabelsTest, PanelsOfAnyContents)
{
    const TextPainter noFont{FontFiles{}};
    EXPECT_NE(MakePanel(painter, {}, {}).picture, nullptr);
    EXPECT_NE(MakePanel(noFont, Menu(), {}).picture, nullptr);
    for (const int number : {-2147483647 - 1, -1, 0, 1, 100}) {
        EXPECT_NE(MakePanel(painter, Menu(), {1, number, number}).picture, nullptr) << number;
        EXPECT_NE(MakePanel(painter, {{"x"}}, {number, 0, 100}).picture, nullptr) << number;
    }
    const std::vector<PanelLine> many(5000, PanelLine{"too many lines"});
    const Panel tooHigh = MakePanel(painter, many, {});
    EXPECT_EQ(tooHigh.picture, nullptr);
    EXPECT_EQ(tooHigh.lines.size(), many.size());
}

} // namespace
