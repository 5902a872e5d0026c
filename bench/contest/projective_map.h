// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/quad.h"

#include <array>
#include <cstddef>

namespace contest
{

/// A projective map of the plane. Point (x, y) goes to (X / W, Y / W), where (X, Y, W) = rows of the matrix times
/// (x, y, 1).
class ProjectiveMap
{
public:
    /// The map that takes the corners of a picture of that size, in texels, to those of the quad, which has three
    /// corners that are not in line.
    static ProjectiveMap OfPicture(double width, double height, const Quad& quad);

    /// The way back, scaled so that W is positive where this map's is.
    ProjectiveMap Inverse() const;

    double operator()(int row, int column) const { return m_rows[static_cast<std::size_t>(row * 3 + column)]; }
    /// One of X, Y and W.
    double Row(int row, double x, double y) const
    {
        return (*this)(row, 0) * x + (*this)(row, 1) * y + (*this)(row, 2);
    }
    Point operator()(const Point& point) const;

private:
    std::array<double, 9> m_rows{};
};

} // namespace contest
