// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace deal
{

/// A clock that stands still within a frame and moves by exactly one frame period from each to the next: what is seen
/// does not depend on how fast the machine is.
class FrameClock
{
public:
    static constexpr std::uint32_t kPeriod = 16667; ///< microseconds; 60 frames a second

    std::uint64_t Now() const { return m_now; }
    void NextFrame() { m_now += kPeriod; }

private:
    std::uint64_t m_now = 0;
};

} // namespace deal
