// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace klondike
{

/// Moves worth making, best first, all legal; drawing or recycling comes last. A move that only prepares another, or
/// takes a card back from a foundation, is offered alone when nothing else helps. Empty when no move brings the game
/// on.
std::vector<Move> Hints(const Game& game);

/// The move that sends the top card of the waste or a column to a foundation; empty when it fits none, for any other
/// pile.
std::optional<Move> SendHome(const Game& game, std::size_t pile);

/// Where the top cards of the waste or a column go best: one card to a foundation, else to a column, the first that
/// fits. Empty when they fit nowhere, when a whole column would go to an empty one, and for any other pile.
std::optional<Move> BestMove(const Game& game, std::size_t pile, std::size_t count);

/// The next move to a foundation that cannot be regretted: no card to be played can need this one any more, since both
/// foundations of the other colour have reached the rank below it. Aces and twos are always safe.
std::optional<Move> SafeAutoMove(const Game& game);

/// True when nothing is left but sending the cards home: stock and waste are empty, every card shows its face.
/// False for a game that is won.
bool CanFinish(const Game& game);
/// The next of these moves, the one with the lowest card; empty unless CanFinish.
std::optional<Move> FinishMove(const Game& game);

/// True when it is proven that the game cannot be brought on any more, and so not won. A position too large to be
/// searched through gives false; see progress.h.
bool IsStuck(const Game& game);

} // namespace klondike
