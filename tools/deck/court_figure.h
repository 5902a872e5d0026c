// SPDX-License-Identifier: MIT
#pragma once

#include "attribute.h"
#include "card.h"
#include "court_head.h"
#include "garment_pattern.h"

#include <span>

namespace deck
{

/// What makes one court figure differ from the others.
struct CourtStyle {
    Headgear headgear;
    Attribute attribute;
    Pattern robe;
    Pattern sleeves;
    Dress dress;
    /// The attribute stands on the card's right side, not on its left; the whole picture is mirrored.
    bool mirrored;
};

/// The middle of a figure's face, in its own coordinates.
inline constexpr double kFaceY = 84.0;

/// The upper half of a court figure, in its own coordinates: x = 0 is the figure's axis, y the card unit from the
/// card's upper edge; it holds its attribute at x < 0. It reaches below the card's middle: the caller clips.
void DrawCourtFigure(Canvas& canvas, Rank rank, const CourtStyle& style);

/// A figure's forearm and hand with what it holds, in the figure's coordinates; the layers as AttributeLayers gives
/// them.
void DrawHandWith(Canvas& canvas, std::span<const Layer> held, const Dress& dress);

} // namespace deck
