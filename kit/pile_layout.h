// SPDX-License-Identifier: MIT
#pragma once

#include "kit/placement.h"

#include <limits>
#include <vector>

namespace cardkit
{

/// How the cards of a pile lie. All lengths are pixels; the bottom card's top-left pixel is the pile's place. A card is
/// one step away from the card below it: a longer one from a card that shows its face. Negative steps go left and up.
struct PileLayout {
    /// Of the bottom card.
    Pixel place{};
    ///@{
    /// The step from a card that lies face up, and from one that lies face down.
    Pixel stepUp{};
    Pixel stepDown{};
    ///@}
    /// Cards that lie exactly on each other before the next step, at least 1: a stock's thickness shows by a pixel
    /// every few cards.
    int cardsAStep = 1;
    /// Only so many cards on top lie apart, as on a waste of three; the others lie on the bottom card.
    int apart = std::numeric_limits<int>::max();
    ///@{
    /// The most that the top card may lie away from the bottom card in each direction. A pile that grows beyond it is
    /// squeezed: all its steps shrink alike.
    int roomX = std::numeric_limits<int>::max();
    int roomY = std::numeric_limits<int>::max();
    ///@}

    /// Equal in every value.
    friend bool operator==(const PileLayout&, const PileLayout&) = default;
};

///@{
/// The three common ones: all cards on each other, fanned down and fanned right.
PileLayout Squared(Pixel place);
PileLayout FannedDown(Pixel place, int stepUp, int stepDown, int room);
PileLayout FannedRight(Pixel place, int step, int room);
///@}

/// Where each card of a pile rests, bottom to top: its top-left pixel. The same input gives the same places: a home is
/// computed, never remembered.
void ComputeHomes(const PileLayout& layout, const std::vector<Facing>& facings, std::vector<Pixel>& homes);
/// Where the next card of such a pile would rest.
Pixel NextHome(const PileLayout& layout, const std::vector<Facing>& facings);

} // namespace cardkit
