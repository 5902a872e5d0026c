// SPDX-License-Identifier: MIT
#pragma once

namespace klondike
{

/// Pixels of a card.
struct CardSize {
    int width = 0;
    int height = 0;
};

} // namespace klondike
