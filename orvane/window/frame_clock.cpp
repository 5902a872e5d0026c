// SPDX-License-Identifier: MIT
#include "orvane/window/frame_clock.h"

#include <algorithm>

namespace orvane
{

void FrameClock::Follow(std::uint64_t time, std::uint32_t period)
{
    if (time > m_followed) {
        m_now += std::min(time - m_followed, kMostPeriods * period);
    }
    m_followed = time;
}

} // namespace orvane
