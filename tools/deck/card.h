// SPDX-License-Identifier: MIT
#pragma once

#include "palette.h"

#include <array>

namespace deck
{

/// In the order of the sheet's rows.
enum class Suit { Clubs, Diamonds, Hearts, Spades };

inline constexpr std::array kSuits{Suit::Clubs, Suit::Diamonds, Suit::Hearts, Suit::Spades};

/// 1 is the ace, 11 to 13 are jack, queen and king.
using Rank = int;

inline constexpr Rank kAce = 1;
inline constexpr Rank kTen = 10;
inline constexpr Rank kJack = 11;
inline constexpr Rank kQueen = 12;
inline constexpr Rank kKing = 13;

constexpr Ink InkOf(Suit suit)
{
    return suit == Suit::Diamonds || suit == Suit::Hearts ? Ink::Red : Ink::Black;
}

/// Every drawing of a card is laid out on a card of this size, in card units, origin at the upper left corner; the
/// canvas is scaled to it beforehand.
inline constexpr double kCardWidth = 240.0;
inline constexpr double kCardHeight = 336.0;
inline constexpr double kCentreX = kCardWidth / 2.0;
inline constexpr double kCentreY = kCardHeight / 2.0;

} // namespace deck
