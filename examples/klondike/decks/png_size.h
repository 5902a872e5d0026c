// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace klondike
{

struct PngSize {
    int width = 0;
    int height = 0;

    bool operator==(const PngSize&) const = default;
};

/// The size that a PNG file tells, without decoding it. Empty for a file that cannot be read, is no PNG, has lost its
/// end, or is of a size that no host bitmap can have.
std::optional<PngSize> ReadPngSize(const std::string& file);

} // namespace klondike
