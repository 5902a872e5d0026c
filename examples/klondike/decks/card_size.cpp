// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/card_size.h"

#include <algorithm>
#include <cmath>

namespace klondike
{

CardSize FittedCard(CardSize room, double aspect)
{
    const auto side = [](double pixels) {
        return static_cast<int>(std::clamp<double>(std::round(pixels), kSmallestCardSide, kLargestCardSide));
    };
    if (!(aspect > 0.0) || !std::isfinite(aspect)) {
        return {side(room.width), side(room.height)};
    }
    const double height = std::min<double>(room.height, room.width / aspect);
    return {side(height * aspect), side(height)};
}

} // namespace klondike
