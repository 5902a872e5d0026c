// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"
#include "examples/klondike/text/command.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace klondike
{

/// A game played by commands: a line in, an answer out. The game may be played in other ways meanwhile.
class Conversation
{
public:
    /// With `describe` the table is printed at the start and after each change. Stream and game outlive it.
    Conversation(std::ostream& out, Game& game, bool describe) : m_out(out), m_game(game), m_describe(describe) {}

    /// Prints the table when it is to be described.
    void Begin() const;
    /// Follows a command. False: the player leaves.
    bool Answer(std::string_view line);
    /// Prints what a change has led to: the table when it is to be described, the end of the game.
    void TellChange() const;

private:
    bool Answer(const Command& command);
    void Play(const Command& command);
    void Finish();
    void Hint() const;
    void Report(bool changed, const char* otherwise) const;

    std::ostream& m_out;
    Game& m_game;
    bool m_describe;
};

/// Reads a line, and keeps no more of it than a command may be long. False at the end of the input.
bool ReadLine(std::istream& in, std::string& line);

/// Plays in a terminal: reads commands, a line each, to the end of the input or `quit`, and answers them. Returns the
/// program's exit code: 0, or 1 when the output cannot be written.
int RunText(std::istream& in, std::ostream& out, Game& game, bool describe);

} // namespace klondike
