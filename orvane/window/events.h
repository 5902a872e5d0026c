// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// What a window tells its program. Places are in pixels of the host's screen, whatever the display's scale.
namespace orvane
{

/// What points.
enum class PointerKind { Mouse, Touch };

/// What it did.
enum class PointerAction {
    Down,
    Move,
    Up,
    Wheel,
    Cancel ///< a press ends without an Up, as when the window loses the focus: whatever was dragged goes back
};

/// A button of a mouse.
enum class PointerButton { None, Left, Middle, Right, Back, Forward };

/// The modifier keys held at an event.
struct Modifiers {
    ///@{
    /// True while held.
    bool shift = false;
    bool control = false;
    bool alt = false;
    bool meta = false;
    ///@}

    /// The same keys.
    friend bool operator==(const Modifiers&, const Modifiers&) = default;
};

/// A mouse or a finger did something. A press outlives the window's edge: while a button is down, moves and the release
/// arrive from outside too, with places off the screen. Every Down is followed by one Up or Cancel of its button.
struct PointerEvent {
    PointerAction action = PointerAction::Move; ///< what happened
    PointerKind kind = PointerKind::Mouse;      ///< by what
    /// Which finger; 0 for the mouse.
    std::int64_t finger = 0;
    /// The button of a Down, Up or Cancel; a finger's is Left. Otherwise None.
    PointerButton button = PointerButton::None;
    ///@{
    /// Place, screen pixels.
    int x = 0;
    int y = 0;
    ///@}
    /// Down and Up: 1 for a single click, 2 for a double click, and so on; a finger's is 1. Otherwise 0.
    int clicks = 0;
    ///@{
    /// Wheel: steps to the right and away from the user; parts of a step on fine wheels. Otherwise 0.
    float wheelX = 0.0F;
    float wheelY = 0.0F;
    ///@}
    Modifiers modifiers{}; ///< held at that time
};

/// A key by what it does.
enum class Key {
    Other,
    Character, ///< a key with a character on it: KeyEvent::character says which
    Enter,
    Escape,
    Backspace,
    Tab,
    Space,
    Insert,
    Delete,
    Home,
    End,
    PageUp,
    PageDown,
    Left,
    Right,
    Up,
    Down,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12
};

/// A key went down or up. For typed text use Program::Text: a key is not a letter.
struct KeyEvent {
    bool down = true; ///< false: it went up
    /// A press that the held key repeats.
    bool repeat = false;
    Key key = Key::Other; ///< which
    /// For Key::Character: what the key has on it without modifiers (a small letter), as Unicode. Otherwise 0.
    char32_t character = 0;
    Modifiers modifiers{}; ///< held at that time
};

} // namespace orvane
