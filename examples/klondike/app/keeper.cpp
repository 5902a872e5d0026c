// SPDX-License-Identifier: MIT
#include "examples/klondike/app/keeper.h"

#include "examples/klondike/rules/save.h"
#include "examples/klondike/rules/save_file.h"

#include <exception>

namespace klondike
{

std::string Keeper::Try(const auto& write)
{
    try {
        write();
        m_hasFailed = false;
    } catch (const std::exception& error) {
        return std::exchange(m_hasFailed, true) ? std::string() : error.what();
    }
    return {};
}

std::string Keeper::Save(const Game& game)
{
    if (!std::exchange(m_isUnsaved, false) || m_gameFile.empty()) {
        return {};
    }
    return Try([&] { SaveAtomically(m_gameFile, ToText(game)); });
}

std::string Keeper::Save(const Settings& settings)
{
    return m_settingsFile.empty() ? std::string() : Try([&] { SaveSettings(m_settingsFile, settings); });
}

} // namespace klondike
