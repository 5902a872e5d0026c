// SPDX-License-Identifier: MIT
#include "kit/table_plane.h"

#include "cardtable/card_table.h"
#include "geometry/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cardkit
{

namespace
{

/// The camera stands this many screen widths above the table (as seen on a 16:9 screen): near enough that a card in the
/// air grows, far enough that a turning card is not distorted.
constexpr double kDistanceInWidths = 0.9;
constexpr double kAspect = 16.0 / 9.0;

/// The projection cuts fractions of half pixels off. A quarter pixel to the right and down keeps whole pixels whole,
/// whichever way the last bit of the arithmetic falls.
constexpr double kAim = 0.25;

double FieldOfView(int halfSide, double distance)
{
    return 2.0 * std::atan(halfSide / distance) * 180.0 / std::numbers::pi;
}

} // namespace

TablePlane::TablePlane(int width, int height)
    : m_width(std::max(width, 2)), m_height(std::max(height, 2)),
      m_distance(std::round(kDistanceInWidths * std::max<double>(m_width, m_height * kAspect)))
{
}

void TablePlane::Apply(CCardTable& table) const
{
    // The projection's centre is a whole pixel, half the side cut off: so is the plane's.
    SetCameraFOV(FieldOfView(m_width / 2, m_distance), FieldOfView(m_height / 2, m_distance));
    table.GetActiveCamera()->SetPosition(0.0, 0.0, -m_distance);
}

Placement TablePlane::Resting(Pixel topLeft, CardSize size, Facing facing) const
{
    Placement placement;
    placement.x = topLeft.x + size.width / 2.0 + kAim - m_width / 2;
    placement.y =
        -(topLeft.y + size.height / 2.0 + kAim - m_height / 2); // y points up in the world, down on the screen
    placement.rotX = RestRotation(facing);
    return placement;
}

Pixel TablePlane::TopLeft(const Placement& placement, CardSize size) const
{
    const double seen = 1.0 / Shrinkage(placement.z);
    return {static_cast<int>(std::lround(placement.x * seen + m_width / 2 - kAim - size.width / 2.0)),
            static_cast<int>(std::lround(-placement.y * seen + m_height / 2 - kAim - size.height / 2.0))};
}

Placement TablePlane::ToPlane(Pixel pixel) const
{
    Placement placement;
    placement.x = pixel.x + 0.5 - m_width / 2;
    placement.y = m_height / 2 - (pixel.y + 0.5);
    return placement;
}

double TablePlane::HeightForScale(double scale) const
{
    return m_distance - m_distance / scale;
}

double TablePlane::Shrinkage(double z) const
{
    return (m_distance + z) / m_distance;
}

Placement TablePlane::SeenAt(const Placement& placement, double z) const
{
    const double factor = Shrinkage(z) / Shrinkage(placement.z);
    Placement seen = placement;
    seen.x *= factor;
    seen.y *= factor;
    seen.z = z;
    seen.scale *= factor;
    return seen;
}

Placement TablePlane::SeenUnscaled(const Placement& placement) const
{
    return SeenAt(placement, (m_distance + placement.z) / placement.scale - m_distance);
}

double TablePlane::Foremost() const
{
    constexpr double kNearness = 0.7; // of the way to the camera; flights stay far below
    return -kNearness * m_distance;
}

} // namespace cardkit
