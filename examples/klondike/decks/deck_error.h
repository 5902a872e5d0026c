// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <stop_token>

namespace klondike
{

/// Why there are no pictures of a deck: one line for the player.
class DeckError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Ends the drawing of a deck that nobody wants any more.
inline void ThrowIfStopped(const std::stop_token& stop)
{
    if (stop.stop_requested()) {
        throw DeckError("the drawing was given up");
    }
}

} // namespace klondike
