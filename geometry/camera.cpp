// SPDX-License-Identifier: MIT
#include "geometry/camera.h"

CCamera::CCamera() = default;

void CCamera::SetPosition(double x, double y, double z)
{
    m_x = x;
    m_y = y;
    m_z = z;
}

void CCamera::SetRotate(double x, double y, double z)
{
    m_xRotate = x;
    m_yRotate = y;
    m_zRotate = z;
}

void CCamera::GetPosition(double& x, double& y, double& z) const
{
    x = m_x;
    y = m_y;
    z = m_z;
}

void CCamera::GetRotate(double& x, double& y, double& z) const
{
    x = m_xRotate;
    y = m_yRotate;
    z = m_zRotate;
}
