// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/shapes.h"

#include <algorithm>
#include <numbers>

namespace klondike
{

namespace
{

double Fraction(std::uint8_t channel)
{
    return channel / 255.0;
}

void AddColour(cairo_pattern_t* gradient, double place, const Rgba& colour)
{
    cairo_pattern_add_color_stop_rgba(gradient, place, Fraction(colour.r), Fraction(colour.g), Fraction(colour.b),
                                      Fraction(colour.a));
}

} // namespace

RoundedBox RoundedBox::Inset(double distance) const
{
    return {x + distance, y + distance, width - 2.0 * distance, height - 2.0 * distance,
            std::max(0.0, radius - distance)};
}

CairoContext DrawingOn(Bitmap& bitmap)
{
    constexpr int kBytesPerPixel = 4;
    const CairoSurface surface(cairo_image_surface_create_for_data(bitmap.Buffer(), CAIRO_FORMAT_ARGB32, bitmap.Width(),
                                                                   bitmap.Height(), bitmap.Width() * kBytesPerPixel));
    return CairoContext(cairo_create(surface.get()));
}

void SetColour(cairo_t* cairo, const Rgba& colour)
{
    cairo_set_source_rgba(cairo, Fraction(colour.r), Fraction(colour.g), Fraction(colour.b), Fraction(colour.a));
}

void AddPath(cairo_t* cairo, const RoundedBox& box)
{
    constexpr double kQuarter = std::numbers::pi / 2.0;
    const double width = std::max(0.0, box.width);
    const double height = std::max(0.0, box.height);
    const double radius = std::clamp(box.radius, 0.0, std::min(width, height) / 2.0);
    const double left = box.x + radius;
    const double right = box.x + width - radius;
    const double top = box.y + radius;
    const double bottom = box.y + height - radius;
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, right, top, radius, -kQuarter, 0.0);
    cairo_arc(cairo, right, bottom, radius, 0.0, kQuarter);
    cairo_arc(cairo, left, bottom, radius, kQuarter, 2.0 * kQuarter);
    cairo_arc(cairo, left, top, radius, 2.0 * kQuarter, 3.0 * kQuarter);
    cairo_close_path(cairo);
}

void Fill(cairo_t* cairo, const RoundedBox& box, const Rgba& colour)
{
    SetColour(cairo, colour);
    AddPath(cairo, box);
    cairo_fill(cairo);
}

void FillDown(cairo_t* cairo, const RoundedBox& box, const Rgba& top, const Rgba& bottom)
{
    const CairoPattern gradient(cairo_pattern_create_linear(0.0, box.y, 0.0, box.y + box.height));
    AddColour(gradient.get(), 0.0, top);
    AddColour(gradient.get(), 1.0, bottom);
    cairo_set_source(cairo, gradient.get());
    AddPath(cairo, box);
    cairo_fill(cairo);
}

void StrokeInside(cairo_t* cairo, const RoundedBox& box, double lineWidth, const Rgba& colour)
{
    SetColour(cairo, colour);
    cairo_set_line_width(cairo, lineWidth);
    AddPath(cairo, box.Inset(lineWidth / 2.0));
    cairo_stroke(cairo);
}

} // namespace klondike
