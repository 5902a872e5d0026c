// SPDX-License-Identifier: MIT
#pragma once

class CObject;

/// What every card game on the card table writes again: pixels to table units, piles, flights, dragging. Everything
/// here uses the exported classes alone; a game may take single parts.
namespace cardkit
{

/// Where a card is: its centre in world units, its rotation in degrees (z first, then y, then x), its scale.
struct Placement {
    ///@{
    /// The values, in that order.
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double rotX = 0.0;
    double rotY = 0.0;
    double rotZ = 0.0;
    double scale = 1.0;
    ///@}

    /// Equal in every value.
    friend bool operator==(const Placement&, const Placement&) = default;
};

/// Which side of a card is to be seen.
enum class Facing { Down, Up };

/// The rotation about x that shows a resting card's back or its upright face.
constexpr double RestRotation(Facing facing)
{
    return facing == Facing::Up ? 180.0 : 0.0;
}

/// The size at which cards are drawn at rest, pixels.
struct CardSize {
    ///@{
    /// At least 1.
    int width = 1;
    int height = 1;
    ///@}

    /// Equal in both sides.
    friend bool operator==(const CardSize&, const CardSize&) = default;
};

/// A pixel of the screen.
struct Pixel {
    ///@{
    /// From the top-left corner, to the right and down.
    int x = 0;
    int y = 0;
    ///@}

    /// The same pixel.
    friend bool operator==(const Pixel&, const Pixel&) = default;
};

///@{
/// Where a card object stands, and putting it there.
Placement PlacementOf(const CObject& card);
void Place(CObject& card, const Placement& placement);
///@}

} // namespace cardkit
