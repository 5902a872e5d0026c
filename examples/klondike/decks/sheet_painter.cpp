// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/cairo_handles.h"
#include "examples/klondike/decks/deck_cache.h"
#include "examples/klondike/decks/deck_painter.h"
#include "examples/klondike/decks/sheet_grid.h"

namespace klondike
{

namespace
{

CairoSurface LoadPng(const std::string& file)
{
    CairoSurface picture(cairo_image_surface_create_from_png(file.c_str()));
    const cairo_status_t status = cairo_surface_status(picture.get());
    if (status != CAIRO_STATUS_SUCCESS) {
        throw DeckError("cannot read '" + file + "': " + cairo_status_to_string(status));
    }
    return picture;
}

/// A part of a picture's pixels as a picture of its own, so that its edge is repeated outwards and not its neighbour
/// drawn in. It must not outlive the picture.
CairoSurface CellOf(cairo_surface_t* picture, int left, int top, int width, int height)
{
    constexpr int kBytesPerPixel = 4;
    const int stride = cairo_image_surface_get_stride(picture);
    unsigned char* pixels = cairo_image_surface_get_data(picture) + static_cast<std::ptrdiff_t>(top) * stride +
                            std::ptrdiff_t{kBytesPerPixel} * left;
    return CairoSurface(
        cairo_image_surface_create_for_data(pixels, cairo_image_surface_get_format(picture), width, height, stride));
}

/// Fills a card at the origin with a picture; area-true where it shrinks.
void DrawScaled(cairo_t* cairo, cairo_surface_t* picture, CardSize size)
{
    const CairoState state(cairo);
    cairo_rectangle(cairo, 0.0, 0.0, size.width, size.height);
    cairo_scale(cairo, static_cast<double>(size.width) / cairo_image_surface_get_width(picture),
                static_cast<double>(size.height) / cairo_image_surface_get_height(picture));
    cairo_set_source_surface(cairo, picture, 0.0, 0.0);
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_fill(cairo);
}

class SheetPainter : public DeckPainter
{
public:
    explicit SheetPainter(const Deck& deck)
        : m_columns(deck.columns), m_cell(CellSize(deck)), m_sheet(LoadPng(deck.faces))
    {
        if (!deck.back.empty()) {
            m_back = LoadPng(deck.back);
        }
    }

    double Aspect() override { return static_cast<double>(m_cell.width) / m_cell.height; }

    void DrawSuit(cairo_t* cairo, int suit, CardSize size, const std::stop_token& stop) override
    {
        for (int rank = 0; rank < DeckFiles::kColumns; ++rank) {
            ThrowIfStopped(stop);
            const CairoState state(cairo);
            cairo_translate(cairo, rank * size.width, 0.0);
            DrawCell(cairo, suit * DeckFiles::kColumns + rank, size);
        }
    }

    void DrawBack(cairo_t* cairo, CardSize size) override
    {
        if (m_back == nullptr) {
            DrawCell(cairo, kBackCell, size);
        } else {
            DrawScaled(cairo, m_back.get(), size);
        }
    }

private:
    void DrawCell(cairo_t* cairo, int number, CardSize size)
    {
        const CairoSurface cell = CellOf(m_sheet.get(), number % m_columns * m_cell.width,
                                         number / m_columns * m_cell.height, m_cell.width, m_cell.height);
        DrawScaled(cairo, cell.get(), size);
    }

    int m_columns;
    CardSize m_cell;
    CairoSurface m_sheet;
    CairoSurface m_back; ///< null: a cell of the sheet
};

} // namespace

std::unique_ptr<DeckPainter> OpenSheet(const Deck& deck)
{
    return std::make_unique<SheetPainter>(deck);
}

} // namespace klondike
