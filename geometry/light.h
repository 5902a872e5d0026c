// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"

/// A light and its projection plane, kept for the game; no drawing of the library reads it. Positions are in world
/// units.
class CARDTABLE_API CLight
{
public:
    ///@{
    /// At (10.5, 23, 4) with the projection plane at 10.
    CLight();
    CLight(const CLight&) = default;
    CLight& operator=(const CLight&) = default;
    ///@}

    /// World units.
    void SetPosition(double x, double y, double z);
    /// The distance of the projection plane, world units.
    void SetProjectionPlane(double pp);

    ///@{
    /// One value of the position, or the projection plane.
    double X() const { return m_x; }
    double Y() const { return m_y; }
    double Z() const { return m_z; }
    double PP() const { return m_projectionPlane; }
    ///@}

private:
    double m_x = 10.5;
    double m_y = 23.0;
    double m_z = 4.0;
    double m_projectionPlane = 10.0;
};
