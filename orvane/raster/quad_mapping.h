// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/quad_geometry.h"

#include <array>
#include <cstddef>
#include <optional>

namespace orvane::raster
{

/// A point of a picture, in texels; texel centres at + 0.5.
struct TexelPoint {
    double u = 0;
    double v = 0;
};

/// The texel of pixel (x, y) is (x + columns, y + rows).
struct TexelOffset {
    int columns = 0;
    int rows = 0;
};

using TexelCorners = std::array<TexelPoint, 4>;

/// How far the point of the picture moves for one pixel of the target: the footprint of a pixel.
struct Footprint {
    double ux = 0;
    double uy = 0;
    double vx = 0;
    double vy = 0;
};

/// In perspective, pixels of a square tile this wide share the footprint at its middle.
inline constexpr int kFootprintTile = 16;

/// Maps pixels of the target to points of the picture, corner to corner.
///
/// A strictly convex quadrilateral has the projective map of the unit square, followed by the bilinear one from the
/// square to the picture (for a rectangle or parallelogram of texels that one is linear, and the whole is projective).
/// Any other one, where the projective map has a pole inside, is cut into two triangles along a diagonal, each mapped
/// by its corners: both meet in the diagonal. Results are finite wherever the target is; far outside the
/// quadrilateral they mean nothing.
class QuadMapping
{
public:
    /// (x, y, 1) . coefficients.
    struct Linear {
        double x = 0;
        double y = 0;
        double constant = 0;
        double At(double px, double py) const { return x * px + y * py + constant; }
    };
    /// The point (u / w, v / w).
    struct Plane {
        Linear u;
        Linear v;
        Linear w{0, 0, 1};
    };

    QuadMapping(const Quad& quad, const TexelCorners& texels);

    /// The points at the centres of count pixels of row y, from column x.
    void MapRow(int x, int y, int count, TexelPoint* points) const;
    Footprint FootprintAt(double x, double y) const;
    /// The footprint at the middle of a tile of pixels, given by its number across and down.
    Footprint TileFootprint(int column, int row) const
    {
        return FootprintAt((column + 0.5) * kFootprintTile, (row + 0.5) * kFootprintTile);
    }
    /// The footprint at the middle of the corners.
    Footprint MiddleFootprint() const { return FootprintAt(m_middleX, m_middleY); }
    /// True when every pixel has the same footprint.
    bool IsAffine() const { return m_shape == Shape::Affine; }
    /// The map where it is one projective map, or null.
    const Plane* ProjectivePlane() const
    {
        return m_shape == Shape::Affine || m_shape == Shape::Projective ? &m_plane : nullptr;
    }
    /// A lower bound of Plane::w inside a projective quadrilateral, which falls to 0 only outside.
    double LeastWeight() const { return m_leastWeight; }
    /// Present when pixels fall on texels one to one, upright.
    std::optional<TexelOffset> Translation() const;

private:
    enum class Shape { Affine, Projective, ProjectiveThenBilinear, TwoTriangles };

    /// A triangle's map, and for each of its corners the weight that is 1 there and 0 on the opposite side.
    struct Triangle {
        Plane plane;
        std::array<Linear, 3> weights;
        bool flat = true;
        double DepthAt(double x, double y) const;
    };

    void SetProjective(const Quad& quad, const TexelCorners& texels);
    static Linear LinearWeight(const Quad& quad, double w1, double w3, double area123);
    void SetTriangles(const Quad& quad, const TexelCorners& texels);
    static Triangle MakeTriangle(const Quad& quad, const TexelCorners& texels, const std::array<std::size_t, 3>& at);

    const Plane& PlaneAt(double x, double y) const;
    TexelPoint PointAt(double x, double y) const;
    double Weight(const Linear& w, double x, double y) const;
    TexelPoint Bend(TexelPoint square) const;

    Shape m_shape = Shape::Affine;
    Plane m_plane;
    double m_leastWeight = 0; ///< of Plane::w, which falls to 0 only outside the quadrilateral
    std::array<Triangle, 2> m_triangles;
    std::array<TexelPoint, 4> m_bilinear; ///< factors of 1, s, t and s * t
    double m_middleX = 0;
    double m_middleY = 0;
};

} // namespace orvane::raster
