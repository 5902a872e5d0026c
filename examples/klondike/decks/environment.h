// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <string>

namespace klondike
{

/// The value of an environment variable, or a default where it is missing or empty.
inline std::string EnvironmentVariable(const char* name, const std::string& otherwise = {})
{
    const char* value = std::getenv(name);
    return value == nullptr || *value == '\0' ? otherwise : value;
}

} // namespace klondike
