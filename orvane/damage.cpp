// SPDX-License-Identifier: MIT
#include "orvane/damage.h"

#include "orvane/area.h"

#include <algorithm>
#include <new>

namespace orvane
{

namespace
{

constexpr std::size_t kFirstMerge = 4096;

} // namespace

Damage::Damage(int width, int height) : m_width(width), m_height(height), m_mergeFrom(kFirstMerge)
{
    m_areas.reserve(64);
}

void Damage::Add(const render::Rectangle<int>& area) noexcept
{
    const Area visible = Intersection(AreaOf(area), AreaAt(0, 0, m_width, m_height));
    if (visible.IsEmpty()) {
        return;
    }
    try {
        m_areas.push_back(RectangleOf(visible));
        if (m_areas.size() >= m_mergeFrom) {
            Merge();
        }
    } catch (const std::bad_alloc&) {
        m_areas.clear();
        m_areas.push_back({0, 0, m_width, m_height});
    }
}

void Damage::Take(Rectangles& result)
{
    m_sweep.Run(m_areas, result);
    m_areas.clear();
    m_mergeFrom = kFirstMerge;
}

void Damage::Merge()
{
    m_sweep.Run(m_areas, m_merged);
    m_areas.swap(m_merged);
    // Half of the room is left free, so that merging stays cheap on average.
    m_mergeFrom = std::max(kFirstMerge, 2 * m_areas.size());
}

} // namespace orvane
