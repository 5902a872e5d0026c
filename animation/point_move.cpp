// SPDX-License-Identifier: MIT
#include "animation/point_move.h"

#include "geometry/int32.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{

constexpr long kLinear = 1;
constexpr long kCurved = 2;
constexpr double kCurveSteps = 128.0;
constexpr long long kLargest = std::numeric_limits<std::int32_t>::max();

} // namespace

CPointMove::CPointMove() = default;

void CPointMove::Set(double start, double end, long frames)
{
    m_start = start;
    m_end = end;
    m_lastFrame = WrapToInt32(static_cast<long long>(WrapToInt32(frames)) - 1);
    m_mode = kLinear;
}

void CPointMove::Set(double start, double startBend, double end, double endBend, long frames)
{
    Set(start, end, frames);
    m_startBend = startBend;
    m_endBend = endBend;
    m_mode = kCurved;
    First();
}

void CPointMove::Prev()
{
    if (m_frame != 0) {
        // A cursor below 0 comes from Last() on a move without frames; it may stand at the smallest number.
        m_frame = WrapToInt32(static_cast<long long>(m_frame) - 1);
    }
}

long CPointMove::FramesLeft() const
{
    // A cursor below 0 may be further from the last frame than the largest number.
    return static_cast<long>(std::clamp(static_cast<long long>(m_lastFrame) - m_frame, 0LL, kLargest));
}

void CPointMove::Advance(long count)
{
    // Two billion frames on, the cursor stays: past its last frame a move does not begin again.
    const long long steps = std::clamp<long long>(count, 0, kLargest);
    m_frame = static_cast<long>(std::min(m_frame + steps, kLargest));
}

double CPointMove::GetPoint() const
{
    if (m_mode != kLinear && m_mode != kCurved) {
        return -1.0;
    }
    if (m_lastFrame == 0 || m_frame > m_lastFrame) {
        return m_end;
    }
    return m_mode == kLinear ? Linear() : Curved();
}

double CPointMove::Linear() const
{
    return (m_end - m_start) * static_cast<double>(m_frame) / static_cast<double>(m_lastFrame) + m_start;
}

double CPointMove::Curved() const
{
    // The blend of two straight lines on a grid of whole steps: one leaves the start value with the start bend a step,
    // one arrives at the end value with the end bend a step counted back. The grid has 128 steps, or 127 where the
    // rounded quotient falls just short.
    const double step = kCurveSteps / static_cast<double>(m_lastFrame);
    const long steps = TruncateToInt32(static_cast<double>(m_lastFrame) * step);
    const long done = TruncateToInt32(step * static_cast<double>(m_frame));
    const double ahead = static_cast<double>(WrapToInt32(static_cast<long long>(steps) - done));
    const double t = static_cast<double>(done);
    const double arriving = (m_endBend * ahead + m_end) * t;
    const double leaving = (m_startBend * t + m_start) * ahead;
    return (leaving + arriving) / static_cast<double>(steps);
}
