// SPDX-License-Identifier: MIT
// Klondike in a terminal: commands from the standard input, the table as text. The game goes on where it was left.
#include "examples/klondike/rules/deal.h"
#include "examples/klondike/rules/folders.h"
#include "examples/klondike/rules/save.h"
#include "examples/klondike/rules/save_file.h"
#include "examples/klondike/text/command.h"
#include "examples/klondike/text/play.h"

#include <charconv>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace
{

constexpr int kFailure = 1;
constexpr int kUsage = 2;

constexpr const char* kHelp = "usage: klondike [--describe] [--deal NUMBER] [--draw-three]\n"
                              "Plays Klondike by commands from the standard input; type help there.\n"
                              "  --describe     print the table at the start and after each change\n"
                              "  --deal NUMBER  a new game of that deal; without it the last game goes on\n"
                              "  --draw-three   of a new game: three cards a draw\n";

struct Arguments {
    bool help = false;
    bool describe = false;
    bool drawThree = false;
    std::optional<std::uint64_t> deal;
};

/// Empty for a call that cannot be followed.
std::optional<Arguments> Parse(const std::vector<std::string_view>& words)
{
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--help") {
            arguments.help = true;
        } else if (words[i] == "--describe") {
            arguments.describe = true;
        } else if (words[i] == "--draw-three") {
            arguments.drawThree = true;
        } else if (words[i] == "--deal" && i + 1 < words.size()) {
            const std::string_view number = words[++i];
            std::uint64_t deal = 0;
            const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), deal);
            if (error != std::errc{} || end != number.data() + number.size()) {
                return std::nullopt;
            }
            arguments.deal = deal;
        } else {
            return std::nullopt;
        }
    }
    return arguments;
}

klondike::Game StartOrGoOn(const Arguments& arguments, const std::filesystem::path& file)
{
    if (!arguments.deal && !arguments.drawThree) {
        klondike::LoadedGame loaded = klondike::LoadOrSetAside(file);
        if (!loaded.message.empty()) {
            std::cerr << "klondike: " << loaded.message << "\n";
        }
        if (loaded.game && !loaded.game->IsWon()) {
            return std::move(*loaded.game);
        }
    }
    klondike::Options options;
    options.drawThree = arguments.drawThree;
    return {arguments.deal ? *arguments.deal : klondike::RandomDealNumber(), options};
}

} // namespace

int main(int argc, char** argv)
{
    const std::optional<Arguments> arguments = Parse({argv + 1, argv + argc});
    if (!arguments) {
        std::cerr << kHelp;
        return kUsage;
    }
    if (arguments->help) {
        std::cout << kHelp << "\n" << klondike::CommandHelp();
        return 0;
    }
    try {
        const std::filesystem::path file = klondike::DataFolder() / "game";
        klondike::Game game = StartOrGoOn(*arguments, file);
        const int result = klondike::RunText(std::cin, std::cout, game, arguments->describe);
        klondike::SaveAtomically(file, klondike::ToText(game));
        return result;
    } catch (const std::exception& error) {
        std::cerr << "klondike: " << error.what() << "\n";
        return kFailure;
    }
}
