// SPDX-License-Identifier: MIT
#include "orvane/raster/row_coverage.h"

#include "orvane/raster/wide_colour.h"

#include <algorithm>
#include <cmath>

namespace orvane::raster
{

namespace
{

std::uint32_t CoverageOf(double winding)
{
    return static_cast<std::uint32_t>(std::min(std::abs(winding), 1.0) * kFullCoverage + 0.5);
}

} // namespace

double RowCoverage::Edge::XAt(double y) const
{
    return std::clamp(x + (y - top) * slope, leftmost, rightmost);
}

void RowCoverage::Start(const Quad& quad, int left, int right)
{
    const std::size_t columns = static_cast<std::size_t>(right - left);
    if (m_coverage.size() < columns) {
        m_cells.resize(columns + 1);
        m_coverage.resize(columns);
    }
    m_left = left;
    m_right = right;
    m_edgeCount = 0;
    for (std::size_t i = 0; i < quad.size(); ++i) {
        Corner upper = quad[i];
        Corner lower = quad[(i + 1) % quad.size()];
        if (upper.y == lower.y) {
            continue;
        }
        const bool upwards = upper.y > lower.y;
        if (upwards) {
            std::swap(upper, lower);
        }
        Edge& edge = m_edges[m_edgeCount++];
        edge.top = upper.y * 0.5;
        edge.bottom = lower.y * 0.5;
        edge.x = upper.x * 0.5;
        edge.slope = (lower.x * 0.5 - edge.x) / (edge.bottom - edge.top);
        edge.leftmost = std::min(upper.x, lower.x) * 0.5;
        edge.rightmost = std::max(upper.x, lower.x) * 0.5;
        edge.winding = upwards ? 1 : -1;
    }
}

void RowCoverage::CollectRuns(int y)
{
    m_zoneCount = 0;
    m_runCount = 0;
    for (std::size_t i = 0; i < m_edgeCount; ++i) {
        const double top = std::max<double>(m_edges[i].top, y);
        const double bottom = std::min<double>(m_edges[i].bottom, y + 1);
        if (top < bottom) {
            PassEdge(m_edges[i], top, bottom);
        }
    }
    double winding = 0;
    int x = m_left;
    for (std::size_t i = 0; i < m_zoneCount; ++i) {
        AddConstantRun(x, m_zones[i].begin, winding);
        winding = AddZoneRun(m_zones[i], winding);
        x = m_zones[i].end;
    }
    AddConstantRun(x, m_right, winding);
}

void RowCoverage::PassEdge(const Edge& edge, double top, double bottom)
{
    const auto [from, to] = std::minmax({edge.XAt(top), edge.XAt(bottom)});
    if (from >= m_right) {
        return;
    }
    const double height = (bottom - top) * edge.winding;
    if (to <= m_left || from == to) {
        const double place = std::max<double>(from, m_left);
        const int x = static_cast<int>(place);
        CellAt(x).beyond += height;
        CellAt(x).here += height * (x + 1 - place);
        AddZone(x, static_cast<int>(std::ceil(place)));
        return;
    }
    const double heightPerColumn = height / (to - from);
    const int begin = static_cast<int>(std::max<double>(from, m_left));
    const int end = static_cast<int>(std::ceil(std::min<double>(to, m_right)));
    if (from < m_left) {
        const double outside = (m_left - from) * heightPerColumn;
        CellAt(m_left).beyond += outside;
        CellAt(m_left).here += outside;
    }
    for (int x = begin; x < end; ++x) {
        const double enter = std::max<double>(from, x);
        const double leave = std::min<double>(to, x + 1);
        const double share = (leave - enter) * heightPerColumn;
        CellAt(x).beyond += share;
        CellAt(x).here += share * (x + 1 - (enter + leave) / 2);
    }
    AddZone(begin, end);
}

/// Puts the zone into its place and joins it with those that it meets.
void RowCoverage::AddZone(int begin, int end)
{
    Zone added{begin, end};
    std::size_t kept = 0;
    std::size_t place = 0;
    for (std::size_t i = 0; i < m_zoneCount; ++i) {
        const Zone zone = m_zones[i];
        if (zone.end < added.begin) {
            m_zones[kept++] = zone;
            place = kept;
        } else if (zone.begin > added.end) {
            m_zones[kept++] = zone;
        } else {
            added = {std::min(zone.begin, added.begin), std::max(zone.end, added.end)};
        }
    }
    std::copy_backward(m_zones.begin() + static_cast<std::ptrdiff_t>(place),
                       m_zones.begin() + static_cast<std::ptrdiff_t>(kept),
                       m_zones.begin() + static_cast<std::ptrdiff_t>(kept + 1));
    m_zones[place] = added;
    m_zoneCount = kept + 1;
}

void RowCoverage::AddConstantRun(int begin, int end, double winding)
{
    const std::uint32_t coverage = CoverageOf(winding);
    if (begin < end && coverage != 0) {
        m_runs[m_runCount++] = {begin, end, nullptr, coverage};
    }
}

/// Returns the winding to the right of the zone.
double RowCoverage::AddZoneRun(const Zone& zone, double winding)
{
    int begin = zone.end;
    int end = zone.begin;
    for (int x = zone.begin; x < zone.end; ++x) {
        Cell& cell = CellAt(x);
        const std::uint32_t coverage = CoverageOf(winding + cell.here);
        m_coverage[static_cast<std::size_t>(x - m_left)] = coverage;
        winding += cell.beyond;
        cell = {};
        if (coverage != 0) {
            begin = std::min(begin, x);
            end = x + 1;
        }
    }
    // An edge that stands exactly on the zone's right end has left its mark one pixel further.
    winding += CellAt(zone.end).beyond;
    CellAt(zone.end) = {};
    if (begin < end) {
        m_runs[m_runCount++] = {begin, end, m_coverage.data() + (begin - m_left), 0};
    }
    return winding;
}

} // namespace orvane::raster
