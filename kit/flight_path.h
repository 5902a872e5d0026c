// SPDX-License-Identifier: MIT
#pragma once

#include "kit/placement.h"
#include "kit/table_plane.h"

#include <functional>
#include <memory>

class C3DMoveList;

namespace cardkit
{

/// How a card gets from one placement to another.
struct FlightStyle {
    double arch = 0.0;  ///< height towards the viewer in the middle of the flight, world units
    double bow = 0.0;   ///< sideways in the middle of the flight, parts of its length; positive bends to the left
    double bank = 0.0;  ///< tilt along the flight in its middle, degrees; positive raises the trailing edge
    double twist = 0.0; ///< rotation in the card's own plane in the middle of the flight, degrees
};

/// A curved way through the air that starts where the card is seen, at rest or in flight, and ends at rest. When the
/// two ends show different sides of the card, it turns over in the middle part, where it is clear of the table.
class FlightPath
{
public:
    /// The plane is copied.
    FlightPath(const TablePlane& plane, const Placement& from, const Placement& to, const FlightStyle& style);

    /// The placement at a progress of 0 to 1.
    Placement At(double progress) const;
    /// True when its two ends show different sides of the card, or neither side fully.
    bool TurnsOver() const { return m_turnsOver; }

private:
    TablePlane m_plane;
    Placement m_from;
    Placement m_to;
    FlightStyle m_style;
    double m_length;           ///< of the flight in the plane, world units
    double m_directionX = 0.0; ///< unit length
    double m_directionY = 0.0;
    bool m_turnsOver;
};

/// Where something is at a progress of 0 to 1.
using Way = std::function<Placement(double progress)>;

/// Moves that show the placements of a way in that many frames (at least 1), the first frame at progress 0, the last at
/// progress 1. The list has no target yet.
std::unique_ptr<C3DMoveList> MakeMoves(const Way& way, int frames);

} // namespace cardkit
