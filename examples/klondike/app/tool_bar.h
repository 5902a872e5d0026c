// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/action.h"
#include "examples/klondike/labels/button_face.h"
#include "examples/klondike/labels/text_painter.h"
#include "host/canvas.h"
#include "host/owned_bitmap.h"
#include "host/rectangle.h"
#include "host/window.h"
#include "kit/placement.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace klondike
{

/// The buttons along the bottom of the window, and a line of text beside them. A dialog of its own. Pictures are drawn
/// when they change, and nothing is done otherwise.
class ToolBar
{
public:
    /// Shows the dialog, above those that are shown. The painter outlives it.
    explicit ToolBar(const TextPainter& painter);

    /// Places all in an area of the screen, pixels: text at the buttons' right, or left when mirrored. Buttons lose
    /// their words where there is no room for them.
    void Resize(const render::Rectangle<int>& area, int textPixels, bool mirrored);
    void SetStatus(const std::string& text);
    void SetEnabled(Action action, bool enabled);

    ///@{
    /// The pointer: where it hovers (nothing: elsewhere), a press, and its end, which gives what the button does when
    /// it is still over it. Press returns false when there is no button.
    void Hover(const std::optional<cardkit::Pixel>& pixel);
    bool Press(cardkit::Pixel pixel);
    std::optional<Action> Release(cardkit::Pixel pixel);
    void CancelPress();
    ///@}

    ///@{
    /// The keyboard's place in the bar: on one of the enabled buttons, or not here.
    bool HasFocus() const { return m_focus.has_value(); }
    void Focus();
    void Unfocus();
    void MoveFocus(int step);
    std::optional<Action> Focused() const;
    ///@}

private:
    struct Button {
        Action action;
        ButtonFace face;
        bool enabled = true;
        render::Rectangle<int> place{0, 0, 0, 0};
        Canvas canvas;
        OwnedBitmap picture;
        std::optional<ButtonFace> drawn;
    };

    std::optional<std::size_t> ButtonAt(cardkit::Pixel pixel) const;
    int WidthOf(bool withText, int height) const;
    void PlaceButtons(const render::Rectangle<int>& area, bool mirrored);
    void Draw();
    void DrawButton(std::size_t index);
    void DrawStatus();

    const TextPainter& m_painter;
    CDialog m_dialog;
    std::vector<std::unique_ptr<Button>> m_buttons;
    bool m_withText = true;
    Canvas m_statusCanvas;
    OwnedBitmap m_statusPicture;
    render::Rectangle<int> m_statusPlace{0, 0, 0, 0};
    std::string m_status;
    int m_textPixels = 16;
    bool m_mirrored = false;
    std::optional<std::size_t> m_hover;
    std::optional<std::size_t> m_pressed;
    std::optional<std::size_t> m_focus;
};

} // namespace klondike
