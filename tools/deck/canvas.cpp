// SPDX-License-Identifier: MIT
#include "canvas.h"

#include "path_data.h"

#include <numbers>
#include <stdexcept>

namespace deck
{

namespace
{

constexpr double kPi = std::numbers::pi;

void Check(cairo_status_t status, const std::string& what)
{
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(what + ": " + cairo_status_to_string(status));
    }
}

} // namespace

Canvas::Canvas(int width, int height) : m_surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height))
{
    Check(cairo_surface_status(m_surface.get()),
          "a picture of " + std::to_string(width) + " x " + std::to_string(height) + " pixels");
    m_cairo.reset(cairo_create(m_surface.get()));
    Check(cairo_status(m_cairo.get()), "drawing");
    cairo_set_antialias(m_cairo.get(), CAIRO_ANTIALIAS_BEST);
    cairo_set_line_join(m_cairo.get(), CAIRO_LINE_JOIN_MITER);
    cairo_set_miter_limit(m_cairo.get(), 4.0);
}

int Canvas::Width() const
{
    return cairo_image_surface_get_width(m_surface.get());
}
int Canvas::Height() const
{
    return cairo_image_surface_get_height(m_surface.get());
}

std::span<std::uint32_t> Canvas::Pixels()
{
    cairo_surface_flush(m_surface.get());
    cairo_surface_mark_dirty(m_surface.get());
    // Rows of four-byte pixels need no padding, so the stride is the width.
    auto* pixels = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(m_surface.get()));
    return {pixels, static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height())};
}

void Canvas::Paste(Canvas& source, int left, int top)
{
    const Saved saved(*this);
    cairo_identity_matrix(m_cairo.get());
    cairo_set_operator(m_cairo.get(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(m_cairo.get(), source.m_surface.get(), left, top);
    cairo_rectangle(m_cairo.get(), left, top, source.Width(), source.Height());
    cairo_fill(m_cairo.get());
}

void Canvas::WritePng(const std::string& path)
{
    Check(cairo_status(m_cairo.get()), "drawing");
    cairo_surface_flush(m_surface.get());
    Check(cairo_surface_write_to_png(m_surface.get(), path.c_str()), path);
}

void Canvas::Translate(double x, double y)
{
    cairo_translate(m_cairo.get(), x, y);
}
void Canvas::Scale(double x, double y)
{
    cairo_scale(m_cairo.get(), x, y);
}
void Canvas::Rotate(double radians)
{
    cairo_rotate(m_cairo.get(), radians);
}

Canvas& Canvas::Path(std::string_view data)
{
    AppendPath(m_cairo.get(), data);
    return *this;
}

Canvas& Canvas::Circle(double x, double y, double radius)
{
    cairo_new_sub_path(m_cairo.get());
    cairo_arc(m_cairo.get(), x, y, radius, 0.0, 2.0 * kPi);
    cairo_close_path(m_cairo.get());
    return *this;
}

Canvas& Canvas::Rectangle(double x, double y, double width, double height)
{
    cairo_rectangle(m_cairo.get(), x, y, width, height);
    return *this;
}

Canvas& Canvas::RoundedRectangle(double x, double y, double width, double height, double radius)
{
    cairo_t* cairo = m_cairo.get();
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, x + width - radius, y + radius, radius, -0.5 * kPi, 0.0);
    cairo_arc(cairo, x + width - radius, y + height - radius, radius, 0.0, 0.5 * kPi);
    cairo_arc(cairo, x + radius, y + height - radius, radius, 0.5 * kPi, kPi);
    cairo_arc(cairo, x + radius, y + radius, radius, kPi, 1.5 * kPi);
    cairo_close_path(cairo);
    return *this;
}

Canvas& Canvas::Line(double x1, double y1, double x2, double y2)
{
    cairo_move_to(m_cairo.get(), x1, y1);
    cairo_line_to(m_cairo.get(), x2, y2);
    return *this;
}

Canvas& Canvas::Lozenge(double x, double y, double halfWidth, double halfHeight)
{
    Line(x, y - halfHeight, x + halfWidth, y);
    ContinueTo(x, y + halfHeight).ContinueTo(x - halfWidth, y);
    cairo_close_path(m_cairo.get());
    return *this;
}

Canvas& Canvas::ContinueTo(double x, double y)
{
    cairo_line_to(m_cairo.get(), x, y);
    return *this;
}

void Canvas::Fill(Ink ink)
{
    SetInk(ink);
    cairo_fill(m_cairo.get());
}

void Canvas::Stroke(Ink ink, double width)
{
    SetInk(ink);
    cairo_set_line_width(m_cairo.get(), width);
    cairo_stroke(m_cairo.get());
}

void Canvas::Clip()
{
    cairo_clip(m_cairo.get());
}

void Canvas::SetInk(Ink ink)
{
    const Colour colour = ColourOf(ink);
    cairo_set_source_rgb(m_cairo.get(), colour.red, colour.green, colour.blue);
}

} // namespace deck
