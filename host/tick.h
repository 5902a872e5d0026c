// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

#include <cstdint>

/// A stopwatch on the host's clock. Its unit is the microsecond, as that of SGlobals::framePeriod.
class ORVANE_API Tick
{
public:
    /// Starts at the present time.
    Tick();
    /// Starts anew at the present time.
    void Update();
    /// Microseconds since the last start. Stays at the largest 32-bit value from about 71 minutes on; 0 when the clock
    /// went backwards.
    std::uint32_t Elapsed() const;

private:
    std::uint64_t m_start;
};
