// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"
#include "examples/klondike/rules/settings.h"

#include <filesystem>
#include <string>
#include <utility>

namespace klondike
{

/// Keeps the game and the settings in their files; an empty path keeps nothing.
class Keeper
{
public:
    Keeper(std::filesystem::path game, std::filesystem::path settings)
        : m_gameFile(std::move(game)), m_settingsFile(std::move(settings))
    {
    }

    /// The game is no longer what its file holds.
    void GameChanged() { m_isUnsaved = true; }
    ///@{
    /// Write a file; the game only after a change. They return one line for the player when that fails, once for a row
    /// of failures; else an empty one.
    std::string Save(const Game& game);
    std::string Save(const Settings& settings);
    ///@}

private:
    std::string Try(const auto& write);

    std::filesystem::path m_gameFile;
    std::filesystem::path m_settingsFile;
    bool m_isUnsaved = false;
    bool m_hasFailed = false;
};

} // namespace klondike
