// SPDX-License-Identifier: MIT
#pragma once

#include "cardtable/card_table.h"
#include "examples/deal/card_flights.h"
#include "examples/deal/frame_clock.h"
#include "examples/deal/table_view.h"
#include "host/canvas.h"
#include "host/owned_bitmap.h"
#include "host/window.h"
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

/// A card table without a window: the host with a frame clock of its own, one dialog with the table's picture at the
/// bottom and the flying cards on top, and the frame loop. Card piles put their controls between the two.
class HeadlessTable
{
public:
    /// Starts the host; pixels. Throws what orvane::Host and the bitmaps throw.
    HeadlessTable(int width, int height);
    ~HeadlessTable();

    CCardTable& Table() { return m_table; }
    CDialog& Dialog() { return m_dialog; }
    CardFlights& Flights() { return m_flights; }
    orvane::Host& Host() { return m_host; }
    const TableView& View() const { return m_view; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// The last error line of the host's log; empty when there was none.
    const std::string& LastError() const { return m_lastError; }

    /// Makes the table's pockets for a sheet of that grid and aims its camera.
    void Init(long pockets, long rows, long columns, long lastRow);
    /// The picture that lies below everything; kept until the next one.
    void SetPicture(OwnedBitmap picture);
    /// The control that shows the flying cards; all others stand before it.
    CControlBase& FlightControl() { return m_flightCanvas; }
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
    TableView m_view;
    OwnedBitmap m_picture;
    OwnedBitmap m_target;
    CDialog m_dialog;
    Canvas m_pictureCanvas;
    Canvas m_flightCanvas;
    CCardTable m_table;
    CardFlights m_flights{m_table};
    std::function<void(const FrameReport&)> m_observer;
    int m_frames = 0;
};

} // namespace deal
