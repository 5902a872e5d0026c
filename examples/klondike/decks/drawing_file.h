// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace klondike
{

/// The name of a card's element in a drawing with elements: suit and rank from 0.
std::string ElementName(int suit, int rank);
inline constexpr const char* kBackElement = "back";

/// What reading an SVG file to its end tells about it, without drawing it.
struct DrawingFile {
    std::string problem;      ///< empty, or why it is no SVG file
    bool hasElements = false; ///< one for each card and one for the back
};

/// Reads an SVG file, packed or not. A packed file's check sum is looked at.
DrawingFile ReadDrawing(const std::string& file);

} // namespace klondike
