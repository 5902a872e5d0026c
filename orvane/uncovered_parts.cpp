// SPDX-License-Identifier: MIT
#include "orvane/uncovered_parts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orvane
{

namespace
{

/// Bounds what looking through the parts costs, for each of thousands of controls in a large area.
constexpr std::size_t kMostParts = 64;
/// A hole leaves this many parts around it at most.
constexpr std::size_t kMostAround = 4;

/// Pixels. Short rows take longer to paint than whole ones, of which some pixels are painted over later.
constexpr std::int64_t kLeastWidth = 128;

/// True for a narrow hole that does not go through the part from side to side.
bool IsNotWorthwhile(const Area& part, const Area& hole)
{
    return hole.right - hole.left < std::min(kLeastWidth, part.right - part.left);
}

void AddUnlessEmpty(std::vector<Area>& parts, const Area& part)
{
    if (!part.IsEmpty()) {
        parts.push_back(part);
    }
}

/// Adds what is left of a part without a hole that lies in it; the parts are as wide as possible.
void AddAround(std::vector<Area>& parts, const Area& part, const Area& hole)
{
    AddUnlessEmpty(parts, {part.left, part.top, part.right, hole.top});
    AddUnlessEmpty(parts, {part.left, hole.top, hole.left, hole.bottom});
    AddUnlessEmpty(parts, {hole.right, hole.top, part.right, hole.bottom});
    AddUnlessEmpty(parts, {part.left, hole.bottom, part.right, part.bottom});
}

} // namespace

UncoveredParts::UncoveredParts()
{
    m_parts.reserve(kMostAround * kMostParts);
    m_nextParts.reserve(kMostAround * kMostParts);
}

void UncoveredParts::Cover(const Area& cover)
{
    m_nextParts.clear();
    for (const Area& part : m_parts) {
        const Area hole = Intersection(part, cover);
        if (hole.IsEmpty() || IsNotWorthwhile(part, hole)) {
            m_nextParts.push_back(part);
        } else {
            AddAround(m_nextParts, part, hole);
        }
    }
    if (m_nextParts.size() <= kMostParts) {
        m_parts.swap(m_nextParts);
    }
}

} // namespace orvane
