// SPDX-License-Identifier: MIT
#include "geometry/light.h"

CLight::CLight() = default;

void CLight::SetPosition(double x, double y, double z)
{
    m_x = x;
    m_y = y;
    m_z = z;
}

void CLight::SetProjectionPlane(double pp)
{
    m_projectionPlane = pp;
}
