// SPDX-License-Identifier: MIT
#include "corner_index.h"

#include "card_body.h"
#include "pip.h"

#include <array>

namespace deck
{

namespace
{

// Large enough to be read when the card is 71 pixels wide; the widest rank stays clear of the pips beside it.
constexpr double kIndexX = 26.0;
constexpr double kRankY = 35.0;
constexpr double kRankHeight = 41.0;
constexpr double kIndexPipY = 72.0;
constexpr double kIndexPipHeight = 26.0;
constexpr double kJokerStarY = 36.0;
constexpr double kJokerStarHeight = 38.0;

// The middle line of a letter, drawn with a broad pen: 0 to 100 downwards, 0 to width across.
struct Glyph {
    double width;
    std::string_view line;
};

constexpr double kPen = 18.0;
constexpr double kLineHeight = 100.0;
constexpr double kGlyphHeight = kLineHeight + kPen;

constexpr std::array<Glyph, kKing> kGlyphs{{
    {84, "M 12 100 L 38 0 L 46 0 L 72 100 M 22 68 L 62 68 M -2 100 L 27 100 M 57 100 L 86 100"},
    {62, "M 3 29 C 3 10 14 0 31 0 C 48 0 59 10 59 27 C 59 52 20 66 4 100 L 62 100 L 62 84"},
    {62, "M 4 21 C 8 7 18 0 31 0 C 46 0 57 9 57 24 C 57 39 46 47 24 47 M 24 47 C 48 47 61 57 61 73 "
         "C 61 90 48 100 31 100 C 16 100 5 93 1 78"},
    {66, "M 46 100 L 46 0 L 41 0 L 2 69 L 70 69 M 28 100 L 64 100"},
    {62, "M 57 0 L 12 0 L 8 47 C 13 41 21 38 31 38 C 49 38 61 50 61 69 C 61 88 48 100 29 100 C 15 100 5 93 1 80"},
    {62, "M 55 16 C 50 5 42 0 32 0 C 12 0 1 20 1 56 C 1 84 12 100 31 100 C 49 100 61 88 61 70 C 61 52 49 41 32 41 "
         "C 15 41 3 51 1 66"},
    {60, "M 1 17 L 1 0 L 60 0 C 41 30 28 60 25 109"},
    {62, "M 31 46 C 15 46 5 37 5 23 C 5 9 15 0 31 0 C 47 0 57 9 57 23 C 57 37 47 46 31 46 Z "
         "M 31 46 C 12 46 0 57 0 73 C 0 90 12 100 31 100 C 50 100 62 90 62 73 C 62 57 50 46 31 46 Z"},
    {62, "M 7 84 C 12 95 20 100 30 100 C 50 100 61 80 61 44 C 61 16 50 0 31 0 C 13 0 1 12 1 30 C 1 48 13 59 30 59 "
         "C 47 59 59 49 61 34"},
    {92, "M -2 17 C 8 14 14 8 16 -9 M 16 -9 L 16 100 M -2 100 L 34 100 "
         "M 70 0 C 54 0 47 18 47 50 C 47 82 54 100 70 100 C 86 100 93 82 93 50 C 93 18 86 0 70 0 Z"},
    {56, "M 40 0 L 40 68 C 40 90 31 100 18 100 C 7 100 0 92 0 78 M 22 0 L 58 0"},
    {72, "M 36 0 C 13 0 0 20 0 50 C 0 80 13 100 36 100 C 59 100 72 80 72 50 C 72 20 59 0 36 0 Z M 36 68 L 72 110"},
    {84, "M 14 0 L 14 100 M 68 0 L 18 58 M 33 42 L 70 100 M 0 0 L 28 0 M 0 100 L 28 100 M 56 0 L 82 0 "
         "M 56 100 L 86 100"},
}};

constexpr double kStarHeight = 100.0;
constexpr std::string_view kStar = "M 0 -50 L 12.4 -17 L 47.6 -15.5 L 20 6.5 L 29.4 40.5 L 0 21 L -29.4 40.5 L -20 6.5 "
                                   "L -47.6 -15.5 L -12.4 -17 Z";

void DrawStar(Canvas& canvas, Ink ink)
{
    const Canvas::Saved saved(canvas);
    canvas.Translate(kIndexX, kJokerStarY);
    constexpr double kScale = kJokerStarHeight / kStarHeight;
    canvas.Scale(kScale, kScale);
    canvas.Path(kStar).Fill(ink);
}

void DrawRank(Canvas& canvas, Rank rank, Ink ink)
{
    const Glyph& glyph = kGlyphs.at(static_cast<std::size_t>(rank - kAce));
    constexpr double kScale = kRankHeight / kGlyphHeight;
    const Canvas::Saved saved(canvas);
    canvas.Translate(kIndexX, kRankY);
    canvas.Scale(kScale, kScale);
    canvas.Translate(-glyph.width / 2.0, -kLineHeight / 2.0);
    canvas.Path(glyph.line).Stroke(ink, kPen);
}

// Draws the upper left corner, then the lower right one.
template <typename DrawCorner> void DrawTwice(Canvas& canvas, DrawCorner drawCorner)
{
    drawCorner();
    const Canvas::Saved saved(canvas);
    HalfTurn(canvas);
    drawCorner();
}

} // namespace

void DrawIndices(Canvas& canvas, Rank rank, Suit suit)
{
    DrawTwice(canvas, [&] {
        DrawRank(canvas, rank, InkOf(suit));
        DrawPip(canvas, suit, kIndexX, kIndexPipY, kIndexPipHeight, InkOf(suit));
    });
}

void DrawJokerIndices(Canvas& canvas, Ink ink)
{
    DrawTwice(canvas, [&] { DrawStar(canvas, ink); });
}

} // namespace deck
