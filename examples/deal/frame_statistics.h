// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/headless_table.h"

#include <cstdint>
#include <vector>

namespace deal
{

/// What the frames of a run cost.
class FrameStatistics
{
public:
    void Add(const FrameReport& report);

    int Frames() const { return static_cast<int>(m_microseconds.size()); }
    double MedianMicroseconds() const;
    double WorstMicroseconds() const;
    std::int64_t RepaintedPixels() const { return m_repaintedPixels; }
    /// The mean over the frames, pixels.
    double RepaintedPixelsAFrame() const;

private:
    std::vector<double> m_microseconds;
    std::int64_t m_repaintedPixels = 0;
};

} // namespace deal
