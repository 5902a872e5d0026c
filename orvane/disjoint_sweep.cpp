// SPDX-License-Identifier: MIT
#include "orvane/disjoint_sweep.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

namespace orvane
{

namespace
{

bool StandsBefore(const render::Rectangle<int>& a, const render::Rectangle<int>& b)
{
    return std::tie(a.y, a.x) < std::tie(b.y, b.x);
}

} // namespace

void DisjointSweep::Run(Rectangles& rectangles, Rectangles& result)
{
    result.clear();
    m_active.clear();
    m_open.clear();
    std::sort(rectangles.begin(), rectangles.end(), StandsBefore);
    FindBands(rectangles);

    auto next = rectangles.cbegin();
    for (const int y : m_bands) {
        const auto first = next;
        while (next != rectangles.cend() && next->y == y) {
            ++next;
        }
        Enter(first, next, y);
        EmitBand(y, result);
    }
    std::sort(result.begin(), result.end(), StandsBefore);
}

void DisjointSweep::FindBands(const Rectangles& rectangles)
{
    m_bands.clear();
    for (const auto& rectangle : rectangles) {
        m_bands.push_back(rectangle.y);
        m_bands.push_back(rectangle.y + rectangle.height);
    }
    std::sort(m_bands.begin(), m_bands.end());
    m_bands.erase(std::unique(m_bands.begin(), m_bands.end()), m_bands.end());
}

/// Lets the rectangles that start at y in, sorted by left as they come, and those that end there out.
void DisjointSweep::Enter(Rectangles::const_iterator first, Rectangles::const_iterator last, int y)
{
    m_nextActive.clear();
    const auto takeUpTo = [&](int left) {
        for (; first != last && first->x < left; ++first) {
            m_nextActive.push_back({first->x, first->x + first->width, y + first->height});
        }
    };
    for (const Active& active : m_active) {
        if (active.bottom <= y) {
            continue;
        }
        takeUpTo(active.left);
        m_nextActive.push_back(active);
    }
    for (; first != last; ++first) {
        m_nextActive.push_back({first->x, first->x + first->width, y + first->height});
    }
    m_active.swap(m_nextActive);
}

/// Joins the active rectangles into spans. A span that was in the band above as well grows on; the others of that band
/// are finished.
void DisjointSweep::EmitBand(int y, Rectangles& result)
{
    m_nextOpen.clear();
    auto open = m_open.cbegin();
    const auto finish = [&] {
        result.push_back({open->left, open->top, open->right - open->left, y - open->top});
        ++open;
    };
    for (std::size_t i = 0; i < m_active.size();) {
        const int left = m_active[i].left;
        int right = m_active[i].right;
        for (++i; i < m_active.size() && m_active[i].left <= right; ++i) {
            right = std::max(right, m_active[i].right);
        }

        while (open != m_open.cend() && open->left < left) {
            finish();
        }
        if (open != m_open.cend() && open->left == left && open->right == right) {
            m_nextOpen.push_back(*open++);
        } else {
            m_nextOpen.push_back({left, right, y});
        }
    }
    while (open != m_open.cend()) {
        finish();
    }
    m_open.swap(m_nextOpen);
}

} // namespace orvane
