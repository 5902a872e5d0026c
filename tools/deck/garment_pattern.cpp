// SPDX-License-Identifier: MIT
#include "garment_pattern.h"

#include "layer.h"

namespace deck
{

namespace
{

constexpr double kCell = 16.0;
constexpr double kTop = 96.0; // above every garment
constexpr int kSideCells = 8; // left and right of the axis
constexpr int kRows = 10;
constexpr double kStripe = 5.6;
constexpr double kBroadLine = 4.0;
constexpr double kThinLine = 2.4;
constexpr double kStudRadius = 3.6;
constexpr double kLozengeHalfWidth = 5.0;
constexpr double kLozengeHalfHeight = 9.0;

// Calls draw(x, y) at the middle of every cell; every second row is moved by half a cell.
template <typename DrawCell> void ForEachCell(DrawCell draw)
{
    for (int row = 0; row < kRows; ++row) {
        for (int column = -kSideCells; column <= kSideCells; ++column) {
            draw((column + (row % 2 != 0 ? 0.5 : 0.0)) * kCell, kTop + row * kCell);
        }
    }
}

void DrawLozenges(Canvas& canvas, Ink ink)
{
    ForEachCell([&](double x, double y) { canvas.Lozenge(x, y, kLozengeHalfWidth, kLozengeHalfHeight).Fill(ink); });
}

void DrawChevrons(Canvas& canvas, Ink ink)
{
    constexpr double kReach = kSideCells * kCell;
    for (int row = 0; row < 2 * kRows; ++row) {
        const double y = kTop + row * kCell;
        canvas.Line(-kReach, y - 0.5 * kReach, 0.0, y).Stroke(ink, kBroadLine);
        canvas.Line(kReach, y - 0.5 * kReach, 0.0, y).Stroke(ink, kBroadLine);
    }
}

void DrawStripes(Canvas& canvas, Ink ink)
{
    for (int column = -kSideCells; column <= kSideCells; ++column) {
        canvas.Line(column * kCell, kTop, column * kCell, kTop + kRows * kCell).Stroke(ink, kStripe);
    }
}

void DrawScales(Canvas& canvas, Ink ink)
{
    ForEachCell([&](double x, double y) {
        canvas.Circle(x, y, 0.56 * kCell).Stroke(ink, kThinLine);
        canvas.Circle(x, y, 0.16 * kCell).Fill(ink);
    });
}

void DrawChecks(Canvas& canvas, Ink ink)
{
    ForEachCell([&](double x, double y) { canvas.Lozenge(x, y, 0.5 * kCell, kCell).Stroke(ink, kThinLine); });
}

void DrawStuds(Canvas& canvas, Ink ink)
{
    ForEachCell([&](double x, double y) { canvas.Circle(x, y, kStudRadius).Fill(ink); });
}

void DrawPattern(Canvas& canvas, Pattern pattern, Ink ground, Ink figure)
{
    canvas.Rectangle(-kSideCells * kCell, kTop - kCell, 2 * kSideCells * kCell, (kRows + 1) * kCell).Fill(ground);
    switch (pattern) {
    case Pattern::Lozenges:
        return DrawLozenges(canvas, figure);
    case Pattern::Chevrons:
        return DrawChevrons(canvas, figure);
    case Pattern::Stripes:
        return DrawStripes(canvas, figure);
    case Pattern::Scales:
        return DrawScales(canvas, figure);
    case Pattern::Checks:
        return DrawChecks(canvas, figure);
    case Pattern::Studs:
        return DrawStuds(canvas, figure);
    }
}

} // namespace

void DrawGarment(Canvas& canvas, std::string_view outline, Pattern pattern, Ink ground, Ink figure)
{
    {
        const Canvas::Saved saved(canvas);
        canvas.Path(outline).Clip();
        DrawPattern(canvas, pattern, ground, figure);
    }
    canvas.Path(outline).Stroke(Ink::Black, kOutline);
}

} // namespace deck
