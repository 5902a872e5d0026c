// SPDX-License-Identifier: MIT
#include "examples/deal/headless_table.h"

#include <chrono>

namespace deal
{

namespace
{

orvane::Settings HostSettings(int width, int height, const FrameClock& clock, std::string& lastError)
{
    orvane::Settings settings;
    settings.width = width;
    settings.height = height;
    settings.framePeriod = FrameClock::kPeriod;
    settings.clock = [&clock] { return clock.Now(); };
    settings.logSink = [&lastError](const char*, orvane::LogLevel level, const char* text) {
        if (level == orvane::LogLevel::Error) {
            lastError = text;
        }
    };
    return settings;
}

} // namespace

HeadlessTable::HeadlessTable(int width, int height, std::size_t numPiles, const cardkit::SheetGrid& grid)
    : m_width(width), m_height(height), m_host(HostSettings(width, height, m_clock, m_lastError)),
      m_table(width, height, numPiles, grid)
{
}

HeadlessTable::~HeadlessTable() = default;

FrameReport HeadlessTable::Frame()
{
    using Time = std::chrono::steady_clock;
    const auto start = Time::now();
    m_table.Frame();
    FrameReport report;
    for (const render::Rectangle<int>& area : m_host.Compose()) {
        report.repaintedPixels += std::int64_t{area.width} * area.height;
    }
    report.microseconds = std::chrono::duration<double, std::micro>(Time::now() - start).count();
    report.number = ++m_frames;
    report.cardsInAir = m_table.NumInAir();
    if (m_observer) {
        m_observer(report);
    }
    m_clock.NextFrame();
    return report;
}

} // namespace deal
