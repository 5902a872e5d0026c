// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace common
{

/// The numbers 0 to count - 1 in an order that depends on the seed alone, the same on every machine and compiler.
std::vector<long> ShuffledDeck(int count, std::uint64_t seed);

} // namespace common
