// SPDX-License-Identifier: MIT
// Draws the deck: a sheet of all faces and a back.
#include "sheet.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace
{

constexpr std::string_view kUsage =
    "usage: draw_deck OUTFOLDER [--card WxH]\n"
    "\n"
    "Draws deck.png (13 x 5 cells: A 2 .. 10 J Q K of clubs, diamonds, hearts, spades;\n"
    "then the black and the red joker) and back.png into OUTFOLDER.\n"
    "\n"
    "  --card WxH   pixels of one card, each 8 to 2400 (default 240x336)\n"
    "  --help       this text\n";

constexpr int kSmallestSide = 8;
constexpr int kLargestSide = 2400; // 13 of them stay below the largest picture that Cairo makes

struct Options {
    std::string folder;
    deck::CardSize card;
    bool help = false;
};

std::optional<int> ReadSide(std::string_view text)
{
    constexpr std::size_t kMostDigits = 4;
    if (text.empty() || text.size() > kMostDigits || text.find_first_not_of("0123456789") != text.npos) {
        return std::nullopt;
    }
    const int side = std::stoi(std::string(text));
    return side >= kSmallestSide && side <= kLargestSide ? std::optional(side) : std::nullopt;
}

deck::CardSize ReadCardSize(std::string_view text)
{
    const std::size_t cross = text.find('x');
    const auto width = ReadSide(text.substr(0, cross));
    const auto height = cross == text.npos ? std::nullopt : ReadSide(text.substr(cross + 1));
    if (!width || !height) {
        throw std::invalid_argument("--card takes WxH, each from " + std::to_string(kSmallestSide) + " to " +
                                    std::to_string(kLargestSide) + ", not \"" + std::string(text) + "\"");
    }
    return {*width, *height};
}

Options ReadOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help") {
            options.help = true;
        } else if (argument == "--card" && i + 1 < arguments.size()) {
            options.card = ReadCardSize(arguments[++i]);
        } else if (argument == "--card") {
            throw std::invalid_argument("--card needs a size");
        } else if (argument.starts_with('-') || argument.empty()) {
            throw std::invalid_argument("unknown option \"" + argument + "\"");
        } else if (!options.folder.empty()) {
            throw std::invalid_argument("more than one folder given: \"" + argument + "\"");
        } else {
            options.folder = argument;
        }
    }
    if (options.folder.empty() && !options.help) {
        throw std::invalid_argument("no folder given");
    }
    return options;
}

void WriteDeck(const Options& options)
{
    const std::filesystem::path folder(options.folder);
    std::filesystem::create_directories(folder);
    deck::DrawFaceSheet(options.card).WritePng((folder / "deck.png").string());
    deck::DrawBack(options.card).WritePng((folder / "back.png").string());
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const Options options = ReadOptions({argv + 1, argv + argc});
        if (options.help) {
            std::cout << kUsage;
        } else {
            WriteDeck(options);
        }
        return EXIT_SUCCESS;
    } catch (const std::invalid_argument& error) {
        std::cerr << "draw_deck: " << error.what() << "\n\n" << kUsage;
    } catch (const std::exception& error) {
        std::cerr << "draw_deck: " << error.what() << '\n';
    }
    return EXIT_FAILURE;
}
