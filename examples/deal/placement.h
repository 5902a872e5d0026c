// SPDX-License-Identifier: MIT
#pragma once

namespace deal
{

/// Where a card is: its centre in world units, its rotation in degrees (z first, then y, then x), its scale.
struct Placement {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double rotX = 0.0;
    double rotY = 0.0;
    double rotZ = 0.0;
    double scale = 1.0;
};

enum class Facing { Down, Up };

/// The rotation about x that shows a resting card's back or its upright face.
constexpr double RestRotation(Facing facing)
{
    return facing == Facing::Up ? 180.0 : 0.0;
}

} // namespace deal
