// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"
#include "host/rectangle.h"
#include "host/rgba.h"

#include <cstdint>
#include <functional>
#include <vector>

class Bitmap;
class CControlBase;

/// Start-up and shut-down of the host, its clock, its log sink and its screen: all that a program sets. A headless
/// program, a test with a clock of its own and a window program start the same way:
///
///     orvane::Settings settings;
///     settings.width = 800;
///     settings.height = 600;
///     orvane::Host host(settings);   // stops when it leaves its scope
///
/// The host's classes may be used before the start and after the stop: the screen is then 0 x 0, the clock the
/// monotonic one, and errors go to the standard error stream.
namespace orvane
{

/// How much a log line matters.
enum class LogLevel { Error, Info };

/// Sees what passes through the host, before anything is merged or dropped. The views of "why was this repainted" and
/// the tests live on it. Called on the game's thread, in the middle of the call it reports: an observer draws nothing,
/// moves no control, and throws nothing.
class ORVANE_API Observer
{
public:
    virtual ~Observer();
    /// Render::InvalidateArea was asked for this area; also for areas off the screen or empty.
    virtual void AreaInvalidated(const render::Rectangle<int>& area);
    /// Invalidate() was called on the control; also on one that is hidden or in no window.
    virtual void ControlInvalidated(const CControlBase& control);
    /// A line was written to a log channel.
    virtual void LogWritten(const char* channel, LogLevel level, const char* text);
};

/// What the host is started with.
struct Settings {
    ///@{
    /// The size of the screen and of the active render area, pixels, 0 to Bitmap::kMaxSide.
    int width = 1280;
    int height = 720;
    ///@}
    /// What the screen shows where no control does.
    Rgba background{0, 0, 0, 255};
    /// Time of one animation frame, microseconds; 0 is taken as 1.
    std::uint32_t framePeriod = 16667;
    /// The host's clock in microseconds; empty: the machine's monotonic clock.
    std::function<std::uint64_t()> clock{};
    /// Receives every log line; empty: errors go to the standard error stream, information lines nowhere.
    std::function<void(const char* channel, LogLevel level, const char* text)> logSink{};
    /// Not owned; outlives the host. Null: none.
    Observer* observer = nullptr;
};

/// The running host, one at a time. Everything runs on the thread that made it.
class ORVANE_API Host
{
public:
    /// Throws std::logic_error when a host runs already, std::invalid_argument for a size out of range.
    explicit Host(const Settings& settings);
    /// Stops the host; the screen's bitmap goes with it. Dialogs and controls may live on.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Resizes the screen; its picture is lost and the whole of it damaged. Throws std::invalid_argument for a size out
    /// of range, and then changes nothing. The game calls SetCameraFOV anew.
    void SetActiveSize(int width, int height);
    ///@{
    /// Puts in another clock (empty: the monotonic one) and returns the earlier one. A frame clock stands still within
    /// a frame.
    std::function<std::uint64_t()> SetClock(std::function<std::uint64_t()> clock);
    void SetObserver(Observer* observer);
    ///@}

    /// The screen's picture as it was last composed; opaque where the background is. Owned by the host.
    const Bitmap& Screen() const;
    /// True when some area of the screen waits for composing.
    bool HasDamage() const;
    /// Composes every damaged area from the controls and returns those areas: disjoint, cut to the screen, together
    /// exactly what was damaged. The list is the host's and valid until the next call. Costs nothing without damage.
    const std::vector<render::Rectangle<int>>& Compose();
    /// Composes the whole screen, whatever is damaged, and forgets the damage.
    void ComposeAll();
};

} // namespace orvane
