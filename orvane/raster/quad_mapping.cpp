// SPDX-License-Identifier: MIT
#include "orvane/raster/quad_mapping.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace orvane::raster
{

namespace
{

double ToPixels(std::int32_t halfPixels)
{
    return halfPixels * 0.5;
}

/// The difference of two coordinates in half pixels, exact.
double Difference(std::int32_t to, std::int32_t from)
{
    return static_cast<double>(std::int64_t{to} - from);
}

bool IsParallelogram(const Quad& quad)
{
    return std::int64_t{quad[0].x} + quad[2].x == std::int64_t{quad[1].x} + quad[3].x &&
           std::int64_t{quad[0].y} + quad[2].y == std::int64_t{quad[1].y} + quad[3].y;
}

bool IsWhole(double value)
{
    return value == std::floor(value) && std::abs(value) < std::numeric_limits<std::int32_t>::max();
}

} // namespace

QuadMapping::QuadMapping(const Quad& quad, const TexelCorners& texels)
{
    for (const Corner corner : quad) {
        m_middleX += ToPixels(corner.x) / 4;
        m_middleY += ToPixels(corner.y) / 4;
    }
    if (IsStrictlyConvex(quad)) {
        SetProjective(quad, texels);
    } else {
        SetTriangles(quad, texels);
    }
}

// With s and t the coordinates of the unit square, s vanishes on the edge 0-3 and t on the edge 0-1, so that
// s = a * L03 / w and t = b * L01 / w, where L03 and L01 are the (doubled, signed) areas that a point spans with these
// edges. s = t = 1 at corner 2, where w is set to 1, gives a and b; s = 1 at corner 1 and t = 1 at corner 3 give w
// there, and three values fix the linear w; at corner 0 it comes to L013 / L123. All areas are exact and positive, so
// that nothing cancels. They are in half pixels and slopes in pixels: hence each factor 2.
void QuadMapping::SetProjective(const Quad& quad, const TexelCorners& texels)
{
    const double area012 = TwiceArea(quad[0], quad[1], quad[2]).ToDouble();
    const double area013 = TwiceArea(quad[0], quad[1], quad[3]).ToDouble();
    const double area023 = TwiceArea(quad[0], quad[2], quad[3]).ToDouble();
    const double area123 = TwiceArea(quad[1], quad[2], quad[3]).ToDouble();
    const double w1 = area013 / area023;
    const double w3 = area013 / area012;
    const double w0 = area013 / area123;
    m_leastWeight = std::min({w0, w1, 1.0, w3}) / 2;
    const bool affine = IsParallelogram(quad);
    if (!affine) {
        m_plane.w = LinearWeight(quad, w1, w3, area123);
    }
    const Linear& w = m_plane.w;
    const double x0 = ToPixels(quad[0].x);
    const double y0 = ToPixels(quad[0].y);

    const TexelPoint origin = texels[0];
    const TexelPoint alongS{texels[1].u - origin.u, texels[1].v - origin.v};
    const TexelPoint alongT{texels[3].u - origin.u, texels[3].v - origin.v};
    const TexelPoint bend{texels[2].u - texels[1].u - alongT.u, texels[2].v - texels[1].v - alongT.v};
    const bool bent = bend.u != 0 || bend.v != 0;

    const auto numerator = [&](double start, double s, double t) {
        Linear result;
        result.x = start * w.x + s * 2 * Difference(quad[3].y, quad[0].y) / area023 -
                   t * 2 * Difference(quad[1].y, quad[0].y) / area012;
        result.y = start * w.y - s * 2 * Difference(quad[3].x, quad[0].x) / area023 +
                   t * 2 * Difference(quad[1].x, quad[0].x) / area012;
        result.constant = start * w0 - result.x * x0 - result.y * y0;
        return result;
    };
    if (bent) {
        m_shape = Shape::ProjectiveThenBilinear;
        m_plane.u = numerator(0, 1, 0);
        m_plane.v = numerator(0, 0, 1);
        m_bilinear = {origin, alongS, alongT, bend};
    } else {
        m_shape = affine ? Shape::Affine : Shape::Projective;
        m_plane.u = numerator(origin.u, alongS.u, alongT.u);
        m_plane.v = numerator(origin.v, alongS.v, alongT.v);
    }
}

/// The w that is w1 at corner 1, 1 at corner 2 and w3 at corner 3.
QuadMapping::Linear QuadMapping::LinearWeight(const Quad& quad, double w1, double w3, double area123)
{
    const double sumX = w1 * Difference(quad[2].y, quad[3].y) + Difference(quad[3].y, quad[1].y) +
                        w3 * Difference(quad[1].y, quad[2].y);
    const double sumY = w1 * Difference(quad[3].x, quad[2].x) + Difference(quad[1].x, quad[3].x) +
                        w3 * Difference(quad[2].x, quad[1].x);
    Linear w{2 * sumX / area123, 2 * sumY / area123, 0};
    w.constant = 1 - w.At(ToPixels(quad[2].x), ToPixels(quad[2].y));
    return w;
}

// A covered point lies in exactly one of the two triangles, whichever diagonal is taken: the windings of both add up
// to that of the quadrilateral. The diagonal is the one inside a concave quadrilateral, so that both show.
void QuadMapping::SetTriangles(const Quad& quad, const TexelCorners& texels)
{
    m_shape = Shape::TwoTriangles;
    const bool firstDiagonal = TwiceArea(quad[0], quad[1], quad[2]) >= 0 && TwiceArea(quad[0], quad[2], quad[3]) >= 0;
    if (firstDiagonal) {
        m_triangles = {MakeTriangle(quad, texels, {0, 1, 2}), MakeTriangle(quad, texels, {0, 2, 3})};
    } else {
        m_triangles = {MakeTriangle(quad, texels, {1, 2, 3}), MakeTriangle(quad, texels, {1, 3, 0})};
    }
}

QuadMapping::Triangle QuadMapping::MakeTriangle(const Quad& quad, const TexelCorners& texels,
                                                const std::array<std::size_t, 3>& at)
{
    Triangle triangle;
    const double area = TwiceArea(quad[at[0]], quad[at[1]], quad[at[2]]).ToDouble();
    if (area == 0) {
        return triangle;
    }
    triangle.flat = false;
    for (std::size_t i = 0; i < 3; ++i) {
        const Corner next = quad[at[(i + 1) % 3]];
        const Corner last = quad[at[(i + 2) % 3]];
        Linear& weight = triangle.weights[i];
        weight.x = 2 * Difference(next.y, last.y) / area;
        weight.y = 2 * Difference(last.x, next.x) / area;
        weight.constant = -weight.x * ToPixels(next.x) - weight.y * ToPixels(next.y);
        const TexelPoint texel = texels[at[i]];
        const auto add = [&weight](Linear& sum, double value) {
            sum.x += weight.x * value;
            sum.y += weight.y * value;
            sum.constant += weight.constant * value;
        };
        add(triangle.plane.u, texel.u);
        add(triangle.plane.v, texel.v);
    }
    return triangle;
}

/// Positive inside, negative outside: the smallest of the three weights.
double QuadMapping::Triangle::DepthAt(double x, double y) const
{
    if (flat) {
        return -std::numeric_limits<double>::infinity();
    }
    return std::min({weights[0].At(x, y), weights[1].At(x, y), weights[2].At(x, y)});
}

const QuadMapping::Plane& QuadMapping::PlaneAt(double x, double y) const
{
    if (m_shape != Shape::TwoTriangles) {
        return m_plane;
    }
    const bool first = m_triangles[0].DepthAt(x, y) >= m_triangles[1].DepthAt(x, y);
    return m_triangles[first ? 0 : 1].plane;
}

double QuadMapping::Weight(const Linear& w, double x, double y) const
{
    return std::max(w.At(x, y), m_leastWeight);
}

TexelPoint QuadMapping::Bend(TexelPoint square) const
{
    const auto& [origin, s, t, both] = m_bilinear;
    const double product = square.u * square.v;
    return {origin.u + s.u * square.u + t.u * square.v + both.u * product,
            origin.v + s.v * square.u + t.v * square.v + both.v * product};
}

TexelPoint QuadMapping::PointAt(double x, double y) const
{
    const Plane& plane = PlaneAt(x, y);
    const double scale = 1 / Weight(plane.w, x, y);
    const TexelPoint point{plane.u.At(x, y) * scale, plane.v.At(x, y) * scale};
    return m_shape == Shape::ProjectiveThenBilinear ? Bend(point) : point;
}

void QuadMapping::MapRow(int x, int y, int count, TexelPoint* points) const
{
    const double py = y + 0.5;
    if (m_shape == Shape::Affine) {
        for (int i = 0; i < count; ++i) {
            points[i] = {m_plane.u.At(x + i + 0.5, py), m_plane.v.At(x + i + 0.5, py)};
        }
        return;
    }
    for (int i = 0; i < count; ++i) {
        points[i] = PointAt(x + i + 0.5, py);
    }
}

Footprint QuadMapping::FootprintAt(double x, double y) const
{
    const Plane& plane = PlaneAt(x, y);
    const double scale = 1 / Weight(plane.w, x, y);
    const double u = plane.u.At(x, y) * scale;
    const double v = plane.v.At(x, y) * scale;
    const Footprint flat{(plane.u.x - u * plane.w.x) * scale, (plane.u.y - u * plane.w.y) * scale,
                         (plane.v.x - v * plane.w.x) * scale, (plane.v.y - v * plane.w.y) * scale};
    if (m_shape != Shape::ProjectiveThenBilinear) {
        return flat;
    }
    const TexelPoint alongS{m_bilinear[1].u + m_bilinear[3].u * v, m_bilinear[1].v + m_bilinear[3].v * v};
    const TexelPoint alongT{m_bilinear[2].u + m_bilinear[3].u * u, m_bilinear[2].v + m_bilinear[3].v * u};
    return {alongS.u * flat.ux + alongT.u * flat.vx, alongS.u * flat.uy + alongT.u * flat.vy,
            alongS.v * flat.ux + alongT.v * flat.vx, alongS.v * flat.uy + alongT.v * flat.vy};
}

std::optional<TexelOffset> QuadMapping::Translation() const
{
    const auto& [u, v, w] = m_plane;
    const bool oneToOne = m_shape == Shape::Affine && u.x == 1 && u.y == 0 && v.x == 0 && v.y == 1;
    if (!oneToOne || !IsWhole(u.constant) || !IsWhole(v.constant)) {
        return std::nullopt;
    }
    return TexelOffset{static_cast<int>(u.constant), static_cast<int>(v.constant)};
}

} // namespace orvane::raster
