// SPDX-License-Identifier: MIT
#pragma once

#include "card.h"
#include "layer.h"

#include <span>
#include <string_view>

namespace deck
{

/// What a rank wears, in the figure's coordinates (see DrawCourtFigure). Robe and sleeves are outlines to be filled
/// with a pattern; the layers go behind and over them.
struct Costume {
    std::span<const Layer> behind;
    std::string_view robe;
    std::string_view sleeves;
    std::span<const Layer> over;
};

Costume CostumeOf(Rank rank);

} // namespace deck
