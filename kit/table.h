// SPDX-License-Identifier: MIT
#pragma once

#include "cardtable/card_table.h"
#include "host/canvas.h"
#include "host/owned_bitmap.h"
#include "host/tick.h"
#include "host/window.h"
#include "kit/flight_path.h"
#include "kit/flights.h"
#include "kit/pile.h"
#include "kit/pile_layout.h"
#include "kit/placement.h"
#include "kit/shadow.h"
#include "kit/table_plane.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace cardkit
{

/// The picture files of a deck: a sheet with a grid of cells and a back. A card's value is row * columns + column.
struct CardSheet {
    ///@{
    /// The files.
    std::string faces;
    std::string back;
    ///@}
    ///@{
    /// The size of a cell, pixels.
    int cellWidth = 0;
    int cellHeight = 0;
    ///@}
};

/// The grid of every sheet that a table uses.
struct SheetGrid {
    ///@{
    /// The cells; the last row holds so many.
    int rows = 4;
    int columns = 13;
    int lastRow = 13;
    ///@}
};

/// How a card is to fly.
struct Flight {
    FlightStyle style{}; ///< the curve
    int frames = 20;     ///< at normal speed
    int delay = 0;       ///< frames before it starts, at normal speed
    bool shadow = true;  ///< on the table below it
};

/// A place on the table: a card of a pile, or, with position 0, the place of a pile where no card lies.
struct Spot {
    ///@{
    /// The pile counts from 0, the position from 1, the bottom card.
    std::size_t pile = 0;
    long position = 0;
    ///@}

    /// The same place.
    friend bool operator==(const Spot&, const Spot&) = default;
};

/// A whole card table: the library's table, a dialog with the table's picture at the bottom and the cards in the air on
/// top, and between them a pile for each pocket. Cards move by orders: a card flies from where it is seen to its new
/// pile, which holds it from the start of the flight on. The host runs with the table's size.
class Table
{
public:
    /// Normal speed of flights.
    static constexpr double kNormalSpeed = 1.0;
    /// With this speed cards don't fly: they lie where they belong at once.
    static constexpr double kInstant = 0.0;

    /// An empty table of so many piles, of that size in pixels; the piles have no place and no pictures yet.
    Table(int width, int height, std::size_t numPiles, const SheetGrid& grid);
    ~Table();
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    ///@{
    /// Takes another sheet, another size and other places, each in one call; every card is built anew and rests at its
    /// home then, whatever it was doing. UseSheet throws std::runtime_error with one line of text for files that cannot
    /// be used, and the earlier sheet stays. Resize needs as many layouts as there are piles, else it throws
    /// std::invalid_argument.
    void UseSheet(const CardSheet& sheet);
    void Resize(int width, int height, CardSize card, const std::vector<PileLayout>& layouts);
    ///@}
    /// The picture that lies below everything; kept until the next one.
    void SetPicture(OwnedBitmap picture);

    ///@{
    /// How many times as fast as normal cards fly, kInstant for at once; NaN and negative values count as normal.
    void SetSpeed(double speed);
    double Speed() const { return m_speed; }
    ///@}
    /// With reduced motion cards slide flat and briefly, and turn over without being seen to.
    void SetReducedMotion(bool reduced) { m_reducedMotion = reduced; }

    ///@{
    /// The parts.
    CCardTable& Scene() { return m_scene; }
    CDialog& Dialog() { return m_dialog; }
    CControlBase& FlightControl() { return m_flightCanvas; }
    Canvas& PictureControl() { return m_pictureCanvas; }
    const TablePlane& Plane() const { return m_plane; }
    CardSize Size() const { return m_size; }
    std::size_t NumPiles() const { return m_piles.size(); }
    Pile& At(std::size_t pile) { return *m_piles.at(pile); }
    const Pile& At(std::size_t pile) const { return *m_piles.at(pile); }
    ///@}

    ///@{
    /// Lays cards on the table without a flight: in the place of all cards of all piles, or on top of one pile. Cards
    /// without a picture are left out.
    void Lay(const std::vector<std::vector<Card>>& piles);
    void Add(std::size_t pile, const Card& card);
    ///@}
    /// Has the table hold these cards, of which each value stands once: cards that lie elsewhere fly to their piles
    /// one after the other, `stagger` frames apart, and cards that show the other side turn over. Cards that no pile
    /// holds are laid down without a flight; those that are not wanted vanish.
    void Arrange(const std::vector<std::vector<Card>>& piles, const Flight& flight, double stagger);
    /// Flies the topmost card of that value from one pile to the top of another, or turns it over where it lies, under
    /// others too, when both are the same. Orders start in the order in which they were given. Nothing for a card that
    /// is not there.
    void Order(std::size_t from, long value, std::size_t to, Facing facing, const Flight& flight);
    /// Sends a card that is away from its home there, or lets one at home rise and come back: any way that begins where
    /// it is seen.
    void FlyHome(std::size_t pile, long position, const Flight& flight);
    /// Flies a card any way, after which it lies at its home.
    void FlyAlong(std::size_t pile, long position, const Way& way, int frames, bool shadow);

    ///@{
    /// Cards that wait for their start fly off now; everything lies at its home at once.
    void StartWaiting();
    void FinishAll();
    ///@}
    ///@{
    /// True while a card flies, or waits to fly.
    bool IsMoving() const { return m_flights.NumInAir() > 0 || !m_waiting.empty(); }
    std::size_t NumInAir() const { return m_flights.NumInAir(); }
    ///@}

    /// One frame: cards land, others start, the scene moves on. Composing comes after it. True when another frame is
    /// needed: something flies, or the last frame's pictures have to be erased. Cards that are held don't need one.
    bool Frame();

    /// What lies at a pixel, topmost first: cards in the air, then the piles from the last to the first, then their
    /// empty places.
    std::optional<Spot> SpotAt(Pixel pixel);

    ///@{
    /// Holds a card and all above it: they are picked up as they are seen and follow MoveHeld, by pixels from there,
    /// above everything else. They are let go when they are ordered elsewhere or by LetGo, which flies them home.
    void Hold(std::size_t pile, long position);
    void MoveHeld(int dx, int dy);
    void LetGo(const Flight& flight);
    bool IsHolding() const { return !m_held.empty(); }
    /// The screen area of the lowest card held, at rest size; empty when none is.
    render::Rectangle<int> HeldArea() const;
    ///@}

private:
    struct Waiting {
        std::uint64_t start; ///< table time, microseconds
        std::size_t from;
        long value;
        std::size_t to;
        Facing facing;
        Flight flight;
        bool toTop; ///< else it turns over where it lies
    };
    struct Held {
        Pile* pile;
        CObject* card;
        Placement start;
    };

    void RebuildPiles(const std::vector<PileLayout>& layouts);
    void Enqueue(Waiting order);
    void Execute(const Waiting& order);
    CObject* Transfer(std::size_t from, long position, std::size_t to, Facing facing);
    void Fly(Pile& pile, long position, const Flight& flight);
    void SlideDisplaced(Pile& pile);
    void StartDue();
    void ForgetHeld(const CObject& card);
    int Frames(double atNormalSpeed) const;

    TablePlane m_plane;
    CardSize m_size{};
    OwnedBitmap m_picture;
    OwnedBitmap m_target;
    CDialog m_dialog;
    Canvas m_pictureCanvas;
    Canvas m_flightCanvas;
    CCardTable m_scene;
    std::vector<std::unique_ptr<Pile>> m_piles;
    std::unique_ptr<ShadowCaster> m_shadows;
    Flights m_flights{m_scene};
    std::deque<Waiting> m_waiting; ///< their starts never fall
    std::vector<Held> m_held;      ///< bottom to top
    SheetGrid m_grid;
    double m_speed = kNormalSpeed;
    bool m_reducedMotion = false;
    Tick m_tick;
    std::uint64_t m_time = 0; ///< table time, microseconds
};

} // namespace cardkit
