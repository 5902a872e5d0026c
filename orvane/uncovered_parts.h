// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/area.h"

#include <vector>

namespace orvane
{

/// The parts of an area that nothing opaque covers yet, as disjoint areas. Keeps its working memory.
class UncoveredParts
{
public:
    UncoveredParts();

    /// Starts anew, with all of the area; it is not empty.
    void Reset(const Area& area) { m_parts.assign(1, area); }
    /// Takes the cover away. Does nothing when that would leave more parts than are worth telling apart.
    void Cover(const Area& cover);

    bool IsEmpty() const { return m_parts.empty(); }
    const std::vector<Area>& Parts() const { return m_parts; }

private:
    std::vector<Area> m_parts;
    std::vector<Area> m_nextParts;
};

} // namespace orvane
