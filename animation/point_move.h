// SPDX-License-Identifier: MIT
#pragma once

#include "geometry/export.h"

/// One value animated over a whole number of frames, straight or curved. An animation of n frames has frames 0 to n - 1
/// and gives its end value at and after the last. It knows nothing of time: one step is one frame. A plain record.
class CARDTABLE_API CPointMove
{
public:
    ///@{
    /// Unset: GetPoint gives -1.
    CPointMove();
    CPointMove(const CPointMove&) = default;
    CPointMove& operator=(const CPointMove&) = default;
    ///@}

    /// A straight line from start to end. The frame cursor stays where it is.
    void Set(double start, double end, long frames);
    /// A straight line bent into an arch that is highest in the middle, where it adds 32 * (startBend + endBend); a
    /// negative sum bends the other way. The path has about 128 steps, whatever the number of frames. Rewinds the frame
    /// cursor.
    void Set(double start, double startBend, double end, double endBend, long frames);

    ///@{
    /// Frame cursor to frame 0, to the last frame, one on (without bound), one back (not below 0).
    void First() { m_frame = 0; }
    void Last() { m_frame = m_lastFrame; }
    void Next() { Advance(1); }
    void Prev();
    ///@}
    /// The same as that many calls of Next; a count below 0 is taken as 0.
    void Advance(long count);

    /// 1 at and after the last frame, else 0.
    long IsLast() const { return m_frame >= m_lastFrame ? 1 : 0; }
    /// 1 while the cursor is on a frame, 0 past the last one.
    long Exists() const { return m_frame <= m_lastFrame ? 1 : 0; }
    /// How many steps the last frame is away; 0 at and after it.
    long FramesLeft() const;

    /// The value at the frame cursor.
    double GetPoint() const;

private:
    double Linear() const;
    double Curved() const;

    double m_start = 0.0;
    double m_end = 0.0;
    long m_lastFrame = 0;
    long m_frame = 0;
    double m_startBend = 0.0;
    double m_endBend = 0.0;
    long m_mode = 0; ///< 0 unset, 1 linear, 2 curved
};
