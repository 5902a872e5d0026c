// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>

/// The library's numbers are 32 bits wide although they are kept in long, which is 64 bits wide on some platforms:
/// every value goes through one of these, so that it comes out the same everywhere.

/// Truncates toward zero; out of range gives the nearest 32-bit value, a NaN 0.
inline long TruncateToInt32(double value)
{
    constexpr double kMax = std::numeric_limits<std::int32_t>::max();
    constexpr double kMin = std::numeric_limits<std::int32_t>::min();
    if (value >= kMax) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (value <= kMin) {
        return std::numeric_limits<std::int32_t>::min();
    }
    // A NaN fails both tests above and this one.
    return value == value ? static_cast<std::int32_t>(value) : 0;
}

/// Reduces modulo 2^32 to the signed 32-bit range.
constexpr long WrapToInt32(long long value)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<unsigned long long>(value)));
}
