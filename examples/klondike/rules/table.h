// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace klondike
{

enum class Suit : std::uint8_t { Clubs, Diamonds, Hearts, Spades };

/// A card and the side it shows. The rank runs from 1, the ace, to 13, the king.
struct Card {
    std::uint8_t rank = 1;
    Suit suit = Suit::Clubs;
    bool faceUp = false;

    bool IsRed() const { return suit == Suit::Diamonds || suit == Suit::Hearts; }
    bool operator==(const Card&) const = default;
};

/// Piles are numbered: the stock, the waste, four foundations, seven columns of the tableau.
inline constexpr std::size_t kStock = 0;
inline constexpr std::size_t kWaste = 1;
inline constexpr std::size_t kFirstFoundation = 2;
inline constexpr std::size_t kNumFoundations = 4;
inline constexpr std::size_t kFirstTableau = 6;
inline constexpr std::size_t kNumTableau = 7;
inline constexpr std::size_t kNumPiles = 13;
inline constexpr std::size_t kNumCards = 52;

constexpr bool IsFoundation(std::size_t pile)
{
    return pile >= kFirstFoundation && pile < kFirstTableau;
}
constexpr bool IsTableau(std::size_t pile)
{
    return pile >= kFirstTableau && pile < kNumPiles;
}

/// Each pile from its bottom card to its top card.
using Piles = std::array<std::vector<Card>, kNumPiles>;

/// Foundations start with an ace and rise in one suit.
bool FitsFoundation(const Card& card, const std::vector<Card>& pile);
/// Columns start with a king and fall in turning colours.
bool FitsTableau(const Card& card, const std::vector<Card>& pile);
/// Moves the top cards, their order kept. There must be as many.
void MoveTop(std::vector<Card>& from, std::vector<Card>& to, std::size_t count);

} // namespace klondike
