// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace klondike
{

/// The lines of a small text file as keys and values, the last of equal keys; blank lines and those that start with #
/// or [ say nothing. Values lose the blanks around them. A line without the separator is a key with an empty value.
/// Empty for a file that cannot be read; more than 64 KiB are not read.
std::map<std::string, std::string> ReadDescription(const std::string& file, char separator);

} // namespace klondike
