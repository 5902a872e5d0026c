// SPDX-License-Identifier: MIT
#pragma once

#include <cairo.h>

#include <string_view>

namespace deck
{

/// Appends a path, written with the absolute commands of SVG path data: M, L, C, Q and Z, numbers separated by blanks.
/// One command is our own: "O x y r" is a full circle, drawn clockwise. A command letter stands before every group of
/// numbers. Throws std::logic_error for anything else: path data are part of the program.
void AppendPath(cairo_t* cairo, std::string_view data);

} // namespace deck
