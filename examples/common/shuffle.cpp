// SPDX-License-Identifier: MIT
#include "examples/common/shuffle.h"

#include <numeric>
#include <utility>

namespace common
{

namespace
{

/// SplitMix64. The generators of the standard library are fixed, its distributions and std::shuffle are not.
class Generator
{
public:
    explicit Generator(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t Next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

    /// 0 to bound - 1, each equally likely.
    std::uint64_t Below(std::uint64_t bound)
    {
        const std::uint64_t incomplete = (0 - bound) % bound; // values that would make the low results likelier
        std::uint64_t value = Next();
        while (value < incomplete) {
            value = Next();
        }
        return value % bound;
    }

private:
    std::uint64_t m_state;
};

} // namespace

std::vector<long> ShuffledDeck(int count, std::uint64_t seed)
{
    std::vector<long> deck(static_cast<std::size_t>(count));
    std::iota(deck.begin(), deck.end(), 0L);
    Generator generator(seed);
    for (std::size_t i = deck.size(); i > 1; --i) {
        std::swap(deck[i - 1], deck[generator.Below(i)]);
    }
    return deck;
}

} // namespace common
