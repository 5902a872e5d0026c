// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"
#include "orvane/disjoint_sweep.h"

#include <cstddef>
#include <vector>

namespace orvane
{

/// The areas of the screen that wait for composing.
class Damage
{
public:
    using Rectangles = DisjointSweep::Rectangles;

    /// Of a screen of that size, pixels.
    Damage(int width, int height);

    /// Adds an area, cut to the screen. Constant time on average. When memory runs out, the whole screen is damaged.
    void Add(const render::Rectangle<int>& area) noexcept;
    bool IsEmpty() const { return m_areas.empty(); }
    void Clear() { m_areas.clear(); }
    /// Moves the damage to the result, as disjoint rectangles sorted by y, then x. Throws std::bad_alloc and then
    /// changes nothing.
    void Take(Rectangles& result);

private:
    void Merge();

    int m_width;
    int m_height;
    Rectangles m_areas; ///< not empty each, in the screen, may overlap
    Rectangles m_merged;
    DisjointSweep m_sweep;
    std::size_t m_mergeFrom; ///< this many areas are worth merging: a screen may go uncomposed for hours
};

} // namespace orvane
