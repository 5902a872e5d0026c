// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <cstdint>
#include <random>
#include <vector>

namespace klondike
{

/// Every legal move, found by asking about all there could be.
std::vector<Move> LegalMoves(const Game& game);

/// A game in which so many random moves were played, fewer where none was left.
Game RandomGame(std::uint64_t deal, const Options& options, int moves, std::mt19937& random);

/// A game in which the first hint was followed so many times, fewer where none was left.
Game HintedGame(std::uint64_t deal, const Options& options, std::size_t moves);

/// The first deal that its hints win, its moves played.
Game WonGame(const Options& options);

} // namespace klondike
