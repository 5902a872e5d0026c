// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/quad_geometry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvane::raster
{

/// Neighbouring pixels of a row with their coverage, 0 to kFullCoverage: one value for all, or one each. The first and
/// the last are not 0.
struct CoverageRun {
    int begin = 0;
    int end = 0;
    const std::uint32_t* each = nullptr; ///< null: all have the same
    std::uint32_t all = 0;
};

/// How much of every pixel of a row lies inside a quadrilateral: the exact area, by the winding of the edges (a folded
/// quadrilateral counts on both sides of its fold; where a pixel holds parts of both sides, they count against each
/// other). Only pixels that an edge passes are worked out one by one.
class RowCoverage
{
public:
    /// Prepares for rows, with the columns left <= x < right. Throws std::bad_alloc when the row buffers must grow, and
    /// then changes nothing.
    void Start(const Quad& quad, int left, int right);
    /// Calls take(run) for the covered pixels of row y, from left to right. Runs are valid during the call.
    template <typename Take> void ForEachRun(int y, const Take& take)
    {
        CollectRuns(y);
        for (std::size_t i = 0; i < m_runCount; ++i) {
            take(m_runs[i]);
        }
    }

private:
    /// An edge, from its upper to its lower end, in pixels.
    struct Edge {
        double top = 0;
        double bottom = 0;
        double x = 0; ///< at the top
        double slope = 0;
        double leftmost = 0;
        double rightmost = 0;
        double winding = 0; ///< 1 where the inside begins on its right
        double XAt(double y) const;
    };
    /// What an edge gives to a pixel: the winding that it brings to all pixels further right, and to this one.
    struct Cell {
        double beyond = 0;
        double here = 0;
    };
    /// The pixels that an edge passes in the row; an edge between two pixels passes none.
    struct Zone {
        int begin = 0;
        int end = 0;
    };

    static constexpr std::size_t kEdges = 4;

    void CollectRuns(int y);
    void PassEdge(const Edge& edge, double top, double bottom);
    void AddZone(int begin, int end);
    Cell& CellAt(int x) { return m_cells[static_cast<std::size_t>(x - m_left)]; }
    void AddConstantRun(int begin, int end, double winding);
    double AddZoneRun(const Zone& zone, double winding);

    int m_left = 0;
    int m_right = 0;
    std::array<Edge, kEdges> m_edges;
    std::size_t m_edgeCount = 0;
    std::array<Zone, kEdges> m_zones; ///< sorted, without overlaps
    std::size_t m_zoneCount = 0;
    std::array<CoverageRun, 2 * kEdges + 1> m_runs; ///< one each zone, and before, between and behind them
    std::size_t m_runCount = 0;
    std::vector<Cell> m_cells; ///< one a column and one more; all zero between rows
    std::vector<std::uint32_t> m_coverage;
};

} // namespace orvane::raster
