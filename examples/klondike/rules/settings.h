// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace klondike
{

inline constexpr int kInstantSpeed = 0;
inline constexpr int kFastestSpeed = 4;

/// What the player has chosen.
struct Settings {
    Options game;  ///< of the next deal
    int speed = 2; ///< of flying cards, slow 1 to fast 4; 0: instantly
    bool reducedMotion = false;
    bool leftHanded = false; ///< stock and waste on the other side
    bool autoMove = true;    ///< safe cards go to the foundations by themselves
    bool fullScreen = false;
    std::string deckName; ///< see IsDeckName; empty: the deck that comes with the game

    bool operator==(const Settings&) const = default;
};

/// True for a name that is safe as a part of a path: at most 64 bytes, no separators, no control characters, no leading
/// point. An empty name is none.
bool IsDeckName(std::string_view name);

/// The settings as lines of key=value. A deck name that is none is left out.
std::string SettingsToText(const Settings& settings);
/// Takes any text: unknown keys are passed over, a value that cannot be read leaves the default.
Settings SettingsFromText(std::string_view text);

/// The settings of a file; the defaults when there is none or it cannot be read.
Settings LoadSettings(const std::filesystem::path& path);
/// Throws std::runtime_error with one line for the player.
void SaveSettings(const std::filesystem::path& path, const Settings& settings);

} // namespace klondike
