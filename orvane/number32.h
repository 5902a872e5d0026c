// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace orvane
{

/// The value modulo 2^32, in the signed range: what it is where long has 32 bits.
inline std::int32_t WrapTo32Bits(long value)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

} // namespace orvane
