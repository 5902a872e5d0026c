// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <string>

namespace klondike
{

/// The name of a pile in commands: stock, waste, f1 to f4, t1 to t7; "?" out of range.
std::string PileName(std::size_t pile);
/// The table as plain text, a line a pile, each card as rank and suit (10h, Ks); ## is face down.
std::string Describe(const Game& game);

} // namespace klondike
