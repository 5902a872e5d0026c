// SPDX-License-Identifier: MIT
#include "examples/deal/headless_table.h"

#include <chrono>
#include <utility>

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

HeadlessTable::HeadlessTable(int width, int height)
    : m_width(width), m_height(height), m_host(HostSettings(width, height, m_clock, m_lastError)),
      m_view(width, height), m_target(BitmapManager::Instance().Create(width, height))
{
    m_pictureCanvas.Create(0, 0, width, height);
    m_flightCanvas.Create(0, 0, width, height);
    m_flightCanvas.SetBitmap(m_target.get());
    m_dialog.AddCntrlBefore(&m_pictureCanvas, nullptr);
    m_dialog.AddCntrlBefore(&m_flightCanvas, nullptr);
    m_dialog.Show();
}

HeadlessTable::~HeadlessTable() = default;

void HeadlessTable::Init(long pockets, long rows, long columns, long lastRow)
{
    m_table.Init(pockets, rows, columns, lastRow);
    m_table.SetTargetBitmap(m_target.get());
    m_table.m_sortByDepth = 1;         // of two cards in the air the one nearer to the viewer covers the other
    m_table.m_skipStampDrawBefore = 1; // a card that comes to rest is drawn once, not twice over itself
    m_view.Apply(m_table);
}

void HeadlessTable::SetPicture(OwnedBitmap picture)
{
    m_pictureCanvas.SetBitmap(picture.get());
    m_picture = std::move(picture);
}

FrameReport HeadlessTable::Frame()
{
    using Time = std::chrono::steady_clock;
    const auto start = Time::now();
    m_flights.Land();
    m_table.Handler();
    FrameReport report;
    for (const render::Rectangle<int>& area : m_host.Compose()) {
        report.repaintedPixels += std::int64_t{area.width} * area.height;
    }
    report.microseconds = std::chrono::duration<double, std::micro>(Time::now() - start).count();
    report.number = ++m_frames;
    report.cardsInAir = m_flights.NumInAir();
    if (m_observer) {
        m_observer(report);
    }
    m_clock.NextFrame();
    return report;
}

} // namespace deal
