// SPDX-License-Identifier: MIT
#include "card_back.h"

#include "card.h"
#include "card_body.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numbers>
#include <span>

namespace deck
{

namespace
{

constexpr double kPaperMargin = 8.0; // white all around, so that overlapping backs part clearly
constexpr double kFieldInset = 18.0; // the field's side from the card's side
constexpr double kFieldWidth = kCardWidth - 2.0 * kFieldInset;
constexpr double kFieldHeight = kCardHeight - 2.0 * kFieldInset;
constexpr double kFrameLine = 3.0;

// Whole cells across the field, so that the lattice meets every side alike.
constexpr int kColumns = 5;
constexpr int kRows = 7;
constexpr double kCellWidth = kFieldWidth / kColumns;
constexpr double kCellHeight = kFieldHeight / kRows;
constexpr double kLatticeLine = 3.4;
constexpr double kInner = 0.52; // a lozenge's dark middle, of the whole
constexpr double kStud = 4.0;

constexpr int kPetals = 12;
constexpr std::string_view kPetal = "M 0 -14 C 9 -24 8 -38 0 -49 C -8 -38 -9 -24 0 -14 Z";

struct Ring {
    double radius;
    Ink ink;
};
constexpr std::array kRosetteRings{Ring{66, Ink::White}, Ring{62.5, Ink::Blue}, Ring{56, Ink::White},
                                   Ring{52.5, Ink::DeepBlue}};
constexpr std::array kHubRings{Ring{19, Ink::White}, Ring{15.5, Ink::Blue}, Ring{8, Ink::PaleGold}};
constexpr std::array kFanRings{Ring{56, Ink::White},   Ring{52.5, Ink::DeepBlue}, Ring{44, Ink::PaleGold},
                               Ring{38, Ink::Blue},    Ring{27, Ink::White},      Ring{23, Ink::DeepBlue},
                               Ring{13, Ink::PaleGold}};

// From the largest to the smallest, each over the one before.
void DrawRings(Canvas& canvas, std::span<const Ring> rings, double x, double y)
{
    for (const Ring& ring : rings) {
        canvas.Circle(x, y, ring.radius).Fill(ring.ink);
    }
}

Canvas& FieldPath(Canvas& canvas)
{
    return canvas.Rectangle(kFieldInset, kFieldInset, kFieldWidth, kFieldHeight);
}

void DrawLozenge(Canvas& canvas, double x, double y)
{
    constexpr double kHalfWidth = kCellWidth / 2.0;
    constexpr double kHalfHeight = kCellHeight / 2.0;
    canvas.Lozenge(x, y, kHalfWidth, kHalfHeight).Stroke(Ink::White, kLatticeLine);
    canvas.Lozenge(x, y, kInner * kHalfWidth, kInner * kHalfHeight).Fill(Ink::DeepBlue);
    canvas.Circle(x, y, kStud).Fill(Ink::PaleGold);
}

// Lozenges stand at the cells' centres and at their corners.
void DrawLattice(Canvas& canvas)
{
    FieldPath(canvas).Fill(Ink::Blue);
    for (int row = 0; row <= 2 * kRows; ++row) {
        for (int column = row % 2; column <= 2 * kColumns; column += 2) {
            DrawLozenge(canvas, kFieldInset + column * kCellWidth / 2.0, kFieldInset + row * kCellHeight / 2.0);
        }
    }
}

void DrawFans(Canvas& canvas)
{
    for (const double x : {kFieldInset, kCardWidth - kFieldInset}) {
        for (const double y : {kFieldInset, kCardHeight - kFieldInset}) {
            DrawRings(canvas, kFanRings, x, y);
        }
    }
}

void DrawRosette(Canvas& canvas)
{
    DrawRings(canvas, kRosetteRings, kCentreX, kCentreY);
    for (int petal = 0; petal < kPetals; ++petal) {
        const Canvas::Saved saved(canvas);
        canvas.Translate(kCentreX, kCentreY);
        canvas.Rotate(2.0 * std::numbers::pi * petal / kPetals);
        canvas.Path(kPetal).Fill(petal % 2 == 0 ? Ink::White : Ink::PaleGold);
    }
    DrawRings(canvas, kHubRings, kCentreX, kCentreY);
}

} // namespace

void DrawBackDesign(Canvas& canvas)
{
    PaperPath(canvas, kPaperMargin).Fill(Ink::DeepBlue);
    {
        const Canvas::Saved saved(canvas);
        FieldPath(canvas).Clip();
        DrawLattice(canvas);
        DrawFans(canvas);
        DrawRosette(canvas);
    }
    FieldPath(canvas).Stroke(Ink::White, kFrameLine);
}

void MakeHalfTurnSymmetric(Canvas& canvas)
{
    const auto pixels = canvas.Pixels();
    const auto half = static_cast<std::ptrdiff_t>(pixels.size() / 2);
    std::copy(pixels.begin(), pixels.begin() + half, pixels.rbegin());
}

} // namespace deck
