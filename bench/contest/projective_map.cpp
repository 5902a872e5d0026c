// SPDX-License-Identifier: MIT
#include "bench/contest/projective_map.h"

#include <cstddef>

namespace contest
{

namespace
{

/// Twice the signed area of a triangle.
double Twice(const Point& a, const Point& b, const Point& c)
{
    return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

} // namespace

ProjectiveMap ProjectiveMap::OfPicture(double width, double height, const Quad& quad)
{
    // With weights w of the homogeneous corners, the map of the unit square has the columns w1 p1 - w0 p0, w3 p3 - w0
    // p0 and w0 p0. The fourth corner then comes out as w1 p1 + w3 p3 - w0 p0, so that (-w0, w1, w3) are the
    // barycentric coordinates of corner 2 in the triangle of the others.
    const double whole = Twice(quad[0], quad[1], quad[3]);
    const double weight0 = -Twice(quad[1], quad[3], quad[2]) / whole;
    const double weight1 = Twice(quad[0], quad[2], quad[3]) / whole;
    const double weight3 = Twice(quad[0], quad[1], quad[2]) / whole;
    const auto fillRow = [&](double* row, double corner0, double corner1, double corner3) {
        row[0] = (weight1 * corner1 - weight0 * corner0) / width;
        row[1] = (weight3 * corner3 - weight0 * corner0) / height;
        row[2] = weight0 * corner0;
    };
    ProjectiveMap map;
    fillRow(&map.m_rows[0], quad[0].x, quad[1].x, quad[3].x);
    fillRow(&map.m_rows[3], quad[0].y, quad[1].y, quad[3].y);
    fillRow(&map.m_rows[6], 1.0, 1.0, 1.0);
    return map;
}

ProjectiveMap ProjectiveMap::Inverse() const
{
    ProjectiveMap inverse;
    const ProjectiveMap& map = *this;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const int rowA = (column + 1) % 3;
            const int rowB = (column + 2) % 3;
            const int columnA = (row + 1) % 3;
            const int columnB = (row + 2) % 3;
            inverse.m_rows[static_cast<std::size_t>(row * 3 + column)] =
                map(rowA, columnA) * map(rowB, columnB) - map(rowA, columnB) * map(rowB, columnA);
        }
    }
    const double determinant = map(0, 0) * inverse(0, 0) + map(0, 1) * inverse(1, 0) + map(0, 2) * inverse(2, 0);
    for (double& value : inverse.m_rows) {
        value /= determinant;
    }
    return inverse;
}

Point ProjectiveMap::operator()(const Point& point) const
{
    const double depth = Row(2, point.x, point.y);
    return {Row(0, point.x, point.y) / depth, Row(1, point.x, point.y) / depth};
}

} // namespace contest
