// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/table.h"

namespace klondike
{

bool FitsFoundation(const Card& card, const std::vector<Card>& pile)
{
    return pile.empty() ? card.rank == 1 : card.suit == pile.back().suit && card.rank == pile.back().rank + 1;
}

bool FitsTableau(const Card& card, const std::vector<Card>& pile)
{
    return pile.empty()
               ? card.rank == 13
               : pile.back().faceUp && card.IsRed() != pile.back().IsRed() && card.rank + 1 == pile.back().rank;
}

void MoveTop(std::vector<Card>& from, std::vector<Card>& to, std::size_t count)
{
    const auto first = from.end() - static_cast<std::ptrdiff_t>(count);
    to.insert(to.end(), first, from.end());
    from.erase(first, from.end());
}

} // namespace klondike
