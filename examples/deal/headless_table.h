// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/frame_clock.h"
#include "kit/table.h"
#include "orvane/orvane.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace deal
{

/// What one frame did.
struct FrameReport {
    int number = 0;                   ///< counts from 1
    double microseconds = 0.0;        ///< of the machine's time: landing, the table's frame and composing
    std::int64_t repaintedPixels = 0; ///< composed anew on the screen
    std::size_t cardsInAir = 0;
};

/// A card table without a window: the host with a frame clock of its own, the table, and the frame loop.
class HeadlessTable
{
public:
    /// Starts the host; pixels. Throws what orvane::Host and the bitmaps throw.
    HeadlessTable(int width, int height, std::size_t numPiles, const cardkit::SheetGrid& grid);
    ~HeadlessTable();

    cardkit::Table& Table() { return m_table; }
    orvane::Host& Host() { return m_host; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// The last error line of the host's log; empty when there was none.
    const std::string& LastError() const { return m_lastError; }

    /// Called at the end of every frame, when the screen is composed.
    void SetFrameObserver(std::function<void(const FrameReport&)> observer) { m_observer = std::move(observer); }

    /// Runs one frame.
    FrameReport Frame();

private:
    int m_width;
    int m_height;
    FrameClock m_clock;
    std::string m_lastError;
    orvane::Host m_host;
    cardkit::Table m_table;
    std::function<void(const FrameReport&)> m_observer;
    int m_frames = 0;
};

} // namespace deal
