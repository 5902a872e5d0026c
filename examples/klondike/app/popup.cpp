// SPDX-License-Identifier: MIT
#include "examples/klondike/app/popup.h"

#include <algorithm>
#include <utility>

namespace klondike
{

namespace
{

/// What stands for lines that have no room.
const PanelLine kMore{"…", PanelLine::Kind::Note};

} // namespace

void Popup::Show(std::vector<PopupLine> lines, std::size_t marked)
{
    m_lines = std::move(lines);
    m_first = 0;
    m_marked = marked;
    if (!m_shown) {
        m_shown = true;
        m_dialog.AddCntrlBefore(&m_canvas, nullptr);
        m_dialog.Show();
    }
    FindMark();
    Draw();
}

void Popup::Update(std::vector<PopupLine> lines)
{
    m_lines = std::move(lines);
    FindMark();
    Draw();
}

void Popup::FindMark()
{
    if (!CanChoose(m_marked)) {
        m_marked = 0;
        while (m_marked < m_lines.size() && !CanChoose(m_marked)) {
            ++m_marked;
        }
    }
}

void Popup::Hide()
{
    m_shown = false;
    m_dialog.Hide();
    m_lines.clear();
}

void Popup::Resize(int width, int height, int textPixels)
{
    m_width = width;
    m_height = height;
    m_textPixels = textPixels;
    if (m_shown) {
        Draw();
    }
}

void Popup::Draw()
{
    if (!DrawFrom(m_lines.size())) {
        // As many lines as have room, two kept for the signs of those that have none.
        std::size_t count = m_panel.lines.empty() ? 1 : m_panel.lines.size();
        const int frame = m_panel.picture != nullptr
                              ? m_panel.picture->Height() - m_panel.lines.back().y - m_panel.lines.back().height
                              : 0;
        while (count > 1 && m_panel.lines[count - 1].y + m_panel.lines[count - 1].height + frame > m_height) {
            --count;
        }
        m_count = std::max<std::size_t>(count > 2 ? count - 2 : 1, 1);
        ShowMarked();
        DrawFrom(m_count);
    }
    if (m_panel.picture == nullptr) {
        return;
    }
    m_canvas.Create((m_width - m_panel.picture->Width()) / 2, std::max((m_height - m_panel.picture->Height()) / 2, 0),
                    m_panel.picture->Width(), m_panel.picture->Height());
}

void Popup::ShowMarked()
{
    if (m_marked < m_lines.size()) {
        m_first = std::min(m_first, m_marked);
        m_first = std::max(m_first + m_count, m_marked + 1) - m_count;
    }
    m_first = std::min(m_first, m_lines.size() - m_count);
}

bool Popup::DrawFrom(std::size_t count)
{
    const bool isWhole = count == m_lines.size();
    if (isWhole) {
        m_first = 0;
        m_count = count;
    }
    std::vector<PanelLine> lines;
    if (!isWhole) {
        lines.push_back(m_first > 0 ? kMore : PanelLine{"", PanelLine::Kind::Note});
    }
    for (std::size_t i = m_first; i < m_first + count; ++i) {
        lines.push_back(m_lines[i].panel);
        lines.back().isMarked = i == m_marked && CanChoose(i);
    }
    if (!isWhole) {
        lines.push_back(m_first + count < m_lines.size() ? kMore : PanelLine{"", PanelLine::Kind::Note});
    }
    Panel panel = MakePanel(m_painter, lines, {m_textPixels, 0, std::min(m_width, m_textPixels * 34)});
    m_canvas.SetBitmap(panel.picture.get());
    m_panel = std::move(panel);
    if (!isWhole) {
        m_panel.lines.erase(m_panel.lines.begin());
        m_panel.lines.pop_back();
    }
    return m_panel.picture != nullptr && m_panel.picture->Height() <= m_height;
}

std::optional<std::size_t> Popup::LineAt(cardkit::Pixel pixel) const
{
    const long x = pixel.x - m_canvas.X();
    const long y = pixel.y - m_canvas.Y();
    for (std::size_t i = 0; i < m_panel.lines.size(); ++i) {
        const render::Rectangle<int>& line = m_panel.lines[i];
        if (x >= line.x && x < line.x + line.width && y >= line.y && y < line.y + line.height) {
            return m_first + i;
        }
    }
    return std::nullopt;
}

void Popup::Hover(cardkit::Pixel pixel)
{
    const std::optional<std::size_t> line = LineAt(pixel);
    if (line && CanChoose(*line) && *line != m_marked) {
        m_marked = *line;
        Draw();
    }
}

void Popup::Scroll(int lines)
{
    const auto last = static_cast<long>(m_lines.size() - m_count);
    const long first = std::clamp(static_cast<long>(m_first) + lines, 0L, last);
    if (first == static_cast<long>(m_first)) {
        return;
    }
    m_first = static_cast<std::size_t>(first);
    m_marked = std::clamp(m_marked, m_first, m_first + m_count - 1); // the mark stays in sight
    while (m_marked + 1 < m_first + m_count && !CanChoose(m_marked)) {
        ++m_marked;
    }
    Draw();
}

void Popup::Click(cardkit::Pixel pixel)
{
    const bool isInside = pixel.x >= m_canvas.X() && pixel.x < m_canvas.X() + m_canvas.Width() &&
                          pixel.y >= m_canvas.Y() && pixel.y < m_canvas.Y() + m_canvas.Height();
    if (!isInside) {
        Hide();
        return;
    }
    const std::optional<std::size_t> line = LineAt(pixel);
    if (line && CanChoose(*line)) {
        m_marked = *line;
        ChooseMarked();
    }
}

void Popup::Step(int direction)
{
    const std::size_t count = m_lines.size();
    const std::size_t forward = direction < 0 ? count - 1 : 1;
    for (std::size_t tried = 0, line = m_marked; tried < count; ++tried) {
        line = (line + forward) % count;
        if (CanChoose(line)) {
            m_marked = line;
            Draw();
            return;
        }
    }
    Scroll(direction);
}

void Popup::ChooseMarked()
{
    if (CanChoose(m_marked)) {
        const std::function<void()> choose = m_lines[m_marked].choose; // the call may replace the lines
        choose();
    }
}

} // namespace klondike
