// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/layout.h"
#include "examples/klondike/rules/table.h"
#include "kit/table.h"

#include <cstddef>

namespace klondike
{

/// The keyboard's place on the table: a pile, and how many of its top cards are meant.
class Cursor
{
public:
    enum class Direction { Left, Right, Up, Down };

    std::size_t Pile() const { return m_pile; }
    void GoTo(std::size_t pile);

    /// Goes to the next pile as it lies on the screen, around its row's ends; up and down first through the cards of a
    /// column that show their faces, then to the other row.
    void Step(Direction direction, const Piles& piles, const Layout& layout);
    /// Its place: position 0 in an empty pile. What is played away takes the cursor to what is left.
    cardkit::Spot Place(const Piles& piles) const;

private:
    std::size_t m_pile = kStock;
    std::size_t m_count = 1; ///< at least 1
};

} // namespace klondike
