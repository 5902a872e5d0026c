// SPDX-License-Identifier: MIT
#include "host/tick.h"

#include "orvane/running_host.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace
{

std::uint64_t Now()
{
    if (const orvane::RunningHost* host = orvane::Running(); host != nullptr && host->clock) {
        return host->clock();
    }
    using namespace std::chrono;
    const auto sinceStart = steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(duration_cast<microseconds>(sinceStart).count());
}

} // namespace

Tick::Tick() : m_start(Now()) {}

void Tick::Update()
{
    m_start = Now();
}

std::uint32_t Tick::Elapsed() const
{
    const std::uint64_t now = Now();
    if (now < m_start) {
        return 0;
    }
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::min(now - m_start, kMost));
}
