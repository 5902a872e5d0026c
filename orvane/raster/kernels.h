// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane::raster
{

/// A part of a picture that is drawn upright and unscaled, at whole or half pixels.
struct UprightJob {
    std::uint32_t* target;
    std::ptrdiff_t targetStride;
    int originX; ///< of column 0 and row 0 in the target
    int originY;
    const std::uint32_t* source; ///< the texel at column 0, row 0
    std::ptrdiff_t sourceStride;
    int width; ///< of the picture, in texels
    int height;
    bool halfColumns; ///< half a pixel further right: columns 0 and width are covered by half
    bool halfRows;
    int left; ///< the part to be drawn, in columns and rows of the quadrilateral
    int top;
    int right;
    int bottom;
};

/// An edge from its upper to its lower end, in pixels from the quadrilateral's origin.
struct JobEdge {
    double top;
    double bottom;
    double x; ///< at the top
    double slope;
    double least; ///< of x
    double most;
};

/// (x, y, 1) . coefficients, at the centre of pixel (x, y).
struct JobPlane {
    double x;
    double y;
    double constant;
};

/// The samples that are averaged for each pixel of a tile, in a grid around the pixel's middle; in the units of u and
/// v.
struct JobPattern {
    int columns;
    int rows;
    float firstU; ///< of the first sample, from the middle
    float firstV;
    float acrossU; ///< from column to column
    float acrossV;
    float downU; ///< from row to row
    float downV;
    float reachU; ///< the farthest from the middle
    float reachV;
};

/// A strictly convex quadrilateral with a projective map to the source. Pixels are counted from its origin, so that its
/// picture is the same wherever it lies.
struct QuadJob {
    static constexpr int kMaxEdges = 3;
    static constexpr int kTile = 16;
    /// Texels that places of 32 bits reach to either side, with 20 bits behind the point.
    static constexpr int kMostFixed = 2048;

    std::uint32_t* target;
    std::ptrdiff_t targetStride;
    int originX; ///< in the target
    int originY;
    int left; ///< the part of the target, in pixels from the origin
    int top;
    int right;
    int bottom;

    JobEdge leftEdges[kMaxEdges]; ///< from top to bottom, without gaps
    JobEdge rightEdges[kMaxEdges];

    const std::uint32_t* source;
    std::ptrdiff_t sourceStride;
    ///@{
    /// u / w and v / w are places in the source, times 2^15: from its corner, or from its first texel's centre when w
    /// is 1.
    JobPlane u;
    JobPlane v;
    ///@}
    JobPlane w;
    bool affine;    ///< w is 1
    bool fixedSize; ///< affine, and all that is read lies within kMostFixed of the first texel's centre
    ///@{
    /// Where texels are read, in the units of u and v: each with its right and lower neighbour lies in the source.
    float leastU;
    float leastV;
    float mostU;
    float mostV;
    ///@}
    float leastW; ///< w falls to 0 only outside the quadrilateral

    /// For samples all over a pixel's footprint, else null. Where w is 1 one pattern serves all, else there is one for
    /// each tile of kTile columns from the origin, and the job holds rows of one row of tiles alone.
    const JobPattern* patterns;
    ///@{
    /// The borders of what is read, in the units of u and v: a sample counts as far as the square of a texel around it
    /// lies inside.
    float borderLeastU;
    float borderLeastV;
    float borderMostU;
    float borderMostV;
    ///@}
};

/// What was drawn, in pixels from the origin; empty when right is not greater than left.
struct DrawnArea {
    int left;
    int top;
    int right;
    int bottom;
};

/// The inner loops, built once for every instruction set.
struct Kernels {
    const char* name;
    void (*blendRow)(std::uint32_t* destination, const std::uint32_t* source, int count);
    void (*drawUpright)(const UprightJob& job);
    DrawnArea (*drawQuad)(const QuadJob& job);
};

/// Those of the chosen instruction set.
const Kernels& CurrentKernels();

} // namespace orvane::raster
