// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/panel.h"

#include "examples/klondike/labels/shapes.h"

#include <algorithm>
#include <cmath>

namespace klondike
{

namespace
{

constexpr Rgba kTop{22, 46, 36, 236};
constexpr Rgba kBottom{11, 27, 21, 242};
constexpr Rgba kEdge{255, 255, 255, 44};
constexpr Rgba kInk{246, 240, 220, 255};
constexpr Rgba kPaleInk{196, 200, 180, 255};
constexpr Rgba kTitleInk{255, 218, 128, 255};
constexpr Rgba kMarked{255, 214, 120, 58};
constexpr Rgba kRule{255, 255, 255, 46};

/// A line with its text cut to the width: the pieces stand under each other.
struct Block {
    const PanelLine* line = nullptr;
    std::vector<std::string> pieces;
    TextStyle style;
    int pieceHeight = 0;
    int height = 0;
};

class PanelMaker
{
public:
    PanelMaker(const TextPainter& painter, const std::vector<PanelLine>& lines, const PanelStyle& style)
        : m_painter(painter), m_lines(lines), m_em(std::clamp(style.textPixels, 1, 256)), m_shadow(m_em / 2),
          m_padding(m_em), m_tick(HasItems() ? m_em + m_em / 4 : 0)
    {
        const int longest = std::clamp(style.maxWidth, 0, Bitmap::kMaxSide);
        const int wanted = std::max(style.minWidth, NaturalWidth() + 2 * (m_shadow + m_padding));
        m_width = std::max(std::min(wanted, longest), 2 * (m_shadow + m_padding) + m_em);
        for (const PanelLine& line : lines) {
            m_blocks.push_back(BlockOf(line));
        }
    }

    Panel Make() const
    {
        Panel panel;
        int bottom = m_shadow + m_padding;
        for (const Block& block : m_blocks) {
            panel.lines.push_back({m_shadow, bottom, m_width - 2 * m_shadow, block.height});
            bottom = std::min(bottom + block.height, Bitmap::kMaxSide);
        }
        const int height = bottom + m_padding + m_shadow;
        panel.picture.reset(height <= Bitmap::kMaxSide ? BitmapManager::Instance().Create(m_width, height) : nullptr);
        if (panel.picture != nullptr) {
            DrawGround(*panel.picture, panel.lines);
            for (std::size_t i = 0; i < m_blocks.size(); ++i) {
                DrawText(*panel.picture, m_blocks[i], panel.lines[i]);
            }
        }
        return panel;
    }

private:
    bool HasItems() const
    {
        return std::any_of(m_lines.begin(), m_lines.end(),
                           [](const PanelLine& line) { return line.kind == PanelLine::Kind::Item; });
    }

    TextStyle StyleOf(PanelLine::Kind kind) const
    {
        switch (kind) {
        case PanelLine::Kind::Title:
            return {m_em * 4 / 3, FontWeight::Bold};
        case PanelLine::Kind::Note:
            return {std::max(1, m_em * 7 / 8), FontWeight::Regular};
        default:
            return {m_em, FontWeight::Regular};
        }
    }

    /// What stands at the right edge, with its distance from the text.
    int EndWidth(const PanelLine& line) const
    {
        const int width = m_painter.Measure(line.end, StyleOf(line.kind)).width;
        return width == 0 ? 0 : width + 2 * m_em;
    }

    int Indent(const PanelLine& line) const { return line.kind == PanelLine::Kind::Title ? 0 : m_tick; }

    /// The width of the text if nothing wraps but at line ends.
    int NaturalWidth() const
    {
        int width = 0;
        for (const PanelLine& line : m_lines) {
            for (const std::string& piece : m_painter.Wrap(line.text, StyleOf(line.kind), Bitmap::kMaxSide)) {
                width =
                    std::max(width, Indent(line) + EndWidth(line) + m_painter.Measure(piece, StyleOf(line.kind)).width);
            }
        }
        return std::min(width, Bitmap::kMaxSide);
    }

    Block BlockOf(const PanelLine& line) const
    {
        Block block{&line, {}, StyleOf(line.kind), 0, m_em};
        if (line.kind == PanelLine::Kind::Separator) {
            return block;
        }
        const int room = m_width - 2 * (m_shadow + m_padding) - Indent(line) - EndWidth(line);
        block.pieces = line.kind == PanelLine::Kind::Item ? std::vector<std::string>{line.text}
                                                          : m_painter.Wrap(line.text, block.style, room);
        for (std::string& piece : block.pieces) {
            piece = m_painter.Fitting(piece, block.style, room);
        }
        block.pieceHeight = std::max(m_painter.Measure("", block.style).height, m_em);
        const int space = line.kind == PanelLine::Kind::Item ? m_em / 2 : m_em / 4;
        block.height =
            static_cast<int>(std::min<std::size_t>(block.pieces.size(), Bitmap::kMaxSide)) * block.pieceHeight + space;
        return block;
    }

    void DrawGround(Bitmap& bitmap, const std::vector<render::Rectangle<int>>& places) const
    {
        const CairoContext cairo = DrawingOn(bitmap);
        const RoundedBox whole{0.0, 0.0, static_cast<double>(bitmap.Width()), static_cast<double>(bitmap.Height()),
                               m_em * 1.25};
        // Boxes of little alpha inside each other add up to a soft shadow.
        for (int inset = 0; inset < m_shadow; ++inset) {
            Fill(cairo.get(), whole.Inset(inset),
                 {0, 0, 0, static_cast<std::uint8_t>(4 + 48 * inset / (m_shadow * m_shadow))});
        }
        const RoundedBox plate = whole.Inset(m_shadow);
        cairo_set_operator(cairo.get(), CAIRO_OPERATOR_SOURCE);
        FillDown(cairo.get(), plate, kTop, kBottom);
        cairo_set_operator(cairo.get(), CAIRO_OPERATOR_OVER);
        StrokeInside(cairo.get(), plate, std::max(1.0, m_em / 16.0), kEdge);
        for (std::size_t i = 0; i < places.size(); ++i) {
            DrawLineGround(cairo.get(), *m_blocks[i].line, places[i]);
        }
    }

    void DrawLineGround(cairo_t* cairo, const PanelLine& line, const render::Rectangle<int>& place) const
    {
        const double margin = m_padding / 2.0;
        const RoundedBox row{place.x + margin, static_cast<double>(place.y), place.width - 2.0 * margin,
                             static_cast<double>(place.height), m_em / 3.0};
        if (line.isMarked) {
            Fill(cairo, row, kMarked);
        }
        if (line.kind == PanelLine::Kind::Separator) {
            const double thickness = std::max(1.0, std::round(m_em / 16.0));
            Fill(cairo,
                 {row.x + margin, std::floor(row.y + row.height / 2.0), row.width - 2.0 * margin, thickness, 0.0},
                 kRule);
        }
        if (line.isChecked) {
            DrawTick(cairo, place.x + m_padding, place.y + place.height / 2.0);
        }
    }

    void DrawTick(cairo_t* cairo, double left, double middle) const
    {
        SetColour(cairo, kTitleInk);
        cairo_set_line_width(cairo, std::max(1.5, m_em / 7.0));
        cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
        cairo_move_to(cairo, left + 0.10 * m_em, middle + 0.02 * m_em);
        cairo_line_to(cairo, left + 0.32 * m_em, middle + 0.26 * m_em);
        cairo_line_to(cairo, left + 0.76 * m_em, middle - 0.28 * m_em);
        cairo_stroke(cairo);
    }

    void DrawText(Bitmap& bitmap, const Block& block, const render::Rectangle<int>& place) const
    {
        const PanelLine& line = *block.line;
        const int left = place.x + m_padding + Indent(line);
        const int right = place.x + place.width - m_padding;
        const bool isTitle = line.kind == PanelLine::Kind::Title;
        const Rgba ink = isTitle ? kTitleInk : line.kind == PanelLine::Kind::Note ? kPaleInk : kInk;
        int y = place.y + (place.height - static_cast<int>(block.pieces.size()) * block.pieceHeight) / 2;
        if (!block.pieces.empty()) {
            const int width = m_painter.Measure(line.end, block.style).width;
            m_painter.Draw(bitmap, right - width, y, line.end, block.style, kPaleInk);
        }
        for (const std::string& piece : block.pieces) {
            const int width = m_painter.Measure(piece, block.style).width;
            m_painter.Draw(bitmap, isTitle ? left + (right - left - width) / 2 : left, y, piece, block.style, ink);
            y += block.pieceHeight;
        }
    }

    const TextPainter& m_painter;
    const std::vector<PanelLine>& m_lines;
    int m_em;      ///< the text's size, from which all else follows
    int m_shadow;  ///< around the plate
    int m_padding; ///< within it
    int m_tick;    ///< the column of the ticks; 0 without items
    int m_width = 0;
    std::vector<Block> m_blocks;
};

} // namespace

Panel MakePanel(const TextPainter& painter, const std::vector<PanelLine>& lines, const PanelStyle& style)
{
    return PanelMaker(painter, lines, style).Make();
}

} // namespace klondike
