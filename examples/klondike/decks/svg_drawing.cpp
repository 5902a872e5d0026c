// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/svg_drawing.h"

#include "examples/klondike/decks/deck_error.h"

#include <cmath>

namespace klondike
{

namespace
{

struct FreeError {
    void operator()(GError* error) const { g_error_free(error); }
};

/// The text of an error that is thereby freed.
std::string TakeText(GError* error)
{
    const std::unique_ptr<GError, FreeError> owned(error);
    return owned == nullptr ? "no reason given" : owned->message;
}

bool HasArea(const RsvgRectangle& box)
{
    return std::isfinite(box.x) && std::isfinite(box.y) && std::isfinite(box.width) && std::isfinite(box.height) &&
           box.width > 0.0 && box.height > 0.0;
}

RsvgHandle* Read(const std::string& file)
{
    struct Unref {
        void operator()(GFile* object) const { g_object_unref(object); }
    };
    const std::unique_ptr<GFile, Unref> path(g_file_new_for_path(file.c_str()));
    GError* error = nullptr;
    // Court cards have longer paths than the library takes without the flag.
    RsvgHandle* const handle = rsvg_handle_new_from_gfile_sync(path.get(), RSVG_HANDLE_FLAG_UNLIMITED, nullptr, &error);
    if (handle == nullptr) {
        throw DeckError("cannot read '" + file + "': " + TakeText(error));
    }
    return handle;
}

} // namespace

SvgDrawing::SvgDrawing(const std::string& file) : m_file(file), m_handle(Read(file))
{
    const bool hasSize = rsvg_handle_get_intrinsic_size_in_pixels(m_handle.get(), &m_page.width, &m_page.height) != 0;
    if (!hasSize) {
        // Without a size of its own a drawing has the shape of its view box, in units that say nothing.
        gboolean hasBox = 0;
        RsvgRectangle box{};
        rsvg_handle_get_intrinsic_dimensions(m_handle.get(), nullptr, nullptr, nullptr, nullptr, &hasBox, &box);
        m_page.width = box.width;
        m_page.height = box.height;
    }
    if (!HasArea(m_page)) {
        throw DeckError("the drawing '" + file + "' has no size");
    }
}

void SvgDrawing::RequireDrawn(bool isDrawn, GError* error) const
{
    if (!isDrawn) {
        throw DeckError("cannot draw '" + m_file + "': " + TakeText(error));
    }
}

void SvgDrawing::Draw(cairo_t* cairo) const
{
    GError* error = nullptr;
    const bool isDrawn = rsvg_handle_render_document(m_handle.get(), cairo, &m_page, &error) != 0;
    RequireDrawn(isDrawn, error);
}

bool SvgDrawing::GetBoxes(const std::string& name, Frame frame, RsvgRectangle& ink, RsvgRectangle& outlines) const
{
    GError* error = nullptr;
    const gboolean isThere =
        frame == Frame::Page
            ? rsvg_handle_get_geometry_for_layer(m_handle.get(), name.c_str(), &m_page, &ink, &outlines, &error)
            : rsvg_handle_get_geometry_for_element(m_handle.get(), name.c_str(), &ink, &outlines, &error);
    const std::unique_ptr<GError, FreeError> ignored(error);
    return isThere != 0;
}

std::optional<DrawingBox> SvgDrawing::BoxOf(const std::string& element, Frame frame) const
{
    RsvgRectangle ink{};
    RsvgRectangle box{};
    const bool isThere = GetBoxes("#" + element, frame, ink, box) && HasArea(box);
    // In its own frame an element is drawn by its ink, of which the library knows nothing for bitmaps.
    const bool isDrawable = frame == Frame::Page || HasArea(ink);
    return isThere && isDrawable ? std::optional(DrawingBox{box.x, box.y, box.width, box.height}) : std::nullopt;
}

void SvgDrawing::DrawElement(cairo_t* cairo, const std::string& element, Frame frame) const
{
    const std::string name = "#" + element;
    GError* error = nullptr;
    gboolean isDrawn = 0;
    if (frame == Frame::Page) {
        isDrawn = rsvg_handle_render_layer(m_handle.get(), cairo, name.c_str(), &m_page, &error);
    } else {
        // An element is fitted into the rectangle that it is given: into that of its own ink it goes as it is.
        RsvgRectangle ink{};
        RsvgRectangle box{};
        GetBoxes(name, frame, ink, box);
        isDrawn = rsvg_handle_render_element(m_handle.get(), cairo, name.c_str(), &ink, &error);
    }
    RequireDrawn(isDrawn != 0, error);
}

} // namespace klondike
