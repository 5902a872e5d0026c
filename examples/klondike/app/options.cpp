// SPDX-License-Identifier: MIT
#include "examples/klondike/app/options.h"

#include <charconv>
#include <system_error>

namespace klondike
{

namespace
{

constexpr int kMostSide = 16384;

template <typename Number> bool Read(std::string_view text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

/// WIDTHxHEIGHT.
bool ReadSize(std::string_view text, Arguments& arguments)
{
    const std::size_t cross = text.find('x');
    return cross != std::string_view::npos && Read(text.substr(0, cross), arguments.width) &&
           Read(text.substr(cross + 1), arguments.height) && arguments.width > 0 && arguments.height > 0 &&
           arguments.width <= kMostSide && arguments.height <= kMostSide;
}

/// A word that stands alone.
bool TakeSwitch(std::string_view word, Arguments& arguments)
{
    if (word == "--help") {
        arguments.help = true;
    } else if (word == "--terminal") {
        arguments.terminal = true;
    } else if (word == "--describe") {
        arguments.describe = true;
    } else if (word == "--draw-three") {
        arguments.drawThree = true;
    } else if (word == "--draw-one") {
        arguments.drawThree = false;
    } else if (word == "--full-screen") {
        arguments.fullScreen = true;
    } else {
        return false;
    }
    return true;
}

/// A word with a value after it.
bool TakeValue(std::string_view word, std::string_view value, Arguments& arguments)
{
    if (word == "--deal") {
        return Read(value, arguments.deal.emplace());
    }
    if (word == "--size") {
        return ReadSize(value, arguments);
    }
    if (word == "--deck") {
        arguments.deck = value;
        return !value.empty();
    }
    if (word == "--picture") {
        arguments.picture = value;
        return !value.empty();
    }
    return word == "--frames" && Read(value, arguments.frames.emplace()) && *arguments.frames >= 0;
}

} // namespace

std::optional<Arguments> ParseArguments(const std::vector<std::string_view>& words)
{
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (TakeSwitch(words[i], arguments)) {
            continue;
        }
        if (i + 1 == words.size() || !TakeValue(words[i], words[i + 1], arguments)) {
            return std::nullopt;
        }
        ++i;
    }
    return arguments;
}

std::string ArgumentHelp()
{
    return "usage: klondike [OPTION...]\n"
           "Klondike in a window; F1 there tells how to play. The last game goes on.\n"
           "  --deal NUMBER        a new game of that deal\n"
           "  --draw-three         a new game with three cards a draw; --draw-one: with one\n"
           "  --deck NAME          with that deck, this time\n"
           "  --size WIDTHxHEIGHT  the window's size\n"
           "  --full-screen        without a window's frame\n"
           "  --describe           also plays by commands from the standard input, and prints the table after each\n"
           "                       change\n"
           "  --terminal           without a window: commands from the standard input alone\n"
           "  --picture FILE       plays the commands from the standard input unseen, and writes a picture (PNG)\n"
           "  --frames NUMBER      takes the picture so many frames after the last command, not when all lies still\n"
           "  --help               this list, and that of the commands\n";
}

} // namespace klondike
