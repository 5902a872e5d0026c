// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/placement.h"

class CCardTable;

namespace deal
{

/// Maps pixels of the screen to the table's plane and back. The camera looks straight down on the plane z = 0, in which
/// one world unit is one pixel; negative z is nearer to the viewer. A card that lies in the plane is therefore drawn at
/// exactly its pixel size.
class TableView
{
public:
    /// The screen's size in pixels.
    TableView(int width, int height);

    /// Sets the process-wide projection and the table's camera. The host runs with the same size, the table has been
    /// initialised.
    void Apply(CCardTable& table) const;

    /// Where a card's centre lies in the plane when its picture's top-left pixel is (left, top).
    Placement Resting(int left, int top, int cardWidth, int cardHeight, Facing facing) const;
    /// The height above the plane, towards the viewer, at which things are drawn that many times as large.
    double HeightForScale(double scale) const;
    /// How much smaller things are drawn in the plane than at that z: what a place in the plane is multiplied by so
    /// that, moved to the z, it is seen at the same pixel.
    double Shrinkage(double z) const;

private:
    int m_centreX;
    int m_centreY;
    double m_distance; ///< from the camera to the plane, world units; also the focal length in pixels
};

} // namespace deal
