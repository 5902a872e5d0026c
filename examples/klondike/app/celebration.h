// SPDX-License-Identifier: MIT
#pragma once

#include "kit/table.h"

#include <cstddef>
#include <vector>

namespace klondike
{

/// A won game's cards rise from their piles one after the other, circle over the table in perspective, and come to rest
/// where they were.
class Celebration
{
public:
    /// The table outlives it; nothing happens before Begin.
    explicit Celebration(cardkit::Table& table) : m_table(table) {}

    /// Every card that lies on these piles takes part, turn by turn from their tops. With instant flights or reduced
    /// motion it is over at once.
    void Begin(const std::vector<std::size_t>& piles);
    /// Before each frame of the table.
    void Frame();
    /// The cards lie on their piles at once.
    void End();
    /// True from Begin until the last card is down.
    bool IsRunning() const { return m_running; }

private:
    void Launch(const cardkit::Spot& spot);

    cardkit::Table& m_table;
    std::vector<cardkit::Spot> m_order;
    std::size_t m_next = 0;
    int m_frame = 0;
    bool m_running = false;
};

} // namespace klondike
