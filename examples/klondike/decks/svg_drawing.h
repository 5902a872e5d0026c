// SPDX-License-Identifier: MIT
#pragma once

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <memory>
#include <optional>
#include <string>

namespace klondike
{

/// A rectangle in a drawing's own units.
struct DrawingBox {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
};

/// An SVG file that has been read. For one thread.
class SvgDrawing
{
public:
    /// Throws DeckError for a file that cannot be read or has no size.
    explicit SvgDrawing(const std::string& file);

    ///@{
    /// The size of the whole drawing, in its pixels.
    double Width() const { return m_page.width; }
    double Height() const { return m_page.height; }
    ///@}
    /// Draws all of it from the origin to (Width(), Height()). Throws DeckError.
    void Draw(cairo_t* cairo) const;

    /// How one element is drawn alone.
    enum class Frame {
        Page, ///< in its place on the page: right, but each of its filters works through the whole page
        Own,  ///< in its own units: ten times as fast, but without what filters make
    };
    /// The box of an element's outlines, without the width of its lines. Empty when there is no such element, and when
    /// the library cannot tell: of bitmaps in their own frame, of all when the page has a faulty transformation.
    std::optional<DrawingBox> BoxOf(const std::string& element, Frame frame) const;
    /// Draws one element, which has a box in that frame, where the box is. Throws DeckError.
    void DrawElement(cairo_t* cairo, const std::string& element, Frame frame) const;

private:
    struct Unref {
        void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    };

    bool GetBoxes(const std::string& name, Frame frame, RsvgRectangle& ink, RsvgRectangle& outlines) const;
    void RequireDrawn(bool isDrawn, GError* error) const;

    std::string m_file;
    std::unique_ptr<RsvgHandle, Unref> m_handle;
    RsvgRectangle m_page{};
};

} // namespace klondike
