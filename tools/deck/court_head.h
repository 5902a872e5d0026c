// SPDX-License-Identifier: MIT
#pragma once

#include "card.h"
#include "layer.h"

#include <span>

namespace deck
{

enum class Headgear {
    SpikedCrown,
    ArchedCrown,
    LilyCrown,
    TowerCrown,
    PearlCoronet,
    HeartCoronet,
    StarCoronet,
    LeafCoronet,
    Beret,
    FeatheredCap,
    PointedCap,
    RoundCap,
};

/// The parts of a head, in card units around the middle of the face, in the order they are drawn: hair that falls
/// behind the face, the face without its mouth, what a rank has on it (mouth, beard, fringe), and what sits on top.
std::span<const Layer> BackHairLayers(Rank rank);
std::span<const Layer> FaceLayers();
std::span<const Layer> FaceDetailLayers(Rank rank);
std::span<const Layer> HeadgearLayers(Headgear headgear);

} // namespace deck
