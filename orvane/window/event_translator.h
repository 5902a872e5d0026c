// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/window/events.h"
#include "orvane/window/pixel_scale.h"

#include <vector>

union SDL_Event;

namespace orvane
{

class Program;

/// Turns the system's input events into those of a program, and keeps what is pressed, so that every press has an end.
class EventTranslator
{
public:
    /// Tells the program of an input event. Returns false, and tells nothing, for all other events.
    bool Translate(const SDL_Event& event, const PixelScale& scale, Program& program);
    /// Cancels every press.
    void CancelPresses(Program& program);

private:
    void Deliver(const PointerEvent& event, Program& program);

    std::vector<PointerEvent> m_pressed; ///< the latest event of each button and finger that is down
};

} // namespace orvane
