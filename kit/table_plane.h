// SPDX-License-Identifier: MIT
#pragma once

#include "kit/placement.h"

class CCardTable;

namespace cardkit
{

/// Maps pixels of the screen to the table's plane and back. The camera looks straight down on the plane z = 0, in which
/// one world unit is one pixel; negative z is nearer to the viewer. A card that lies in the plane with its corner on a
/// pixel of the screen is therefore drawn at exactly its pixel size on whole pixels. Pixels left of the screen or above
/// it can be half a pixel off: the projection cuts towards zero.
class TablePlane
{
public:
    /// The screen's size in pixels; less than 2 counts as 2.
    TablePlane(int width, int height);

    ///@{
    /// The screen's size, pixels.
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    ///@}

    /// Sets the process-wide projection and the table's camera. The host runs with the same size, the table has been
    /// initialised. Called again after a change of size.
    void Apply(CCardTable& table) const;

    /// Where a card's centre lies in the plane when its picture's top-left pixel is there.
    Placement Resting(Pixel topLeft, CardSize size, Facing facing) const;
    /// The top-left pixel of a card whose centre is seen where this placement is; the reverse of Resting.
    Pixel TopLeft(const Placement& placement, CardSize size) const;
    /// The place in the plane that is seen in the middle of a pixel.
    Placement ToPlane(Pixel pixel) const;

    /// The height above the plane, towards the viewer, at which things are drawn that many times as large.
    double HeightForScale(double scale) const;
    /// How much smaller things are drawn in the plane than at that z: what a place in the plane is multiplied by so
    /// that, moved to the z, it is seen at the same pixel. The z is in front of the camera.
    double Shrinkage(double z) const;
    ///@{
    /// The same picture of a card nearer to the viewer or farther away: moved and scaled, it covers the same pixels. At
    /// a z of its own, or where its scale is 1.
    Placement SeenAt(const Placement& placement, double z) const;
    Placement SeenUnscaled(const Placement& placement) const;
    ///@}
    /// A z in front of everything that flies: cards held there are drawn last.
    double Foremost() const;

private:
    int m_width;
    int m_height;
    double m_distance; ///< from the camera to the plane, world units; also the focal length in pixels
};

} // namespace cardkit
