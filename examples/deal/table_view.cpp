// SPDX-License-Identifier: MIT
#include "examples/deal/table_view.h"

#include "cardtable/card_table.h"
#include "geometry/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace deal
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

double FieldOfView(double halfSide, double distance)
{
    return 2.0 * std::atan(halfSide / distance) * 180.0 / std::numbers::pi;
}

} // namespace

TableView::TableView(int width, int height)
    : m_centreX(width / 2), m_centreY(height / 2),
      m_distance(std::round(kDistanceInWidths * std::max<double>(width, height * kAspect)))
{
}

void TableView::Apply(CCardTable& table) const
{
    SetCameraFOV(FieldOfView(m_centreX, m_distance), FieldOfView(m_centreY, m_distance));
    table.GetActiveCamera()->SetPosition(0.0, 0.0, -m_distance);
}

Placement TableView::Resting(int left, int top, int cardWidth, int cardHeight, Facing facing) const
{
    Placement place;
    place.x = left + cardWidth / 2.0 + kAim - m_centreX;
    place.y = -(top + cardHeight / 2.0 + kAim - m_centreY); // y points up in the world, down on the screen
    place.rotX = RestRotation(facing);
    return place;
}

double TableView::HeightForScale(double scale) const
{
    return m_distance - m_distance / scale;
}

double TableView::Shrinkage(double z) const
{
    return (m_distance + z) / m_distance;
}

} // namespace deal
