// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <iosfwd>

namespace klondike
{

/// Plays in a terminal: reads commands, a line each, to the end of the input or `quit`, and answers them. With
/// `describe` the table is printed at the start and after each change. Returns the program's exit code: 0, or 1 when
/// the output cannot be written.
int RunText(std::istream& in, std::ostream& out, Game& game, bool describe);

} // namespace klondike
