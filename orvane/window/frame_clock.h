// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/window/export.h"

#include <cstdint>

namespace orvane
{

/// The time that animations see: it stands still between two calls of Follow, and leaves out most of a pause. All times
/// are microseconds.
class ORVANE_WINDOW_API FrameClock
{
public:
    /// The most frame periods that one call of Follow moves the clock: what animations catch up at once.
    static constexpr std::uint64_t kMostPeriods = 4;

    /// Starts at that time.
    explicit FrameClock(std::uint64_t time) : m_followed(time), m_now(time) {}

    /// The time that animations see.
    std::uint64_t Now() const { return m_now; }
    /// Moves on by the time since the last call, by four periods at most. An earlier time than before moves nothing.
    void Follow(std::uint64_t time, std::uint32_t period);

private:
    std::uint64_t m_followed;
    std::uint64_t m_now;
};

} // namespace orvane
