// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/window/events.h"
#include "orvane/window/export.h"

#include <string>

namespace orvane
{

/// What runs in a window. The loop calls it on the thread that runs the loop, one call at a time. After every call but
/// Frame itself the loop calls Frame, at the next moment a frame is due: at once after a quiet time. What a call throws
/// leaves Loop::Run or Loop::Step.
class ORVANE_WINDOW_API Program
{
public:
    virtual ~Program();

    /// Moves the picture on by one frame: the scene's handlers, and what was changed by hand. The host's clock stands
    /// still meanwhile; the damage is composed and shown afterwards. Returns true when a further frame is needed (a
    /// list plays, something was changed, drawn rectangles are left): it comes one SGlobals::framePeriod later. After
    /// false the loop sleeps until something else happens.
    virtual bool Frame() = 0;

    ///@{
    /// Input, in the order in which it happened. The base class does nothing.
    virtual void Pointer(const PointerEvent& event);
    virtual void Key(const KeyEvent& event);
    ///@}
    /// Typed text, UTF-8, after Window::SetTextInput(true). The base class does nothing.
    virtual void Text(const std::string& text);
    /// The screen has a new size, in pixels: Host::SetActiveSize has been called, and all of it is damaged. The program
    /// sets its field of view and lays out anew. Also called once when the loop starts. The base class does nothing.
    virtual void Resized(int width, int height);
    /// The window lost or got the keyboard's focus. What was pressed has been cancelled before. The base class does
    /// nothing.
    virtual void FocusChanged(bool focused);
    /// Loop::Wake was called, once or several times. The base class does nothing.
    virtual void Woken();
    /// The user closes the window or the system asks to end: true ends the loop. The base class returns true.
    virtual bool Quit();
};

} // namespace orvane
