// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace klondike
{

/// What a player types.
struct Command {
    enum class Kind : std::uint8_t { Move, Draw, Undo, Redo, Hint, Auto, Home, New, Restart, Describe, Help, Quit };
    Kind kind = Kind::Help;
    std::size_t from = kStock;                        ///< Move, Home
    std::optional<std::size_t> to = std::nullopt;     ///< Move; empty: the foundation that fits
    std::optional<std::size_t> count = std::nullopt;  ///< Move; empty: the longest run that fits
    std::optional<std::uint64_t> deal = std::nullopt; ///< New; empty: any

    bool operator==(const Command&) const = default;
};

/// Reads a line; big and small letters are the same. The text in a command's place says what is wrong with the line, in
/// plain characters whatever the line holds.
std::variant<Command, std::string> ParseCommand(std::string_view line);

/// The legal move that a Move, a Draw (a recycling when the stock is empty) or a Home asks for; else empty.
std::optional<Move> ToMove(const Game& game, const Command& command);

/// The line that makes a move, such as "move t3 t5 4".
std::string CommandText(const Move& move);

/// A line a command.
std::string CommandHelp();

} // namespace klondike
