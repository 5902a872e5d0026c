// SPDX-License-Identifier: MIT
#pragma once

#include "host/control.h"
#include "host/export.h"

#include <cstdint>

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
    /// A part of the picture without see-through pixels, grown from its middle; found out, once, the second time that
    /// this is asked about the same picture. A class that paints something else overrides it too.
    render::Rectangle<int> OpaquePart() const override;

private:
    bool IsExamined() const;

    Bitmap* m_bitmap = nullptr;
    mutable const Bitmap* m_examined = nullptr; ///< the picture that the answer below is about
    mutable std::uint64_t m_examinedRevision = 0;
    mutable bool m_isExamined = false; ///< not yet on the first question: the picture may change in every frame
    mutable render::Rectangle<int> m_opaquePart; ///< of the picture
};
