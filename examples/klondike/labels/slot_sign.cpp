// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/slot_sign.h"

#include "examples/klondike/decks/cairo_handles.h"

#include <numbers>

namespace klondike
{

namespace
{

// The signs in a square from -1 to 1, y downwards.

constexpr double kPi = std::numbers::pi;

void AddDisc(cairo_t* cairo, double x, double y, double radius)
{
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, x, y, radius, 0.0, 2.0 * kPi);
}

/// The stem of clubs and spades: from a height at the middle to the foot.
void AddStem(cairo_t* cairo, double top)
{
    cairo_move_to(cairo, -0.1, top);
    cairo_line_to(cairo, 0.1, top);
    cairo_curve_to(cairo, 0.1, 0.6, 0.2, 0.88, 0.46, 1.0);
    cairo_line_to(cairo, -0.46, 1.0);
    cairo_curve_to(cairo, -0.2, 0.88, -0.1, 0.6, -0.1, top);
    cairo_close_path(cairo);
}

void AddClub(cairo_t* cairo)
{
    AddDisc(cairo, 0.0, -0.52, 0.46);
    AddDisc(cairo, -0.5, 0.2, 0.46);
    AddDisc(cairo, 0.5, 0.2, 0.46);
    cairo_move_to(cairo, -0.28, -0.3);
    cairo_line_to(cairo, 0.28, -0.3);
    cairo_line_to(cairo, 0.3, 0.4);
    cairo_line_to(cairo, -0.3, 0.4);
    cairo_close_path(cairo);
    AddStem(cairo, 0.3);
}

void AddDiamond(cairo_t* cairo)
{
    cairo_move_to(cairo, 0.0, -1.0);
    cairo_curve_to(cairo, 0.2, -0.62, 0.45, -0.3, 0.76, 0.0);
    cairo_curve_to(cairo, 0.45, 0.3, 0.2, 0.62, 0.0, 1.0);
    cairo_curve_to(cairo, -0.2, 0.62, -0.45, 0.3, -0.76, 0.0);
    cairo_curve_to(cairo, -0.45, -0.3, -0.2, -0.62, 0.0, -1.0);
    cairo_close_path(cairo);
}

void AddHeart(cairo_t* cairo)
{
    cairo_move_to(cairo, 0.0, 1.0);
    cairo_curve_to(cairo, -0.15, 0.6, -0.95, 0.2, -0.95, -0.4);
    cairo_curve_to(cairo, -0.95, -0.76, -0.7, -0.96, -0.45, -0.96);
    cairo_curve_to(cairo, -0.23, -0.96, -0.06, -0.82, 0.0, -0.6);
    cairo_curve_to(cairo, 0.06, -0.82, 0.23, -0.96, 0.45, -0.96);
    cairo_curve_to(cairo, 0.7, -0.96, 0.95, -0.76, 0.95, -0.4);
    cairo_curve_to(cairo, 0.95, 0.2, 0.15, 0.6, 0.0, 1.0);
    cairo_close_path(cairo);
}

void AddSpade(cairo_t* cairo)
{
    cairo_move_to(cairo, 0.0, -1.0);
    cairo_curve_to(cairo, 0.15, -0.6, 0.92, -0.2, 0.92, 0.3);
    cairo_curve_to(cairo, 0.92, 0.78, 0.32, 0.86, 0.0, 0.42);
    cairo_curve_to(cairo, -0.32, 0.86, -0.92, 0.78, -0.92, 0.3);
    cairo_curve_to(cairo, -0.92, -0.2, -0.15, -0.6, 0.0, -1.0);
    cairo_close_path(cairo);
    AddStem(cairo, 0.3);
}

/// A round arrow, from the upper right three quarters of the way around.
void DrawRecycle(cairo_t* cairo)
{
    constexpr double kRadius = 0.74;
    cairo_set_line_width(cairo, 0.24);
    cairo_arc(cairo, 0.0, 0.0, kRadius, -0.12 * kPi, 1.5 * kPi);
    cairo_stroke(cairo);
    cairo_move_to(cairo, 0.52, -kRadius);
    cairo_line_to(cairo, -0.04, -kRadius - 0.38);
    cairo_line_to(cairo, -0.04, -kRadius + 0.38);
    cairo_close_path(cairo);
    cairo_fill(cairo);
}

void DrawCross(cairo_t* cairo)
{
    constexpr double kArm = 0.6;
    cairo_set_line_width(cairo, 0.24);
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
    cairo_move_to(cairo, -kArm, -kArm);
    cairo_line_to(cairo, kArm, kArm);
    cairo_move_to(cairo, kArm, -kArm);
    cairo_line_to(cairo, -kArm, kArm);
    cairo_stroke(cairo);
}

} // namespace

void DrawSlotSign(cairo_t* cairo, SlotSign sign, double x, double y, double size)
{
    const CairoState state(cairo);
    cairo_translate(cairo, x, y);
    cairo_scale(cairo, size / 2.0, size / 2.0);
    cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
    cairo_new_path(cairo);
    switch (sign) {
    case SlotSign::None:
        return;
    case SlotSign::Clubs:
        AddClub(cairo);
        break;
    case SlotSign::Diamonds:
        AddDiamond(cairo);
        break;
    case SlotSign::Hearts:
        AddHeart(cairo);
        break;
    case SlotSign::Spades:
        AddSpade(cairo);
        break;
    case SlotSign::Recycle:
        return DrawRecycle(cairo);
    case SlotSign::NoMore:
        return DrawCross(cairo);
    }
    cairo_fill(cairo);
}

} // namespace klondike
