// SPDX-License-Identifier: MIT
#include "scene/depth_sort.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr std::size_t kInsertionRun = 16;

void InsertionSort(DepthEntry* entries, std::size_t count)
{
    for (std::size_t i = 1; i < count; ++i) {
        const DepthEntry entry = entries[i];
        std::size_t place = i;
        for (; place > 0 && entry.depth > entries[place - 1].depth; --place) {
            entries[place] = entries[place - 1];
        }
        entries[place] = entry;
    }
}

/// Merges two sorted neighbours. Only the first half is copied out, so the scratch holds half the entries at most.
void Merge(DepthEntry* entries, std::size_t middle, std::size_t count, DepthEntry* scratch)
{
    std::copy(entries, entries + middle, scratch);
    std::size_t left = 0;
    std::size_t right = middle;
    for (std::size_t out = 0; left < middle; ++out) {
        const bool rightFirst = right < count && entries[right].depth > scratch[left].depth;
        entries[out] = rightFirst ? entries[right++] : scratch[left++];
    }
}

void StableSort(DepthEntry* entries, std::size_t count, DepthEntry* scratch)
{
    if (count <= kInsertionRun) {
        InsertionSort(entries, count);
        return;
    }
    const std::size_t middle = count / 2;
    StableSort(entries, middle, scratch);
    StableSort(entries + middle, count - middle, scratch);
    // Most frames differ little from the one before: often the halves are in order.
    if (entries[middle].depth > entries[middle - 1].depth) {
        Merge(entries, middle, count, scratch);
    }
}

} // namespace

void SortFarToNear(DepthEntry* entries, std::size_t count, DepthEntry* scratch)
{
    DepthEntry* const end = entries + count;
    const auto isNoNumber = [](const DepthEntry& entry) { return std::isnan(entry.depth); };
    for (DepthEntry* run = entries; run != end;) {
        DepthEntry* const runEnd = std::find_if(run, end, isNoNumber);
        StableSort(run, static_cast<std::size_t>(runEnd - run), scratch);
        run = runEnd != end ? runEnd + 1 : end;
    }
}
