// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/orvane.h"
#include "orvane/screen.h"

#include <cstdint>

namespace orvane
{

/// What a started host consists of.
struct RunningHost {
    explicit RunningHost(const Settings& settings)
        : clock(settings.clock), logSink(settings.logSink), observer(settings.observer),
          screen(settings.width, settings.height, settings.background)
    {
    }

    std::function<std::uint64_t()> clock;
    std::function<void(const char* channel, LogLevel level, const char* text)> logSink;
    Observer* observer;
    Screen screen;
};

/// Null before the start and after the stop, also while static objects start and end.
RunningHost* Running();

} // namespace orvane
