// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvane
{

/// Sixty frames a second, in microseconds.
constexpr std::uint32_t kDefaultFramePeriod = 16667;

} // namespace orvane
