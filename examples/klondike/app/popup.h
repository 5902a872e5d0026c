// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/labels/panel.h"
#include "host/canvas.h"
#include "host/window.h"
#include "kit/placement.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace klondike
{

/// A line of a popup. One of kind Item with a call can be chosen.
struct PopupLine {
    PanelLine panel;
    std::function<void()> choose{};
};

/// A panel in the middle of the screen, above all else: a menu, help, a message. It scrolls where it is too tall. While
/// it is shown it takes all input.
class Popup
{
public:
    /// The painter outlives it.
    explicit Popup(const TextPainter& painter) : m_painter(painter) {}

    /// Shows these lines in the place of others; the mark goes to that line if it can be chosen, else to the first that
    /// can.
    void Show(std::vector<PopupLine> lines, std::size_t marked = 0);
    /// The same lines with other texts; the mark stays.
    void Update(std::vector<PopupLine> lines);
    void Hide();
    bool IsShown() const { return m_shown; }

    /// The screen's size, pixels.
    void Resize(int width, int height, int textPixels);

    ///@{
    /// The pointer marks an item, or the wheel scrolls by lines.
    void Hover(cardkit::Pixel pixel);
    void Scroll(int lines);
    ///@}
    /// A click: chooses an item; outside of the panel it closes. The item's call comes last, and may show other lines.
    void Click(cardkit::Pixel pixel);
    /// Marks the next item that can be chosen, or scrolls when there is none.
    void Step(int direction);
    void ChooseMarked();

private:
    std::optional<std::size_t> LineAt(cardkit::Pixel pixel) const;
    bool CanChoose(std::size_t line) const { return line < m_lines.size() && m_lines[line].choose != nullptr; }
    void FindMark();
    void Draw();
    bool DrawFrom(std::size_t count);
    void ShowMarked();

    const TextPainter& m_painter;
    CDialog m_dialog;
    Canvas m_canvas;
    Panel m_panel;
    std::vector<PopupLine> m_lines;
    std::size_t m_marked = 0;
    std::size_t m_first = 0; ///< the topmost line that is shown
    std::size_t m_count = 0; ///< lines shown
    bool m_shown = false;
    int m_width = 0;
    int m_height = 0;
    int m_textPixels = 16;
};

} // namespace klondike
