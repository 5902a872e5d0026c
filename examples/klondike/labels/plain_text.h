// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace klondike
{

/// A line of text that any font library can take: valid UTF-8 without control characters. A byte that is no part of a
/// character becomes U+FFFD. What is longer than a screen is wide, 4096 bytes, is cut.
std::string PlainText(std::string_view text);

} // namespace klondike
