// SPDX-License-Identifier: MIT
#pragma once

#include "layer.h"

#include <span>

namespace deck
{

/// What a court figure holds.
enum class Attribute {
    Orb,
    Axe,
    Sword,
    Sceptre,
    Tulip,
    Fan,
    Rose,
    Mirror,
    Feather,
    Torch,
    Pennant,
    Halberd,
};

/// The attribute in card units around the hand that grips it, upright: at most 18 to each side above the hand, except
/// the fan, and 122 upwards.
std::span<const Layer> AttributeLayers(Attribute attribute);

} // namespace deck
