// SPDX-License-Identifier: MIT
#pragma once

#include "kit/placement.h"

class C3DMoveList;
class CCardTable;

namespace cardkit
{

class FlightPath;

/// The smallest area, in square pixels, with which a card of that size (pixels at rest) is drawn in any frame of the
/// moves; 0 when it stands exactly edge-on in one of them, and would be missing from that frame. Rewinds the moves.
double SmallestDrawnArea(CCardTable& table, C3DMoveList& moves, CardSize size);

/// A number of frames, at least the one wanted and little more, in which a card flies along the path without standing
/// edge-on: of the nearest numbers the one whose frames pass that position at the greatest distance.
int FramesNeverEdgeOn(CCardTable& table, const FlightPath& path, int wanted, CardSize size);

} // namespace cardkit
