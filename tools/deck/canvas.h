// SPDX-License-Identifier: MIT
#pragma once

#include "palette.h"

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace deck
{

/// A picture being drawn: premultiplied 32-bit pixels, transparent at first. Coordinates are pixels until a
/// transformation is set. Every failure of the drawing library is thrown as std::runtime_error, at the latest by
/// WritePng.
class Canvas
{
public:
    /// Throws std::runtime_error for a size that the drawing library refuses.
    Canvas(int width, int height);

    int Width() const;
    int Height() const;
    /// All pixels, row after row without padding, each a premultiplied ARGB word. What was drawn before is in them;
    /// they may be changed until the next drawing.
    std::span<std::uint32_t> Pixels();
    /// Copies another picture to whole pixels of this one; it replaces, never blends.
    void Paste(Canvas& source, int left, int top);
    /// Writes the picture with straight alpha. Throws std::runtime_error that names the file.
    void WritePng(const std::string& path);

    /// Puts the transformation and the clip back when it goes.
    class Saved
    {
    public:
        explicit Saved(Canvas& canvas) : m_cairo(canvas.m_cairo.get()) { cairo_save(m_cairo); }
        ~Saved() { cairo_restore(m_cairo); }
        Saved(const Saved&) = delete;
        Saved& operator=(const Saved&) = delete;

    private:
        cairo_t* m_cairo;
    };

    void Translate(double x, double y);
    void Scale(double x, double y);
    void Rotate(double radians);

    /// Path data as AppendPath reads them.
    Canvas& Path(std::string_view data);
    Canvas& Circle(double x, double y, double radius);
    Canvas& Rectangle(double x, double y, double width, double height);
    Canvas& RoundedRectangle(double x, double y, double width, double height, double radius);
    Canvas& Lozenge(double x, double y, double halfWidth, double halfHeight);
    Canvas& Line(double x1, double y1, double x2, double y2);
    /// A line onwards from the end of the last one.
    Canvas& ContinueTo(double x, double y);

    /// Each of these uses the path up.
    void Fill(Ink ink);
    void Stroke(Ink ink, double width);
    void Clip();

private:
    void SetInk(Ink ink);

    struct DestroySurface {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    struct DestroyCairo {
        void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
    };
    std::unique_ptr<cairo_surface_t, DestroySurface> m_surface;
    std::unique_ptr<cairo_t, DestroyCairo> m_cairo;
};

} // namespace deck
