// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

/// A pixel rectangle by its edges, half-open: Width() is right - left. One without area is empty.
/// Edges are 32-bit values kept in long; arithmetic on them wraps modulo 2^32. Costs nothing but its five words.
class ORVANE_API CRect
{
public:
    ///@{
    /// All four edges 0.
    CRect();
    CRect(const CRect&) = default;
    CRect& operator=(const CRect&) = default;
    ///@}
    virtual ~CRect();

    /// Stores the four edges, each wrapped to 32 bits. Edges in the wrong order are kept; the rectangle is then empty.
    void Set(long newLeft, long newTop, long newRight, long newBottom);
    /// Takes the edges of another rectangle; null leaves this one alone.
    void Copy(CRect* other);
    /// Makes this the smallest rectangle that holds both; an empty or null one gives the other, two of them give the
    /// first that is not null. Either may be this rectangle.
    void Union(CRect* first, CRect* second);
    /// right - left; negative when the edges are in the wrong order.
    long Width() const;
    /// bottom - top; negative when the edges are in the wrong order.
    long Height() const;
    /// True when there is no pixel inside.
    bool IsEmpty() const;

    long left = 0;   ///< first column inside
    long top = 0;    ///< first row inside
    long right = 0;  ///< first column to the right, outside
    long bottom = 0; ///< first row below, outside
};
