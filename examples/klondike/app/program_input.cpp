// SPDX-License-Identifier: MIT
// What the pointer and the keys do.
#include "examples/klondike/app/program.h"

#include <array>
#include <utility>

namespace klondike
{

namespace
{

using orvane::Key;
using orvane::PointerAction;
using orvane::PointerButton;

struct Shortcut {
    Key key;
    char32_t character;
    Action action;
};

constexpr std::array kShortcuts{
    Shortcut{Key::Character, U'n', Action::NewGame},
    Shortcut{Key::Character, U'r', Action::Restart},
    Shortcut{Key::Character, U'd', Action::Draw},
    Shortcut{Key::Character, U'u', Action::Undo},
    Shortcut{Key::Backspace, 0, Action::Undo},
    Shortcut{Key::Character, U'z', Action::Undo},
    Shortcut{Key::Character, U'y', Action::Redo},
    Shortcut{Key::Character, U'h', Action::Hint},
    Shortcut{Key::Character, U'f', Action::Finish},
    Shortcut{Key::Character, U'm', Action::Menu},
    Shortcut{Key::F10, 0, Action::Menu},
    Shortcut{Key::Character, U'c', Action::Decks},
    Shortcut{Key::F1, 0, Action::Help},
    Shortcut{Key::F11, 0, Action::FullScreen},
};

cardkit::Pixel PlaceOf(const orvane::PointerEvent& event)
{
    return {event.x, event.y};
}

} // namespace

void Program::Pointer(const orvane::PointerEvent& event)
{
    CountTime();
    switch (event.action) {
    case PointerAction::Down:
        PointerDown(event);
        break;
    case PointerAction::Up:
        PointerUp(event);
        break;
    case PointerAction::Move:
        PointerMoved(event);
        break;
    case PointerAction::Wheel:
        if (m_popup.IsShown() && event.wheelY != 0.0F) {
            m_popup.Scroll(event.wheelY > 0.0F ? -1 : 1);
        }
        break;
    case PointerAction::Cancel:
        CancelPress();
        break;
    }
}

void Program::PointerDown(const orvane::PointerEvent& event)
{
    if (m_celebration.IsRunning()) {
        m_celebration.End();
        return;
    }
    if (m_pressed.target != Target::None) { // a second button or finger ends what the first one does
        CancelPress();
        return;
    }
    m_toolBar.Unfocus();
    m_pressed = {Target::None, event.kind, event.button, event.finger};
    if (m_popup.IsShown()) {
        m_pressed.target = Target::Popup;
        m_popup.Hover(PlaceOf(event));
    } else if (event.button == PointerButton::Left && m_toolBar.Press(PlaceOf(event))) {
        m_pressed.target = Target::ToolBar;
    } else if (event.button == PointerButton::Left) {
        m_pressed.target = Target::Table;
        m_player.Press(PlaceOf(event), event.clicks);
    } else if (event.button == PointerButton::Right) {
        m_player.SendHomeAt(PlaceOf(event));
    } else if (event.button == PointerButton::Back) {
        Act(Action::Undo);
    } else if (event.button == PointerButton::Forward) {
        Act(Action::Redo);
    }
}

void Program::PointerMoved(const orvane::PointerEvent& event)
{
    const bool isPressed = m_pressed.target != Target::None;
    if (isPressed && (event.kind != m_pressed.kind || event.finger != m_pressed.finger)) {
        return;
    }
    if (m_pressed.target == Target::Table) {
        m_player.Move(PlaceOf(event));
    } else if (m_popup.IsShown()) {
        m_popup.Hover(PlaceOf(event));
    } else {
        m_toolBar.Hover(PlaceOf(event));
    }
}

void Program::PointerUp(const orvane::PointerEvent& event)
{
    if (event.kind != m_pressed.kind || event.finger != m_pressed.finger || event.button != m_pressed.button) {
        return;
    }
    const Pressed pressed = std::exchange(m_pressed, Pressed{});
    switch (pressed.target) {
    case Target::Popup:
        m_popup.Click(PlaceOf(event));
        break;
    case Target::ToolBar:
        if (const std::optional<Action> action = m_toolBar.Release(PlaceOf(event))) {
            Act(*action);
        }
        break;
    case Target::Table:
        m_player.Release(PlaceOf(event));
        break;
    case Target::None:
        break;
    }
    if (event.kind == orvane::PointerKind::Touch) {
        m_toolBar.Hover(std::nullopt); // a finger that is lifted is nowhere
    }
}

void Program::CancelPress()
{
    m_pressed = {};
    m_toolBar.CancelPress();
    m_player.Cancel();
}

void Program::Key(const orvane::KeyEvent& event)
{
    CountTime();
    if (!event.down) {
        return;
    }
    if (m_celebration.IsRunning()) {
        m_celebration.End();
        return;
    }
    const bool isFullScreen = event.key == Key::F11 || (event.key == Key::Enter && event.modifiers.alt);
    if (isFullScreen && !event.repeat) {
        Act(Action::FullScreen);
    } else if (!PopupKey(event) && !ToolBarKey(event) && !CursorKey(event)) {
        ShortcutKey(event);
    }
}

bool Program::PopupKey(const orvane::KeyEvent& event)
{
    if (!m_popup.IsShown()) {
        return false;
    }
    switch (event.key) {
    case Key::Up:
        m_popup.Step(-1);
        break;
    case Key::Down:
    case Key::Tab:
        m_popup.Step(event.modifiers.shift ? -1 : 1);
        break;
    case Key::Enter:
    case Key::Space:
        if (!event.repeat) {
            m_popup.ChooseMarked();
        }
        break;
    case Key::Escape:
        m_popup.Hide();
        break;
    default:
        // Keys that are named in the menus work there too.
        if (event.key == Key::Character || event.key == Key::F1 || event.key == Key::F10) {
            m_popup.Hide();
            ShortcutKey(event);
        }
        break;
    }
    return true;
}

bool Program::ToolBarKey(const orvane::KeyEvent& event)
{
    if (event.key == Key::Tab) {
        if (m_toolBar.HasFocus()) {
            m_toolBar.Unfocus();
        } else {
            m_player.Cancel();
            m_toolBar.Focus();
        }
        return true;
    }
    if (!m_toolBar.HasFocus()) {
        return false;
    }
    switch (event.key) {
    case Key::Left:
        m_toolBar.MoveFocus(m_settings.leftHanded ? 1 : -1);
        return true;
    case Key::Right:
        m_toolBar.MoveFocus(m_settings.leftHanded ? -1 : 1);
        return true;
    case Key::Enter:
    case Key::Space:
        if (const std::optional<Action> action = m_toolBar.Focused(); action && !event.repeat) {
            Act(*action);
        }
        return true;
    case Key::Escape:
    case Key::Up:
    case Key::Down:
        m_toolBar.Unfocus();
        return true;
    default:
        return false;
    }
}

bool Program::CursorKey(const orvane::KeyEvent& event)
{
    switch (event.key) {
    case Key::Left:
        m_player.StepCursor(Cursor::Direction::Left);
        return true;
    case Key::Right:
        m_player.StepCursor(Cursor::Direction::Right);
        return true;
    case Key::Up:
        m_player.StepCursor(Cursor::Direction::Up);
        return true;
    case Key::Down:
        m_player.StepCursor(Cursor::Direction::Down);
        return true;
    case Key::Enter:
    case Key::Space:
        if (!event.repeat) {
            m_player.ChooseAtCursor();
        }
        return true;
    case Key::Home:
        m_player.SendHomeAtCursor();
        return true;
    case Key::Escape:
        m_player.Cancel();
        m_player.HideCursor();
        return true;
    case Key::Character:
        if (event.character >= U'1' && event.character < U'1' + kNumTableau) {
            m_player.GoToPile(kFirstTableau + event.character - U'1');
            return true;
        }
        return false;
    default:
        return false;
    }
}

void Program::ShortcutKey(const orvane::KeyEvent& event)
{
    if (event.modifiers.alt || event.modifiers.meta) {
        return;
    }
    if (event.character == U'q') {
        Quit();
        m_loop.Stop();
        return;
    }
    for (const Shortcut& shortcut : kShortcuts) {
        if (shortcut.key != event.key || shortcut.character != event.character) {
            continue;
        }
        const bool isRedo = event.character == U'z' && event.modifiers.shift;
        const Action action = isRedo ? Action::Redo : shortcut.action;
        // A key that is held undoes one move after the other; nothing else is meant to happen again and again.
        if (!event.repeat || action == Action::Undo || action == Action::Redo) {
            Act(action);
        }
        return;
    }
}

void Program::CountTime()
{
    const std::uint32_t seconds = m_clock.Input(m_loop.Now());
    if (seconds > 0 && !m_game.Played().empty() && !m_game.IsWon()) {
        m_game.AddSeconds(seconds);
        m_keeper.GameChanged();
    }
}

} // namespace klondike
