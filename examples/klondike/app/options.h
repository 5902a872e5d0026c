// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klondike
{

/// What the program was called with.
struct Arguments {
    bool help = false;
    bool terminal = false;             ///< no window
    bool describe = false;             ///< commands come from the standard input, the table goes to the output
    std::optional<bool> drawThree;     ///< of a new game
    std::optional<std::uint64_t> deal; ///< a new game of that number
    std::optional<bool> fullScreen;
    std::string deck; ///< a deck's name, for this time; empty: the one that was chosen last
    ///@{
    /// The window's size, pixels.
    int width = 1024;
    int height = 720;
    ///@}
    std::string picture;       ///< where a picture goes; nothing opens then
    std::optional<int> frames; ///< it is taken so many frames after the last command, else when all lies still
};

/// The arguments without the program's name; empty for a call that cannot be followed.
std::optional<Arguments> ParseArguments(const std::vector<std::string_view>& words);
/// What can be called.
std::string ArgumentHelp();

} // namespace klondike
