// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace klondike
{

/// Counts the time that somebody plays: from input to input, but not a pause of a minute or more. So nothing has to
/// wake up for the clock while nothing happens.
class PlayClock
{
public:
    /// There was input at that time, microseconds. Returns the whole seconds played since the last call that gave some.
    std::uint32_t Input(std::uint64_t now)
    {
        const std::uint64_t passed = now - m_last;
        m_last = now;
        if (passed < kPause) {
            m_played += passed;
        }
        const auto seconds = static_cast<std::uint32_t>(m_played / kSecond);
        m_played %= kSecond;
        return seconds;
    }

private:
    static constexpr std::uint64_t kSecond = 1000000;
    static constexpr std::uint64_t kPause = 60 * kSecond;

    std::uint64_t m_last = 0;
    std::uint64_t m_played = 0; ///< less than a second
};

} // namespace klondike
