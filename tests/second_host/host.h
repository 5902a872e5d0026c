// SPDX-License-Identifier: MIT
#pragma once

#include "host/rectangle.h"

#include <cstdint>
#include <string>
#include <vector>

/// What the test sets in the second host and reads from it.
namespace second_host
{

struct State {
    int width = 0; ///< the active size
    int height = 0;
    std::uint64_t now = 0;
    std::vector<render::Rectangle<int>> areas; ///< what is to be repainted
    std::vector<std::string> lines;
};
State& TheState();

} // namespace second_host
