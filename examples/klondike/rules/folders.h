// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace klondike
{

/// Where the game keeps what the player would miss: $XDG_DATA_HOME/cardtable-klondike, ~/.local/share in its place when
/// that is not set or not absolute. The folder need not exist. Throws std::runtime_error with one line for the player
/// when the system names no home folder.
std::filesystem::path DataFolder();
/// Where it keeps what it can make again: likewise with $XDG_CACHE_HOME and ~/.cache.
std::filesystem::path CacheFolder();

} // namespace klondike
