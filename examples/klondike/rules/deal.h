// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/table.h"

#include <cstdint>

namespace klondike
{

/// Lays out a deal. Every number is a deal, and the same one on every machine.
Piles Deal(std::uint64_t number);
/// The number of a deal nobody has chosen. Throws std::exception where the system has no source of chance.
std::uint64_t RandomDealNumber();

} // namespace klondike
