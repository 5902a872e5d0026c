// SPDX-License-Identifier: MIT
#pragma once

#include "bench/card_sheet.h"
#include "cardtable/cardtable.h"
#include "host/canvas.h"
#include "host/window.h"
#include "orvane/orvane.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace bench
{

/// The scene that all frame measurements share: a table without a window, a picture of the table at the bottom, cards
/// at rest as controls, and cards of 71 x 96 in endless flight above them, turning as they go.
class TableScene
{
public:
    static constexpr int kCardWidth = 71;
    static constexpr int kCardHeight = 96;
    /// So many resting cards lie under the single flight, however many there are.
    static constexpr int kUnderFlight = 10;

    /// Pixels; the number of resting cards: the first ones side by side at the top, the others scattered over the rest
    /// of the table. The whole screen is composed.
    TableScene(int width, int height, int resting);
    ~TableScene();
    TableScene(const TableScene&) = delete;
    TableScene& operator=(const TableScene&) = delete;

    /// Sends one card to and fro over the cards at the top.
    void FlyOne();
    /// Sends cards to and fro all over the screen, each on a way of its own.
    void FlyMany(int count, bool farToNear);
    /// Frames after which the first flight is where it was.
    int LoopFrames() const { return m_loop; }

    /// One frame: the table's, then composing.
    void Frame() { Run(); }

    struct Pixels {
        std::int64_t composed = 0; ///< on the screen
        std::int64_t moved = 0;    ///< in the union of what the card covered before and what it covers now
    };
    /// A frame of the single flight, and what it repainted.
    Pixels CountedFrame();

private:
    struct Flight {
        std::unique_ptr<CObject> card;
        std::unique_ptr<C3DMoveList> moves;
    };
    struct Pose {
        double x, y, z;
        double rotX, rotZ;
    };

    const std::vector<render::Rectangle<int>>& Run();
    void Rest(int count);
    void LayDown(long pocket, int value, int left, int top);
    void Fly(const Pose& from, const Pose& to, int frames, int value);
    /// The place in the world of a place on the screen.
    double WorldX(double x) const { return x - m_width / 2; }
    double WorldY(double y) const { return m_height / 2 - y; }

    int m_width;
    int m_height;
    std::uint64_t m_now = 0;
    orvane::Host m_host;
    OwnedBitmap m_picture;
    OwnedBitmap m_target;
    CDialog m_dialog;
    Canvas m_pictureCanvas;
    Canvas m_flightCanvas;
    std::vector<std::unique_ptr<C3DMoveList>> m_rests;
    CCardTable m_table;
    std::vector<Flight> m_flights;
    int m_loop = 1;
    int m_frame = 0;
};

} // namespace bench
