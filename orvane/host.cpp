// SPDX-License-Identifier: MIT
#include "orvane/orvane.h"

#include "host/bitmap.h"
#include "host/globals.h"
#include "host/render.h"
#include "orvane/frame_period.h"
#include "orvane/running_host.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

namespace orvane
{

namespace
{

constinit RunningHost* running = nullptr;

void RequireScreenSize(int width, int height)
{
    if (width < 0 || height < 0 || width > Bitmap::kMaxSide || height > Bitmap::kMaxSide) {
        throw std::invalid_argument("orvane: a side of the screen is out of range");
    }
}

void InvalidateScreen()
{
    Render& render = Render::Instance();
    render.InvalidateArea({0, 0, render.GetActiveWidth(), render.GetActiveHeight()});
}

void Stop()
{
    // No part of the host finds the others half gone.
    const std::unique_ptr<RunningHost> stopped(std::exchange(running, nullptr));
    glb->framePeriod = kDefaultFramePeriod;
}

} // namespace

RunningHost* Running()
{
    return running;
}

Observer::~Observer() = default;

void Observer::AreaInvalidated(const render::Rectangle<int>& /*area*/) {}

void Observer::ControlInvalidated(const CControlBase& /*control*/) {}

void Observer::LogWritten(const char* /*channel*/, LogLevel /*level*/, const char* /*text*/) {}

Host::Host(const Settings& settings)
{
    if (running != nullptr) {
        throw std::logic_error("orvane: a host runs already");
    }
    RequireScreenSize(settings.width, settings.height);
    running = new RunningHost(settings);
    glb->framePeriod = std::max<std::uint32_t>(1, settings.framePeriod);
    try {
        InvalidateScreen();
    } catch (...) {
        Stop();
        throw;
    }
}

Host::~Host()
{
    Stop();
}

void Host::SetActiveSize(int width, int height)
{
    RequireScreenSize(width, height);
    if (width == running->screen.Width() && height == running->screen.Height()) {
        return;
    }
    running->screen.Resize(width, height);
    InvalidateScreen();
}

std::function<std::uint64_t()> Host::SetClock(std::function<std::uint64_t()> clock)
{
    return std::exchange(running->clock, std::move(clock));
}

void Host::SetObserver(Observer* observer)
{
    running->observer = observer;
}

const Bitmap& Host::Screen() const
{
    return running->screen.Picture();
}

bool Host::HasDamage() const
{
    return running->screen.HasDamage();
}

const std::vector<render::Rectangle<int>>& Host::Compose()
{
    return running->screen.Compose();
}

void Host::ComposeAll()
{
    running->screen.ComposeAll();
}

} // namespace orvane
