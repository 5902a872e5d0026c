// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/raster/texel_source.h"

#include <cstdint>

namespace orvane::raster
{

/// Brings pictures into the cache before they are drawn. A turned picture is read across its rows, each texel far from
/// the one before: where it comes from memory, every read waits. Read once from end to end, it comes several times as
/// fast, since the machine sees what is read next.
class CacheWarmer
{
public:
    /// For a quadrilateral of so many pixels. Does nothing for the source of the time before, for one that no cache
    /// near a core holds, and for one of which the pixels show little.
    void Read(const TexelSource& source, std::int64_t pixels);

private:
    const std::uint32_t* m_latest = nullptr; ///< only compared
};

} // namespace orvane::raster
