// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/app/action.h"
#include "examples/klondike/app/popup.h"
#include "examples/klondike/decks/deck_catalog.h"
#include "examples/klondike/rules/game.h"
#include "examples/klondike/rules/settings.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace klondike
{

/// What the lines of the menus lead to.
struct MenuCalls {
    std::function<void(Action)> act;
    std::function<void(const Settings&)> change; ///< these hold from now on; the menu stays open
    std::function<void()> close;
    std::function<void()> quit;
};

/// The menu: what can be done, and every setting with its value.
std::vector<PopupLine> MainMenu(const Settings& settings, const Game& game, const MenuCalls& calls);

/// The decks to choose from.
std::vector<PopupLine> DeckMenu(const std::vector<Deck>& decks, const Settings& settings, const MenuCalls& calls);
/// The line of the deck that holds.
std::size_t DeckLine(const std::vector<Deck>& decks, const std::string& name);

/// How to play with mouse, fingers and keys.
std::vector<PopupLine> HelpText(const MenuCalls& calls);
/// The game is won.
std::vector<PopupLine> WonMessage(const Game& game, const MenuCalls& calls);
/// A game is about to be given up.
std::vector<PopupLine> GiveUpQuestion(const std::function<void()>& giveUp, const MenuCalls& calls);

/// Minutes and seconds.
std::string TimeText(std::uint32_t seconds);
/// The score as the game counts it; empty when it counts none.
std::string ScoreText(const Game& game);

} // namespace klondike
