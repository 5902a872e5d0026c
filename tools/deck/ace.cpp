// SPDX-License-Identifier: MIT
#include "ace.h"

#include "card_body.h"
#include "layer.h"
#include "pip.h"

#include <array>
#include <numbers>

namespace deck
{

namespace
{

constexpr double kPipHeight = 104.0;

constexpr double kSpadeHeight = 150.0;
constexpr double kSpadeOffset = -3.0; // the stem is light: a little higher looks centred
constexpr double kRosetteY = 5.0;     // from the spade's middle, where it is widest

// The spade's leaf without its stem, a little inside it.
constexpr Layer kInlay{Ink::None, Ink::Gold, 3.6,
                       "M 0 -56 C 14 -28 56 -10 56 18 C 56 36 46 45 34 45 C 18 45 6 34 0 22 C -6 34 -18 45 -34 45 "
                       "C -46 45 -56 36 -56 18 C -56 -10 -14 -28 0 -56 Z"};

constexpr double kRosetteHub = 5.5;
constexpr int kPetals = 8;
constexpr std::string_view kPetal = "M 0 -7 C 6 -12 6 -19 0 -26 C -6 -19 -6 -12 0 -7 Z";

// Scrolls over the spade; under it they stand upside down.
constexpr auto kScrolls = std::to_array<Layer>({
    {Ink::None, Ink::Black, 3.4,
     "M 120 58 C 106 40 76 44 76 62 C 76 76 96 76 95 63 "
     "M 120 58 C 134 40 164 44 164 62 C 164 76 144 76 145 63"},
    {Ink::Black, Ink::None, 0, "O 93 63 4.6 O 147 63 4.6"},
    {Ink::Gold, Ink::Black, kOutline, "M 120 30 Q 124 40 132 44 Q 124 48 120 62 Q 116 48 108 44 Q 116 40 120 30 Z"},
});

void DrawScrolls(Canvas& canvas)
{
    DrawLayers(canvas, kScrolls, {});
    const Canvas::Saved saved(canvas);
    HalfTurn(canvas);
    DrawLayers(canvas, kScrolls, {});
}

void DrawRosette(Canvas& canvas)
{
    const Canvas::Saved saved(canvas);
    canvas.Translate(0.0, kRosetteY);
    for (int petal = 0; petal < kPetals; ++petal) {
        canvas.Path(kPetal).Fill(petal % 2 == 0 ? Ink::Gold : Ink::PaleGold);
        canvas.Rotate(2.0 * std::numbers::pi / kPetals);
    }
    canvas.Circle(0.0, 0.0, kRosetteHub).Fill(Ink::Red);
}

void DrawOrnateSpade(Canvas& canvas)
{
    const double y = kCentreY + kSpadeOffset;
    DrawScrolls(canvas);
    DrawPip(canvas, Suit::Spades, kCentreX, y, kSpadeHeight, Ink::Black);
    const Canvas::Saved saved(canvas);
    canvas.Translate(kCentreX, y);
    DrawLayers(canvas, {&kInlay, 1}, {});
    DrawRosette(canvas);
}

} // namespace

void DrawAce(Canvas& canvas, Suit suit)
{
    if (suit == Suit::Spades) {
        DrawOrnateSpade(canvas);
    } else {
        DrawPip(canvas, suit, kCentreX, kCentreY, kPipHeight, InkOf(suit));
    }
}

} // namespace deck
