// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

class CPolygon;

/// A visible polygon and its depth while a frame is sorted.
struct DepthEntry {
    double depth;
    CPolygon* polygon;
};

/// The scratch entries that SortFarToNear needs for count entries.
constexpr std::size_t DepthSortScratch(std::size_t count)
{
    return count / 2 + 1;
}

/// Sorts entries by depth, greatest first, as exchanging neighbours would until none is out of order: equal depths keep
/// their order, and an entry whose depth is not a number is never exchanged, so it stays where it is and nothing passes
/// it. Costs n log n; scratch has room for DepthSortScratch(count) entries and holds nothing afterwards.
void SortFarToNear(DepthEntry* entries, std::size_t count, DepthEntry* scratch);
