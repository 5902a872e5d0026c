// SPDX-License-Identifier: MIT
#include "pip_card.h"

#include "card_body.h"
#include "pip.h"

#include <array>
#include <span>

namespace deck
{

namespace
{

constexpr double kPipHeight = 48.0;
constexpr double kSideColumn = 46.0; // left and right of the centre
constexpr double kTopRow = 61.0;
constexpr double kBottomRow = kCardHeight - kTopRow;

// A place in the field of pips: column -1, 0 or 1; row 0 for the pips at the top, 1 for those at the bottom.
struct Place {
    int column;
    double row;
};

constexpr double kThird = 1.0 / 3.0;
constexpr double kSixth = 1.0 / 6.0;

constexpr std::array kTwo{Place{0, 0}, Place{0, 1}};
constexpr std::array kThree{Place{0, 0}, Place{0, 0.5}, Place{0, 1}};
constexpr std::array kFour{Place{-1, 0}, Place{1, 0}, Place{-1, 1}, Place{1, 1}};
constexpr std::array kFive{Place{-1, 0}, Place{1, 0}, Place{0, 0.5}, Place{-1, 1}, Place{1, 1}};
constexpr std::array kSix{Place{-1, 0}, Place{1, 0}, Place{-1, 0.5}, Place{1, 0.5}, Place{-1, 1}, Place{1, 1}};
constexpr std::array kSeven{Place{-1, 0},  Place{1, 0},  Place{0, 0.25}, Place{-1, 0.5},
                            Place{1, 0.5}, Place{-1, 1}, Place{1, 1}};
constexpr std::array kEight{Place{-1, 0},  Place{1, 0},    Place{0, 0.25}, Place{-1, 0.5},
                            Place{1, 0.5}, Place{0, 0.75}, Place{-1, 1},   Place{1, 1}};
constexpr std::array kNine{Place{-1, 0},         Place{1, 0},   Place{-1, kThird},
                           Place{1, kThird},     Place{0, 0.5}, Place{-1, 1 - kThird},
                           Place{1, 1 - kThird}, Place{-1, 1},  Place{1, 1}};
constexpr std::array kTenPips{
    Place{-1, 0},          Place{1, 0},          Place{0, kSixth},     Place{-1, kThird}, Place{1, kThird},
    Place{-1, 1 - kThird}, Place{1, 1 - kThird}, Place{0, 1 - kSixth}, Place{-1, 1},      Place{1, 1}};

std::span<const Place> PlacesOf(Rank rank)
{
    static constexpr std::array<std::span<const Place>, 9> kPlaces{kTwo,   kThree, kFour, kFive,   kSix,
                                                                   kSeven, kEight, kNine, kTenPips};
    return kPlaces.at(static_cast<std::size_t>(rank - 2));
}

void DrawPipAt(Canvas& canvas, Suit suit, const Place& place)
{
    const Canvas::Saved saved(canvas);
    const bool upsideDown = place.row > 0.5;
    if (upsideDown) {
        HalfTurn(canvas);
    }
    const int column = upsideDown ? -place.column : place.column;
    const double row = upsideDown ? 1.0 - place.row : place.row;
    DrawPip(canvas, suit, kCentreX + column * kSideColumn, kTopRow + row * (kBottomRow - kTopRow), kPipHeight,
            InkOf(suit));
}

} // namespace

void DrawPips(Canvas& canvas, Rank rank, Suit suit)
{
    for (const Place& place : PlacesOf(rank)) {
        DrawPipAt(canvas, suit, place);
    }
}

} // namespace deck
