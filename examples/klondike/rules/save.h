// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace klondike
{

/// The longest text that can be a game, bytes.
inline constexpr std::size_t kMostSaveSize = std::size_t{1} << 20U;

/// A game as lines of text: the deal, the options, the time, the moves played and taken back, a checksum.
std::string ToText(const Game& game);

/// A text and the last line of a saved game, which finds damage, not forgery.
std::string WithChecksum(std::string_view text);

/// The game that ToText wrote: its moves are played once more, so only a game that the rules allow can come out.
/// Throws std::runtime_error with one line for the player on any other text.
Game FromText(std::string_view text);

} // namespace klondike
