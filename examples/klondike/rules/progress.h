// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <optional>
#include <vector>

namespace klondike
{

/// Progress is what no later move takes back, and what every won game is made of: a card leaves the waste, a card is
/// turned over, or the foundations hold more cards than they ever did in this game.

/// The moves that are progress at once. Of several empty piles they name the first alone.
std::vector<Move> ProgressMoves(const Game& game);

/// What a search may use on the way to progress.
enum class Reach {
    Table,     ///< moves between the columns and to foundations
    Stock,     ///< and draws, and recyclings
    PullBacks, ///< and moves from a foundation back to a column: all there is
};

struct ProgressSearch {
    enum class Outcome { Found, None, Unknown };
    Outcome outcome = Outcome::Unknown;
    std::optional<Move> first; ///< the first move of a way to the progress found, as few moves between cards as can be
};

/// Looks for a way to progress. Unknown: it was not found among the first kMostPositions positions, and there are more.
ProgressSearch FindProgress(const Game& game, Reach reach);

/// Some tens of milliseconds and megabytes.
inline constexpr std::size_t kMostPositions = 10000;

} // namespace klondike
