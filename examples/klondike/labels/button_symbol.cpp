// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/button_symbol.h"

#include "examples/klondike/labels/shapes.h"

#include <initializer_list>
#include <numbers>

namespace klondike
{

namespace
{

constexpr double kPi = std::numbers::pi;
constexpr double kSquare = 24.0; // the signs' own units: a square of that side
constexpr double kLine = 2.0;

struct Point {
    double x;
    double y;
};

void Line(cairo_t* cairo, std::initializer_list<Point> points)
{
    cairo_new_sub_path(cairo);
    for (const Point& point : points) {
        cairo_line_to(cairo, point.x, point.y);
    }
}

void Polygon(cairo_t* cairo, std::initializer_list<Point> points)
{
    Line(cairo, points);
    cairo_close_path(cairo);
    cairo_fill(cairo);
}

void Dot(cairo_t* cairo, double x, double y, double radius)
{
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, x, y, radius, 0.0, 2.0 * kPi);
    cairo_fill(cairo);
}

/// Two cards, one over the other, and a plus on the upper one.
void DrawNewGame(cairo_t* cairo)
{
    Line(cairo, {{7, 18}, {5.4, 18}});
    cairo_arc(cairo, 5.0, 16.0, 2.0, kPi / 2.0, kPi);
    cairo_arc(cairo, 5.0, 4.5, 2.0, kPi, 1.5 * kPi);
    cairo_line_to(cairo, 12, 2.5);
    AddPath(cairo, {8.5, 5.5, 12.5, 16, 2});
    Line(cairo, {{14.75, 10}, {14.75, 17}});
    Line(cairo, {{11.25, 13.5}, {18.25, 13.5}});
    cairo_stroke(cairo);
}

/// A circle that ends in an arrow.
void DrawRestart(cairo_t* cairo)
{
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, 12, 12.5, 8, -0.25 * kPi, 1.35 * kPi);
    cairo_stroke(cairo);
    Polygon(cairo, {{20.6, 2.8}, {20.6, 10.2}, {13.2, 10.2}});
}

/// An arrow to the left that comes from below.
void DrawUndo(cairo_t* cairo)
{
    Line(cairo, {{6, 8.5}, {14, 8.5}});
    cairo_arc(cairo, 14, 14, 5.5, -0.5 * kPi, 0.5 * kPi);
    cairo_line_to(cairo, 8, 19.5);
    cairo_stroke(cairo);
    Polygon(cairo, {{2.5, 8.5}, {9, 3.2}, {9, 13.8}});
}

void DrawRedo(cairo_t* cairo)
{
    cairo_translate(cairo, kSquare, 0.0);
    cairo_scale(cairo, -1.0, 1.0);
    DrawUndo(cairo);
}

/// A light bulb.
void DrawHint(cairo_t* cairo)
{
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, 12, 9.5, 6.5, 0.72 * kPi, 2.28 * kPi);
    cairo_curve_to(cairo, 15.0, 15.6, 14.8, 16.0, 14.8, 17.2);
    cairo_line_to(cairo, 9.2, 17.2);
    cairo_curve_to(cairo, 9.2, 16.0, 9.0, 15.6, 8.0, 14.7);
    Line(cairo, {{9.8, 20}, {14.2, 20}});
    Line(cairo, {{11, 22.4}, {13, 22.4}});
    cairo_stroke(cairo);
}

/// Two arrowheads up to a line: all that fits goes to the foundations.
void DrawFinish(cairo_t* cairo)
{
    Line(cairo, {{5, 3.5}, {19, 3.5}});
    Line(cairo, {{6, 14}, {12, 8}, {18, 14}});
    Line(cairo, {{6, 20.5}, {12, 14.5}, {18, 20.5}});
    cairo_stroke(cairo);
}

void DrawMenu(cairo_t* cairo)
{
    for (const double y : {6.0, 12.0, 18.0}) {
        Line(cairo, {{4, y}, {20, y}});
    }
    cairo_stroke(cairo);
}

/// A card with a diamond on it.
void DrawDeck(cairo_t* cairo)
{
    AddPath(cairo, {5, 2.5, 14, 19, 2.2});
    cairo_stroke(cairo);
    Polygon(cairo, {{12, 7}, {15.4, 12}, {12, 17}, {8.6, 12}});
}

/// A question mark.
void DrawHelp(cairo_t* cairo)
{
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, 12, 8.2, 5, kPi, 2.2 * kPi);
    cairo_curve_to(cairo, 15, 12.6, 12, 12.6, 12, 16);
    cairo_stroke(cairo);
    Dot(cairo, 12, 20.4, 1.5);
}

void DrawClose(cairo_t* cairo)
{
    Line(cairo, {{5.5, 5.5}, {18.5, 18.5}});
    Line(cairo, {{18.5, 5.5}, {5.5, 18.5}});
    cairo_stroke(cairo);
}

} // namespace

void DrawSymbol(cairo_t* cairo, ButtonSymbol symbol, double x, double y, double side, const Rgba& colour)
{
    const CairoState state(cairo);
    cairo_translate(cairo, x, y);
    cairo_scale(cairo, side / kSquare, side / kSquare);
    SetColour(cairo, colour);
    cairo_set_line_width(cairo, kLine);
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
    switch (symbol) {
    case ButtonSymbol::None:
        return;
    case ButtonSymbol::NewGame:
        return DrawNewGame(cairo);
    case ButtonSymbol::Restart:
        return DrawRestart(cairo);
    case ButtonSymbol::Undo:
        return DrawUndo(cairo);
    case ButtonSymbol::Redo:
        return DrawRedo(cairo);
    case ButtonSymbol::Hint:
        return DrawHint(cairo);
    case ButtonSymbol::Finish:
        return DrawFinish(cairo);
    case ButtonSymbol::Menu:
        return DrawMenu(cairo);
    case ButtonSymbol::Deck:
        return DrawDeck(cairo);
    case ButtonSymbol::Help:
        return DrawHelp(cairo);
    case ButtonSymbol::Close:
        return DrawClose(cairo);
    }
}

} // namespace klondike
