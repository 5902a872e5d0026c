// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/window/export.h"
#include "orvane/window/program.h"
#include "orvane/window/window.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace orvane
{

/// What a loop has done so far. While nothing moves, none of them grows.
struct LoopCounters {
    std::uint64_t wakeUps = 0;         ///< returns from sleep
    std::uint64_t events = 0;          ///< events of the system taken from the queue, those of other windows too
    std::uint64_t framesRun = 0;       ///< calls of Program::Frame
    std::uint64_t framesComposed = 0;  ///< frames that showed something
    std::uint64_t pixelsPresented = 0; ///< pixels shown
};

/// Runs a program in a window: takes the events, runs a frame every SGlobals::framePeriod while the program needs them,
/// shows what was damaged, and sleeps in the kernel the rest of the time. The display's rate does not matter.
///
/// Its frame clock is the host's clock while the loop lives: it moves when the loop wakes and when a frame starts, by
/// four periods at most, so that animations go on after a pause without a burst. One loop a window at a time; used on
/// the host's thread, but for Wake.
///
///     orvane::Host host(settings);
///     orvane::Window window(host, {.title = "Cards"});
///     orvane::Loop loop(host, window, program);
///     loop.Run();
class ORVANE_WINDOW_API Loop
{
public:
    /// Gives a time in microseconds.
    using Clock = std::function<std::uint64_t()>;
    /// Names a timer; never 0.
    using Timer = std::uint64_t;

    /// Real time comes from the clock, in microseconds; empty: the machine's monotonic clock. The host, window and
    /// program outlive the loop.
    Loop(Host& host, Window& window, Program& program, Clock clock = {});
    /// Gives the host the clock it had before.
    ~Loop();
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    /// Runs until the program ends. Throws std::logic_error when called from a call to the program.
    void Run();
    /// Does all that is due now, a frame at most, and does not sleep. Returns the microseconds until the next frame or
    /// timer, and nothing when only an event or Wake can bring more to do, or the loop has ended. With a clock of its
    /// own a test calls this alone, and needs no real time. Throws as Run.
    std::optional<std::uint64_t> Step();
    /// Ends the loop after the present call to the program, without asking it.
    void Stop();
    /// True when the loop has ended: by Stop, or since Program::Quit agreed.
    bool HasEnded() const;

    /// Has Program::Woken called soon, out of its sleep too. Any thread may call it while the loop lives; calls that
    /// come before the loop gets to it are one.
    void Wake();
    /// Has Program::Frame called when the next frame is due.
    void RequestFrame();

    /// Real time, microseconds.
    std::uint64_t Now() const;
    /// Calls back once, at that real time (microseconds) or as soon afterwards as the loop gets to it; in the order of
    /// times, equal ones in the order of the calls. A clock display sets the next one from its call.
    Timer CallAt(std::uint64_t time, std::function<void()> call);
    /// Forgets a timer; nothing for one that has been called or is unknown.
    void Cancel(Timer timer);

    /// What the loop has done so far.
    const LoopCounters& Counters() const;

private:
    class State;
    std::unique_ptr<State> m_state;
};

} // namespace orvane
