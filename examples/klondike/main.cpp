// SPDX-License-Identifier: MIT
// Klondike in a window, or in a terminal. The game goes on where it was left.
#include "examples/klondike/app/options.h"
#include "examples/klondike/decks/deck_catalog.h"
#include "examples/klondike/rules/deal.h"
#include "examples/klondike/rules/folders.h"
#include "examples/klondike/rules/save.h"
#include "examples/klondike/rules/save_file.h"
#include "examples/klondike/rules/settings.h"
#include "examples/klondike/text/command.h"
#include "examples/klondike/text/play.h"
#include "examples/klondike/window_game.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <unistd.h>

namespace
{

constexpr int kFailure = 1;
constexpr int kUsage = 2;

/// The game that goes on, or a new one; and what to say about it.
std::pair<klondike::Game, std::string> StartOrGoOn(const klondike::Arguments& arguments, klondike::Options options,
                                                   const std::filesystem::path& file)
{
    std::string message;
    if (!arguments.deal && !arguments.drawThree) {
        klondike::LoadedGame loaded = klondike::LoadOrSetAside(file);
        if (loaded.game && !loaded.game->IsWon()) {
            return {std::move(*loaded.game), ""};
        }
        message = loaded.message;
    }
    options.drawThree = arguments.drawThree.value_or(options.drawThree);
    return {klondike::Game(arguments.deal ? *arguments.deal : klondike::RandomDealNumber(), options), message};
}

klondike::DeckPlaces PlacesOfDecks(const std::filesystem::path& data)
{
    return {KLONDIKE_ASSETS_FOLDER, klondike::DeckFolders((data / "decks").string()),
            (klondike::CacheFolder() / "decks").string()};
}

int PlayInTerminal(klondike::Setup& setup, bool describe)
{
    if (!setup.message.empty()) {
        std::cerr << "klondike: " << setup.message << "\n";
    }
    const int result = klondike::RunText(std::cin, std::cout, setup.game, describe);
    klondike::SaveAtomically(setup.saveFile, klondike::ToText(setup.game));
    return result;
}

int Run(const klondike::Arguments& arguments)
{
    const std::filesystem::path data = klondike::DataFolder();
    klondike::Setup setup;
    setup.saveFile = data / "game";
    setup.settingsFile = data / "settings";
    setup.settings = klondike::LoadSettings(setup.settingsFile);
    std::tie(setup.game, setup.message) = StartOrGoOn(arguments, setup.settings.game, setup.saveFile);
    if (arguments.terminal) {
        return PlayInTerminal(setup, arguments.describe);
    }
    setup.settings.fullScreen = arguments.fullScreen.value_or(setup.settings.fullScreen);
    if (!arguments.deck.empty()) {
        setup.settings.deckName = arguments.deck;
    }
    setup.decks = PlacesOfDecks(data);
    setup.describe = arguments.describe;
    if (arguments.describe || !arguments.picture.empty()) {
        setup.commands = STDIN_FILENO;
        setup.answers = &std::cout;
    }
    if (!arguments.picture.empty()) {
        klondike::TakePicture(arguments, std::move(setup));
    } else {
        klondike::PlayInWindow(arguments, std::move(setup));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::optional<klondike::Arguments> arguments = klondike::ParseArguments({argv + 1, argv + argc});
    if (!arguments) {
        std::cerr << klondike::ArgumentHelp();
        return kUsage;
    }
    if (arguments->help) {
        std::cout << klondike::ArgumentHelp() << "\n" << klondike::CommandHelp();
        return 0;
    }
    try {
        return Run(*arguments);
    } catch (const std::exception& error) {
        std::cerr << "klondike: " << error.what() << "\n";
        return kFailure;
    }
}
