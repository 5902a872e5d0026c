// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace klondike
{

/// Writes a file whole or not at all: a loss of power leaves the earlier file or the new one, and of several programs
/// that write at once the last one wins. Makes missing folders. Throws std::runtime_error with one line for the player.
void SaveAtomically(const std::filesystem::path& path, std::string_view text);

/// The text of a file, of which at most `limit` bytes are read; empty when there is no such file.
/// Throws std::runtime_error with one line for the player when it cannot be read or is no plain file.
std::optional<std::string> ReadText(const std::filesystem::path& path, std::size_t limit);

struct LoadedGame {
    std::optional<Game> game;
    std::string message; ///< one line for the player when a file is there but gave no game
};

/// Loads a saved game. No file: neither game nor message. A damaged file is renamed, to the name with ".damaged" after
/// it (".damaged-2" and so on when there are such files already), so that the next save does not destroy it.
LoadedGame LoadOrSetAside(const std::filesystem::path& path);

} // namespace klondike
