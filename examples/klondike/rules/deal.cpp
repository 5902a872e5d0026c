// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/deal.h"

#include "examples/common/shuffle.h"

#include <random>
#include <utility>

namespace klondike
{

namespace
{

Card CardOf(long number)
{
    return {static_cast<std::uint8_t>(number % 13 + 1), static_cast<Suit>(number / 13), false};
}

} // namespace

Piles Deal(std::uint64_t number)
{
    std::vector<Card> deck;
    deck.reserve(kNumCards);
    for (const long card : common::ShuffledDeck(static_cast<int>(kNumCards), number)) {
        deck.push_back(CardOf(card));
    }
    Piles piles;
    for (std::size_t row = 0; row < kNumTableau; ++row) {
        for (std::size_t column = row; column < kNumTableau; ++column) {
            std::vector<Card>& pile = piles[kFirstTableau + column];
            pile.push_back(deck.back());
            pile.back().faceUp = row == column;
            deck.pop_back();
        }
    }
    piles[kStock] = std::move(deck);
    return piles;
}

std::uint64_t RandomDealNumber()
{
    std::random_device source;
    return std::uniform_int_distribution<std::uint64_t>()(source);
}

} // namespace klondike
