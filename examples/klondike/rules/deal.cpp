// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/deal.h"

#include <random>
#include <utility>

namespace klondike
{

namespace
{

/// SplitMix64: the standard library's distributions differ from one library to the next.
class Generator
{
public:
    explicit Generator(std::uint64_t seed) : m_state(seed) {}

    /// A number below the limit, each equally likely: the uneven tail of the range is drawn again.
    std::uint64_t Below(std::uint64_t limit)
    {
        const std::uint64_t tail = (0 - limit) % limit;
        std::uint64_t value = Next();
        while (value < tail) {
            value = Next();
        }
        return value % limit;
    }

private:
    std::uint64_t Next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    std::uint64_t m_state;
};

} // namespace

Piles Deal(std::uint64_t number)
{
    std::vector<Card> deck;
    deck.reserve(kNumCards);
    for (std::size_t i = 0; i < kNumCards; ++i) {
        deck.push_back({static_cast<std::uint8_t>(i % 13 + 1), static_cast<Suit>(i / 13), false});
    }
    Generator generator(number);
    for (std::size_t i = kNumCards - 1; i > 0; --i) {
        std::swap(deck[i], deck[static_cast<std::size_t>(generator.Below(i + 1))]);
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
