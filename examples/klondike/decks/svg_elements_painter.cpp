// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/cairo_handles.h"
#include "examples/klondike/decks/deck_painter.h"
#include "examples/klondike/decks/drawing_file.h"
#include "examples/klondike/decks/svg_drawing.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace klondike
{

namespace
{

using Frame = SvgDrawing::Frame;

constexpr int kRanks = 13;
constexpr int kOpaque = 255;

/// A span on an axis, in pixels of a probe.
struct Extent {
    double from = 0.0;
    double to = 0.0;
};

/// From the alphas along an axis, each the largest of its line: where the ink begins and ends. An edge within a pixel
/// shows as a partly covered one, just inside or just outside; soft shadows, below one half, count as little.
Extent InkAlong(std::span<const int> alphas)
{
    const auto isInk = [](int alpha) { return 2 * alpha > kOpaque; };
    const auto first = std::find_if(alphas.begin(), alphas.end(), isInk);
    if (first == alphas.end()) {
        return {};
    }
    const auto end = std::find_if(alphas.rbegin(), alphas.rend(), isInk).base();
    const int before = first == alphas.begin() ? 0 : *(first - 1);
    const int after = end == alphas.end() ? 0 : *end;
    const double firstGap = static_cast<double>(kOpaque - *first - before) / kOpaque;
    const double lastGap = static_cast<double>(kOpaque - *(end - 1) - after) / kOpaque;
    return {static_cast<double>(first - alphas.begin()) + firstGap,
            static_cast<double>(end - alphas.begin()) - lastGap};
}

/// Where there is ink in a picture, in its pixels.
DrawingBox InkOf(cairo_surface_t* picture)
{
    cairo_surface_flush(picture);
    const int width = cairo_image_surface_get_width(picture);
    const int height = cairo_image_surface_get_height(picture);
    std::vector<int> columns(static_cast<std::size_t>(width));
    std::vector<int> rows(static_cast<std::size_t>(height));
    const unsigned char* line = cairo_image_surface_get_data(picture);
    for (int& row : rows) {
        for (std::size_t x = 0; x < columns.size(); ++x) {
            columns[x] = std::max<int>(columns[x], line[x]);
            row = std::max<int>(row, line[x]);
        }
        line += cairo_image_surface_get_stride(picture);
    }
    const Extent across = InkAlong(columns);
    const Extent down = InkAlong(rows);
    return {across.from, down.from, across.to - across.from, down.to - down.from};
}

class SvgElementsPainter : public DeckPainter
{
public:
    explicit SvgElementsPainter(const Deck& deck) : m_file(deck.faces), m_drawing(deck.faces) {}

    double Aspect() override
    {
        const std::string ace = ElementName(0, 0);
        const DrawingBox card = CardBox(ace, m_drawing.BoxOf(ace, Frame::Page) ? Frame::Page : Frame::Own);
        return card.width / card.height;
    }

    void DrawSuit(cairo_t* cairo, int suit, CardSize size, const std::stop_token& stop) override
    {
        for (int rank = 0; rank < kRanks; ++rank) {
            ThrowIfStopped(stop);
            const CairoState state(cairo);
            cairo_translate(cairo, rank * size.width, 0.0);
            DrawCard(cairo, ElementName(suit, rank), size);
        }
    }

    void DrawBack(cairo_t* cairo, CardSize size) override { DrawCard(cairo, kBackElement, size); }

private:
    /// By way of a picture of its own: the library's filters work through the whole of the surface they draw to.
    void DrawCard(cairo_t* cairo, const std::string& element, CardSize size)
    {
        const Frame frame = m_drawing.BoxOf(element, Frame::Page) ? Frame::Page : Frame::Own;
        const DrawingBox card = CardBox(element, frame);
        const CairoSurface picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size.width, size.height));
        const CairoContext onPicture(cairo_create(picture.get()));
        cairo_scale(onPicture.get(), size.width / card.width, size.height / card.height);
        cairo_translate(onPicture.get(), -card.x, -card.y);
        m_drawing.DrawElement(onPicture.get(), element, frame);
        const CairoState state(cairo);
        cairo_set_source_surface(cairo, picture.get(), 0.0, 0.0);
        cairo_paint(cairo);
    }

    /// The card's own edge in a frame. The box of its outlines leaves out half of the border's width and may hold parts
    /// that a clip hides, so the card is drawn once and its ink looked at; in its own frame if possible, as a filter
    /// moves no edge.
    DrawingBox CardBox(const std::string& element, Frame frame)
    {
        const std::optional<DrawingBox> box = m_drawing.BoxOf(element, frame);
        if (!box) {
            throw DeckError("'" + m_file + "' has nothing to draw for the card '" + element + "'");
        }
        DrawingBox edge = EdgeIn(element, Frame::Own);
        if (edge.width == 0.0) {
            edge = EdgeIn(element, Frame::Page);
        }
        if (edge.width == 0.0) {
            throw DeckError("'" + m_file + "' draws nothing for the card '" + element + "'");
        }
        return {box->x + edge.x * box->width, box->y + edge.y * box->height, edge.width * box->width,
                edge.height * box->height};
    }

    /// Where a card's ink is, in fractions of its box. All 0 when there is none.
    DrawingBox EdgeIn(const std::string& element, Frame frame)
    {
        constexpr double kProbe = 320.0; // pixels of the longer side
        constexpr double kMargin = 0.1;  // of the box, on each side
        const std::optional<DrawingBox> box = m_drawing.BoxOf(element, frame);
        if (!box) {
            return {};
        }
        const double scale = kProbe / std::max(box->width, box->height);
        const double width = scale * box->width;
        const double height = scale * box->height;
        const auto pixels = [](double side) { return static_cast<int>(std::ceil(side * (1.0 + 2.0 * kMargin))); };
        const CairoSurface probe(cairo_image_surface_create(CAIRO_FORMAT_A8, pixels(width), pixels(height)));
        const CairoContext cairo(cairo_create(probe.get()));
        cairo_translate(cairo.get(), kMargin * width, kMargin * height);
        cairo_scale(cairo.get(), scale, scale);
        cairo_translate(cairo.get(), -box->x, -box->y);
        m_drawing.DrawElement(cairo.get(), element, frame);
        const DrawingBox ink = InkOf(probe.get());
        if (ink.width < 1.0 || ink.height < 1.0) {
            return {};
        }
        return {ink.x / width - kMargin, ink.y / height - kMargin, ink.width / width, ink.height / height};
    }

    std::string m_file;
    SvgDrawing m_drawing;
};

} // namespace

std::unique_ptr<DeckPainter> OpenSvgElements(const Deck& deck)
{
    return std::make_unique<SvgElementsPainter>(deck);
}

} // namespace klondike
