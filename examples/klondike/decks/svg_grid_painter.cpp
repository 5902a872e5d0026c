// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/cairo_handles.h"
#include "examples/klondike/decks/deck_painter.h"
#include "examples/klondike/decks/svg_drawing.h"

namespace klondike
{

namespace
{

constexpr int kColumns = 13;
constexpr int kRows = 5;
constexpr int kBackColumn = 2; // after the jokers
constexpr int kBackRow = 4;

class SvgGridPainter : public DeckPainter
{
public:
    explicit SvgGridPainter(const Deck& deck) : m_drawing(deck.faces) {}

    double Aspect() override { return m_drawing.Width() / kColumns / (m_drawing.Height() / kRows); }

    void DrawSuit(cairo_t* cairo, int suit, CardSize size, const std::stop_token& stop) override
    {
        ThrowIfStopped(stop);
        DrawFrom(cairo, 0, suit, size);
    }

    void DrawBack(cairo_t* cairo, CardSize size) override { DrawFrom(cairo, kBackColumn, kBackRow, size); }

private:
    /// Draws the whole sheet with a cell at the origin; the clip leaves what is wanted. Some decks draw a little over
    /// their cells, so cards drawn one by one would not fit together.
    void DrawFrom(cairo_t* cairo, int column, int row, CardSize size)
    {
        const CairoState state(cairo);
        cairo_translate(cairo, -column * size.width, -row * size.height);
        cairo_scale(cairo, kColumns * size.width / m_drawing.Width(), kRows * size.height / m_drawing.Height());
        m_drawing.Draw(cairo);
    }

    SvgDrawing m_drawing;
};

} // namespace

std::unique_ptr<DeckPainter> OpenSvgGrid(const Deck& deck)
{
    return std::make_unique<SvgGridPainter>(deck);
}

} // namespace klondike
