// SPDX-License-Identifier: MIT
#include "pip.h"

namespace deck
{

namespace
{

constexpr double kOutlineHeight = 100.0;

constexpr std::string_view kClub =
    "O 0 -27 23 O -25 9 23 O 25 9 23 "
    "M -7 -14 L 7 -14 C 6 -6 8 -1 14 -1 L 14 14 C 8 14 5 17 5 20 C 6 34 11 45 21 50 L -21 50 C -11 45 -6 34 -5 20 "
    "C -5 17 -8 14 -14 14 L -14 -1 C -8 -1 -6 -6 -7 -14 Z";
constexpr std::string_view kDiamond = "M 0 -50 Q 15 -22 39 0 Q 15 22 0 50 Q -15 22 -39 0 Q -15 -22 0 -50 Z";
constexpr std::string_view kHeart =
    "M 0 50 C -7 30 -47 10 -47 -21 C -47 -39 -35 -50 -22 -50 C -11 -50 -3 -42 0 -31 C 3 -42 11 -50 22 -50 "
    "C 35 -50 47 -39 47 -21 C 47 10 7 30 0 50 Z";
constexpr std::string_view kSpade =
    "M 0 -50 C 8 -31 46 -12 46 14 C 46 30 36 38 25 38 C 15 38 8 32 4 24 C 5 36 10 46 20 50 L -20 50 "
    "C -10 46 -5 36 -4 24 C -8 32 -15 38 -25 38 C -36 38 -46 30 -46 14 C -46 -12 -8 -31 0 -50 Z";

} // namespace

std::string_view PipOutline(Suit suit)
{
    switch (suit) {
    case Suit::Clubs:
        return kClub;
    case Suit::Diamonds:
        return kDiamond;
    case Suit::Hearts:
        return kHeart;
    case Suit::Spades:
        break;
    }
    return kSpade;
}

void DrawPip(Canvas& canvas, Suit suit, double x, double y, double height, Ink ink)
{
    const Canvas::Saved saved(canvas);
    canvas.Translate(x, y);
    canvas.Scale(height / kOutlineHeight, height / kOutlineHeight);
    canvas.Path(PipOutline(suit)).Fill(ink);
}

} // namespace deck
