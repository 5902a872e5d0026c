// SPDX-License-Identifier: MIT
#include "sheet.h"

#include "ace.h"
#include "card.h"
#include "card_back.h"
#include "card_body.h"
#include "corner_index.h"
#include "court_card.h"
#include "joker.h"
#include "pip_card.h"

#include <array>

namespace deck
{

namespace
{

constexpr std::array kJokerInks{Ink::Black, Ink::Red};

Canvas BlankCard(CardSize size)
{
    Canvas canvas(size.width, size.height);
    canvas.Scale(size.width / kCardWidth, size.height / kCardHeight);
    DrawCardBody(canvas);
    return canvas;
}

Canvas DrawFace(CardSize size, Rank rank, Suit suit)
{
    Canvas canvas = BlankCard(size);
    if (rank == kAce) {
        DrawAce(canvas, suit);
    } else if (rank <= kTen) {
        DrawPips(canvas, rank, suit);
    } else {
        DrawCourt(canvas, rank, suit);
    }
    DrawIndices(canvas, rank, suit);
    return canvas;
}

Canvas DrawJokerFace(CardSize size, Ink ink)
{
    Canvas canvas = BlankCard(size);
    DrawJoker(canvas, ink);
    DrawJokerIndices(canvas, ink);
    return canvas;
}

void PasteCell(Canvas& sheet, Canvas card, int column, int row)
{
    sheet.Paste(card, column * card.Width(), row * card.Height());
}

} // namespace

Canvas DrawFaceSheet(CardSize size)
{
    Canvas sheet(kSheetColumns * size.width, kSheetRows * size.height);
    int row = 0;
    for (const Suit suit : kSuits) {
        for (Rank rank = kAce; rank <= kKing; ++rank) {
            PasteCell(sheet, DrawFace(size, rank, suit), rank - kAce, row);
        }
        ++row;
    }
    int column = 0;
    for (const Ink ink : kJokerInks) {
        PasteCell(sheet, DrawJokerFace(size, ink), column++, row);
    }
    return sheet;
}

Canvas DrawBack(CardSize size)
{
    Canvas canvas = BlankCard(size);
    DrawBackDesign(canvas);
    MakeHalfTurnSymmetric(canvas);
    return canvas;
}

} // namespace deck
