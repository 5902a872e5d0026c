// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/picture.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace contest
{

/// An opaque picture: red, green, blue; rows without gaps.
struct Pixmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;
};

Pixmap ToPixmap(const Pixels& pixels);

///@{
/// Portable pixmap files (binary, 8 bits a channel). Throw std::runtime_error for a file that can't be written, or
/// read, or that is no such picture.
void WritePixmap(const Pixmap& pixmap, const std::string& path);
Pixmap ReadPixmap(const std::string& path);
///@}

} // namespace contest
