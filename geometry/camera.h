// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"

/// Where the viewer stands and looks. Positions are in world units, angles in degrees. A plain record of six values,
/// copied freely; who gives a camera to a scene, an object or a move keeps it alive as long as it is in use there.
class CARDTABLE_API CCamera
{
public:
    ///@{
    /// At the origin, looking along +z: all six values 0.
    CCamera();
    ~CCamera() = default;
    CCamera(const CCamera&) = default;
    CCamera& operator=(const CCamera&) = default;
    ///@}

    /// World units; any values are kept.
    void SetPosition(double x, double y, double z);
    ///@{
    /// Degrees about x, y and z; any values are kept.
    void SetRotate(double x, double y, double z);
    void GetPosition(double& x, double& y, double& z) const;
    void GetRotate(double& x, double& y, double& z) const;
    ///@}

    ///@{
    /// One value of the position, world units, or of the rotation, degrees.
    double X() const { return m_x; }
    double Y() const { return m_y; }
    double Z() const { return m_z; }
    double XRotate() const { return m_xRotate; }
    double YRotate() const { return m_yRotate; }
    double ZRotate() const { return m_zRotate; }
    ///@}

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
    double m_xRotate = 0.0;
    double m_yRotate = 0.0;
    double m_zRotate = 0.0;
};
