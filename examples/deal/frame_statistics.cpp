// SPDX-License-Identifier: MIT
#include "examples/deal/frame_statistics.h"

#include <algorithm>
#include <cstddef>

namespace deal
{

void FrameStatistics::Add(const FrameReport& report)
{
    m_microseconds.push_back(report.microseconds);
    m_repaintedPixels += report.repaintedPixels;
}

double FrameStatistics::MedianMicroseconds() const
{
    if (m_microseconds.empty()) {
        return 0.0;
    }
    std::vector<double> sorted = m_microseconds;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return *middle;
}

double FrameStatistics::WorstMicroseconds() const
{
    return m_microseconds.empty() ? 0.0 : *std::max_element(m_microseconds.begin(), m_microseconds.end());
}

double FrameStatistics::RepaintedPixelsAFrame() const
{
    return m_microseconds.empty() ? 0.0 : static_cast<double>(m_repaintedPixels) / Frames();
}

} // namespace deal
