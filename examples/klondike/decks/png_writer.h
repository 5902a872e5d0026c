// SPDX-License-Identifier: MIT
#pragma once

#include "examples/common/unfinished_file.h"

#include <cairo.h>

namespace klondike
{

/// Writes a picture as a PNG file. Throws DeckError, and std::system_error when the file does not take it.
void WritePng(cairo_surface_t* picture, common::UnfinishedFile& file);

} // namespace klondike
