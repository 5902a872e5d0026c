// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace klondike
{

/// The files of a font; empty where there is none.
struct FontFiles {
    std::string regular;
    std::string bold; ///< perhaps none: then the regular one does
};

/// The file that the environment variable names, if it has a value; else DejaVu Sans in the folders where distributions
/// and players put fonts.
FontFiles FindFonts(const char* variable);

} // namespace klondike
