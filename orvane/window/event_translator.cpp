// SPDX-License-Identifier: MIT
#include "orvane/window/event_translator.h"

#include "orvane/window/program.h"

#include <SDL.h>

#include <algorithm>
#include <utility>

namespace orvane
{

namespace
{

Modifiers ModifiersOf(int state)
{
    return {(state & KMOD_SHIFT) != 0, (state & KMOD_CTRL) != 0, (state & KMOD_ALT) != 0, (state & KMOD_GUI) != 0};
}

PointerButton ButtonOf(Uint8 button)
{
    switch (button) {
    case SDL_BUTTON_LEFT:
        return PointerButton::Left;
    case SDL_BUTTON_MIDDLE:
        return PointerButton::Middle;
    case SDL_BUTTON_RIGHT:
        return PointerButton::Right;
    case SDL_BUTTON_X1:
        return PointerButton::Back;
    case SDL_BUTTON_X2:
        return PointerButton::Forward;
    default:
        return PointerButton::None;
    }
}

struct NamedKey {
    SDL_Keycode code;
    Key key;
};

constexpr NamedKey kNamedKeys[] = {
    {SDLK_RETURN, Key::Enter},  {SDLK_KP_ENTER, Key::Enter},
    {SDLK_ESCAPE, Key::Escape}, {SDLK_BACKSPACE, Key::Backspace},
    {SDLK_TAB, Key::Tab},       {SDLK_SPACE, Key::Space},
    {SDLK_INSERT, Key::Insert}, {SDLK_DELETE, Key::Delete},
    {SDLK_HOME, Key::Home},     {SDLK_END, Key::End},
    {SDLK_PAGEUP, Key::PageUp}, {SDLK_PAGEDOWN, Key::PageDown},
    {SDLK_LEFT, Key::Left},     {SDLK_RIGHT, Key::Right},
    {SDLK_UP, Key::Up},         {SDLK_DOWN, Key::Down},
    {SDLK_F1, Key::F1},         {SDLK_F2, Key::F2},
    {SDLK_F3, Key::F3},         {SDLK_F4, Key::F4},
    {SDLK_F5, Key::F5},         {SDLK_F6, Key::F6},
    {SDLK_F7, Key::F7},         {SDLK_F8, Key::F8},
    {SDLK_F9, Key::F9},         {SDLK_F10, Key::F10},
    {SDLK_F11, Key::F11},       {SDLK_F12, Key::F12},
};

KeyEvent KeyEventOf(const SDL_KeyboardEvent& event)
{
    KeyEvent result;
    result.down = event.type == SDL_KEYDOWN;
    result.repeat = event.repeat != 0;
    result.modifiers = ModifiersOf(event.keysym.mod);
    const SDL_Keycode code = event.keysym.sym;
    const auto* const named = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                           [&](const NamedKey& key) { return key.code == code; });
    if (named != std::end(kNamedKeys)) {
        result.key = named->key;
    } else if (code > ' ' && (code & SDLK_SCANCODE_MASK) == 0) {
        result.key = Key::Character;
        result.character = static_cast<char32_t>(code);
    }
    return result;
}

PointerEvent MouseEvent(PointerAction action, int x, int y, const PixelScale& scale)
{
    PointerEvent result;
    result.action = action;
    result.x = scale.PixelX(x);
    result.y = scale.PixelY(y);
    result.modifiers = ModifiersOf(SDL_GetModState());
    return result;
}

PointerEvent ButtonEvent(const SDL_MouseButtonEvent& event, const PixelScale& scale)
{
    PointerEvent result = MouseEvent(event.type == SDL_MOUSEBUTTONDOWN ? PointerAction::Down : PointerAction::Up,
                                     event.x, event.y, scale);
    result.button = ButtonOf(event.button);
    result.clicks = event.clicks;
    return result;
}

PointerEvent WheelEvent(const SDL_MouseWheelEvent& event, const PixelScale& scale)
{
    PointerEvent result = MouseEvent(PointerAction::Wheel, event.mouseX, event.mouseY, scale);
    result.wheelX = event.preciseX;
    result.wheelY = event.preciseY;
    return result;
}

/// A finger's place is a fraction of the window.
PointerEvent FingerEvent(PointerAction action, const SDL_TouchFingerEvent& event, const PixelScale& scale)
{
    PointerEvent result = MouseEvent(action, 0, 0, scale);
    result.kind = PointerKind::Touch;
    result.finger = event.fingerId;
    result.x = scale.PixelX(static_cast<double>(event.x) * scale.width);
    result.y = scale.PixelY(static_cast<double>(event.y) * scale.height);
    if (action != PointerAction::Move) {
        result.button = PointerButton::Left;
        result.clicks = 1;
    }
    return result;
}

bool IsSamePointer(const PointerEvent& a, const PointerEvent& b)
{
    return a.kind == b.kind && a.finger == b.finger;
}

PointerEvent CancelOf(PointerEvent press)
{
    press.action = PointerAction::Cancel;
    press.clicks = 0;
    return press;
}

} // namespace

bool EventTranslator::Translate(const SDL_Event& event, const PixelScale& scale, Program& program)
{
    switch (event.type) {
    case SDL_MOUSEMOTION:
        if (event.motion.which != SDL_TOUCH_MOUSEID) {
            Deliver(MouseEvent(PointerAction::Move, event.motion.x, event.motion.y, scale), program);
        }
        return true;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        if (event.button.which != SDL_TOUCH_MOUSEID && ButtonOf(event.button.button) != PointerButton::None) {
            Deliver(ButtonEvent(event.button, scale), program);
        }
        return true;
    case SDL_MOUSEWHEEL:
        if (event.wheel.which != SDL_TOUCH_MOUSEID) {
            Deliver(WheelEvent(event.wheel, scale), program);
        }
        return true;
    case SDL_FINGERDOWN:
        Deliver(FingerEvent(PointerAction::Down, event.tfinger, scale), program);
        return true;
    case SDL_FINGERMOTION:
        Deliver(FingerEvent(PointerAction::Move, event.tfinger, scale), program);
        return true;
    case SDL_FINGERUP:
        Deliver(FingerEvent(PointerAction::Up, event.tfinger, scale), program);
        return true;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        program.Key(KeyEventOf(event.key));
        return true;
    case SDL_TEXTINPUT:
        program.Text(event.text.text);
        return true;
    default:
        return false;
    }
}

void EventTranslator::Deliver(const PointerEvent& event, Program& program)
{
    const auto press = std::find_if(m_pressed.begin(), m_pressed.end(), [&](const PointerEvent& pressed) {
        return IsSamePointer(pressed, event) && pressed.button == event.button;
    });
    if (event.action == PointerAction::Up) {
        if (press == m_pressed.end()) {
            return; // it was cancelled, or began elsewhere
        }
        m_pressed.erase(press);
    } else if (event.action == PointerAction::Down) {
        if (press != m_pressed.end()) {
            const PointerEvent lost = CancelOf(*press);
            m_pressed.erase(press);
            program.Pointer(lost);
        }
        m_pressed.push_back(event);
    } else {
        for (PointerEvent& pressed : m_pressed) {
            if (IsSamePointer(pressed, event)) {
                pressed.x = event.x;
                pressed.y = event.y;
            }
        }
    }
    program.Pointer(event);
}

void EventTranslator::CancelPresses(Program& program)
{
    for (const PointerEvent& press : std::exchange(m_pressed, {})) {
        program.Pointer(CancelOf(press));
    }
}

} // namespace orvane
