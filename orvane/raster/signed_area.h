// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>

namespace orvane::raster
{

/// An exact sum of products of coordinate differences. A difference of two 32-bit coordinates has 33 bits, a product of
/// two such 66, a sum of two products 67: more than any integer that every compiler has.
class SignedArea
{
public:
    /// ax * by - ay * bx. The factors are differences of 32-bit numbers.
    static constexpr SignedArea Cross(std::int64_t ax, std::int64_t ay, std::int64_t bx, std::int64_t by)
    {
        const std::int64_t high = ax * (by >> kLowBits) - ay * (bx >> kLowBits);
        const std::int64_t low = ax * (by & kLowMask) - ay * (bx & kLowMask);
        return {high + (low >> kLowBits), low & kLowMask};
    }

    /// Rounded to nearest, once.
    constexpr double ToDouble() const
    {
        return static_cast<double>(m_high) * (kLowMask + 1) + static_cast<double>(m_low);
    }

    /// With 0 alone: the sign is all that is asked.
    friend constexpr std::strong_ordering operator<=>(const SignedArea& area, int zero)
    {
        return area.m_high != 0 ? area.m_high <=> std::int64_t{zero} : area.m_low <=> std::int64_t{zero};
    }
    friend constexpr bool operator==(const SignedArea& area, int zero)
    {
        return area.m_high == 0 && area.m_low == zero;
    }

private:
    static constexpr int kLowBits = 16;
    static constexpr std::int64_t kLowMask = (std::int64_t{1} << kLowBits) - 1;

    constexpr SignedArea(std::int64_t high, std::int64_t low) : m_high(high), m_low(low) {}

    std::int64_t m_high; ///< at most 53 bits, so a double holds it
    std::int64_t m_low;  ///< 0 to kLowMask
};

} // namespace orvane::raster
