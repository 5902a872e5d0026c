// SPDX-License-Identifier: MIT
#pragma once

#include "host/control.h"
#include "host/export.h"

/// A control that shows a bitmap, unscaled, its top-left pixel at the control's top-left, cut to the control's size.
class ORVANE_API Canvas : public CControlBase
{
public:
    Canvas() = default;
    ~Canvas() override;

    /// Gives the control its place and size, in pixels relative to its window, and leaves it shown.
    void Create(long x, long y, long width, long height);
    ///@{
    /// The picture to show; stays the caller's. Null, and a bitmap that is destroyed later, show nothing. Changes of
    /// its pixels need an Invalidate().
    void SetBitmap(Bitmap* bitmap);
    Bitmap* GetBitmap() const { return m_bitmap; }
    ///@}

    void Paint(Bitmap& screen, const render::Rectangle<int>& area, long left, long top) const override;

private:
    Bitmap* m_bitmap = nullptr;
};
