// SPDX-License-Identifier: MIT
#pragma once

#include "canvas.h"

#include <span>
#include <string_view>

namespace deck
{

/// One shape of a drawing that is kept as data: filled, then outlined; Ink::None leaves either out. The width is in the
/// drawing's own units.
struct Layer {
    Ink fill;
    Ink line;
    double width;
    std::string_view path;
};

/// The line that parts shapes in all figures, in card units.
inline constexpr double kOutline = 1.8;

/// Draws the layers from first to last, with the dress's inks for the roles.
void DrawLayers(Canvas& canvas, std::span<const Layer> layers, const Dress& dress);

} // namespace deck
