// SPDX-License-Identifier: MIT
#include "examples/klondike/app/tool_bar.h"

#include <algorithm>
#include <utility>

namespace klondike
{

namespace
{

constexpr Rgba kInk{246, 240, 220, 255};

struct ButtonKind {
    Action action;
    ButtonSymbol symbol;
    const char* text;
};

constexpr ButtonKind kButtons[] = {
    {Action::NewGame, ButtonSymbol::NewGame, "New"},  {Action::Undo, ButtonSymbol::Undo, "Undo"},
    {Action::Redo, ButtonSymbol::Redo, "Redo"},       {Action::Hint, ButtonSymbol::Hint, "Hint"},
    {Action::Finish, ButtonSymbol::Finish, "Finish"}, {Action::Decks, ButtonSymbol::Deck, "Deck"},
    {Action::Menu, ButtonSymbol::Menu, "Menu"},
};

bool Contains(const render::Rectangle<int>& area, cardkit::Pixel pixel)
{
    return pixel.x >= area.x && pixel.x < area.x + area.width && pixel.y >= area.y && pixel.y < area.y + area.height;
}

bool LooksAlike(const ButtonFace& a, const ButtonFace& b)
{
    return a.symbol == b.symbol && a.text == b.text && a.state == b.state && a.isFocused == b.isFocused;
}

int GapOf(int height)
{
    return std::max(height / 6, 3);
}

} // namespace

ToolBar::ToolBar(const TextPainter& painter) : m_painter(painter)
{
    m_statusCanvas.Create(0, 0, 0, 0);
    m_dialog.AddCntrlBefore(&m_statusCanvas, nullptr);
    for (const ButtonKind& kind : kButtons) {
        m_buttons.push_back(std::make_unique<Button>());
        Button& button = *m_buttons.back();
        button.action = kind.action;
        button.face = {kind.symbol, kind.text};
        button.canvas.Create(0, 0, 0, 0);
        m_dialog.AddCntrlBefore(&button.canvas, nullptr);
    }
    m_dialog.Show();
}

int ToolBar::WidthOf(bool withText, int height) const
{
    int width = GapOf(height);
    for (const auto& button : m_buttons) {
        ButtonFace face = button->face;
        if (!withText) {
            face.text.clear();
        }
        width += ButtonWidth(m_painter, face, height) + GapOf(height);
    }
    return width;
}

void ToolBar::PlaceButtons(const render::Rectangle<int>& area, bool mirrored)
{
    constexpr double kStatusShare = 0.3; // of the bar, which the words of the buttons leave to the text
    const int gap = GapOf(area.height);
    const int height = std::max(area.height - gap, 1);
    m_withText = WidthOf(true, height) <= area.width * (1.0 - kStatusShare);
    int left = gap;
    for (const auto& button : m_buttons) {
        ButtonFace face = button->face;
        if (!m_withText) {
            face.text.clear();
        }
        const int width = ButtonWidth(m_painter, face, height);
        button->place = {area.x + (mirrored ? area.width - left - width : left), area.y, width, height};
        left += width + gap;
    }
    const int statusWidth = std::max(area.width - left - 2 * gap, 0);
    m_statusPlace = {area.x + (mirrored ? 2 * gap : left), area.y, statusWidth, height};
}

void ToolBar::Resize(const render::Rectangle<int>& area, int textPixels, bool mirrored)
{
    PlaceButtons(area, mirrored);
    m_textPixels = textPixels;
    m_mirrored = mirrored;
    for (const auto& button : m_buttons) {
        button->drawn.reset();
    }
    m_hover.reset();
    m_pressed.reset();
    Draw();
    DrawStatus();
}

void ToolBar::SetStatus(const std::string& text)
{
    if (text != m_status) {
        m_status = text;
        DrawStatus();
    }
}

void ToolBar::SetEnabled(Action action, bool enabled)
{
    for (const auto& button : m_buttons) {
        if (button->action == action) {
            button->enabled = enabled;
        }
    }
    if (m_focus && !m_buttons[*m_focus]->enabled) {
        MoveFocus(1);
    }
    Draw();
}

std::optional<std::size_t> ToolBar::ButtonAt(cardkit::Pixel pixel) const
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        if (Contains(m_buttons[i]->place, pixel)) {
            return i;
        }
    }
    return std::nullopt;
}

void ToolBar::Hover(const std::optional<cardkit::Pixel>& pixel)
{
    const std::optional<std::size_t> over = pixel ? ButtonAt(*pixel) : std::nullopt;
    if (over != m_hover) {
        m_hover = over;
        Draw();
    }
}

bool ToolBar::Press(cardkit::Pixel pixel)
{
    m_pressed = ButtonAt(pixel);
    m_hover = m_pressed;
    Draw();
    return m_pressed.has_value();
}

std::optional<Action> ToolBar::Release(cardkit::Pixel pixel)
{
    const std::optional<std::size_t> pressed = std::exchange(m_pressed, std::nullopt);
    Draw();
    if (!pressed || ButtonAt(pixel) != pressed || !m_buttons[*pressed]->enabled) {
        return std::nullopt;
    }
    return m_buttons[*pressed]->action;
}

void ToolBar::CancelPress()
{
    m_pressed.reset();
    m_hover.reset();
    Draw();
}

void ToolBar::Focus()
{
    m_focus = m_buttons.size() - 1;
    MoveFocus(1);
}

void ToolBar::Unfocus()
{
    m_focus.reset();
    Draw();
}

void ToolBar::MoveFocus(int step)
{
    if (!m_focus) {
        return;
    }
    const std::size_t count = m_buttons.size();
    const std::size_t forward = step < 0 ? count - 1 : 1;
    for (std::size_t tried = 0; tried < count; ++tried) {
        m_focus = (*m_focus + forward) % count;
        if (m_buttons[*m_focus]->enabled) {
            break;
        }
    }
    Draw();
}

std::optional<Action> ToolBar::Focused() const
{
    if (!m_focus || !m_buttons[*m_focus]->enabled) {
        return std::nullopt;
    }
    return m_buttons[*m_focus]->action;
}

void ToolBar::Draw()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        DrawButton(i);
    }
}

void ToolBar::DrawButton(std::size_t index)
{
    Button& button = *m_buttons[index];
    ButtonFace face = button.face;
    if (!m_withText) {
        face.text.clear();
    }
    face.isFocused = m_focus == index;
    if (!button.enabled) {
        face.state = ButtonState::Disabled;
    } else if (m_pressed == index && m_hover == index) {
        face.state = ButtonState::Pressed;
    } else if (m_hover == index) {
        face.state = ButtonState::Hover;
    }
    if (button.drawn && LooksAlike(*button.drawn, face)) {
        return;
    }
    OwnedBitmap picture = MakeButtonFace(m_painter, face, button.place.width, button.place.height);
    button.canvas.SetPos(button.place.x, button.place.y);
    button.canvas.SetSize(button.place.width, button.place.height);
    button.canvas.SetBitmap(picture.get());
    button.picture = std::move(picture);
    button.drawn = face;
}

void ToolBar::DrawStatus()
{
    const render::Rectangle<int>& place = m_statusPlace;
    if (place.width < 1 || place.height < 1) {
        m_statusCanvas.SetBitmap(nullptr);
        m_statusPicture.reset();
        return;
    }
    OwnedBitmap picture(BitmapManager::Instance().Create(place.width, place.height));
    const TextStyle style{m_textPixels, FontWeight::Regular};
    const std::string text = m_painter.Fitting(m_status, style, place.width);
    const TextSize size = m_painter.Measure(text, style);
    m_painter.Draw(*picture, m_mirrored ? 0 : place.width - size.width, (place.height - size.height) / 2, text, style,
                   kInk);
    m_statusCanvas.SetPos(place.x, place.y);
    m_statusCanvas.SetSize(place.width, place.height);
    m_statusCanvas.SetBitmap(picture.get());
    m_statusPicture = std::move(picture);
}

} // namespace klondike
