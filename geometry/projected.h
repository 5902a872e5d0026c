// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/polygon.h"

/// A polygon rotated and projected for one use. Its coordinates go back at the end of the scope, also when the use
/// fails.
class Projected
{
public:
    Projected(CPolygon& polygon, CCamera* camera) : m_polygon(polygon)
    {
        m_polygon.RotatePolygon();
        m_polygon.Project(camera);
    }
    ~Projected() { m_polygon.ResetCoords(); }
    Projected(const Projected&) = delete;
    Projected& operator=(const Projected&) = delete;

private:
    CPolygon& m_polygon;
};
