// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <utility>

namespace klondike
{

/// Why there are no pictures of a deck: one line for the player, also when a file's name or a library's text is not.
class DeckError : public std::runtime_error
{
public:
    explicit DeckError(std::string text) : std::runtime_error(OnOneLine(std::move(text))) {}

private:
    static std::string OnOneLine(std::string text)
    {
        const auto isEnd = [](char c) { return c == '\n' || c == '\r'; };
        std::replace_if(text.begin(), text.end(), isEnd, ' ');
        return text;
    }
};

/// Ends the drawing of a deck that nobody wants any more.
inline void ThrowIfStopped(const std::stop_token& stop)
{
    if (stop.stop_requested()) {
        throw DeckError("the drawing was given up");
    }
}

} // namespace klondike
