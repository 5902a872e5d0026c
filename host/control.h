// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"
#include "host/rectangle.h"

#include <cstdint>

class Bitmap;
class CWindowBase;

namespace orvane
{
class ControlIndex;
}

/// A rectangle of a window that paints itself. It stands in at most one window, at a place relative to that window, and
/// leaves it when it is destroyed. Whatever changes what it shows has the screen areas concerned composed anew.
class ORVANE_API CControlBase
{
public:
    ///@{
    /// Control states: shown and hidden. Other values are ignored.
    static constexpr long kStateShown = 2;
    static constexpr long kStateHidden = 5;
    ///@}

    /// Shown, at (0, 0), of size 0 x 0, in no window.
    CControlBase() = default;
    virtual ~CControlBase();
    CControlBase(const CControlBase&) = delete;
    CControlBase& operator=(const CControlBase&) = delete;

    /// Moves the control, in pixels relative to its window; any 32-bit place is allowed.
    virtual void SetPos(long x, long y);
    /// Resizes it, in pixels; less than 0 counts as 0.
    virtual void SetSize(long width, long height);
    /// Has the area that the control covers composed anew; nothing when it is hidden or in no window.
    virtual void Invalidate();
    /// kStateShown or kStateHidden.
    virtual void SetState(long state);

    ///@{
    /// Place and size in pixels, relative to the window.
    long X() const { return m_x; }
    long Y() const { return m_y; }
    long Width() const { return m_width; }
    long Height() const { return m_height; }
    ///@}
    /// True when the control's state is kStateShown; whether its window is on the screen is another matter.
    bool IsShown() const { return m_state == kStateShown; }
    /// The window that lists the control, or null.
    CWindowBase* Window() const { return m_window; }
    /// The control after this one in its window (painted later, so above it), or null.
    CControlBase* NextControl() const { return m_next; }
    /// The control before this one in its window, or null.
    CControlBase* PrevControl() const { return m_prev; }

    /// Paints the part of the control that lies in an area of the screen, blending over what is there. Left and top are
    /// the control's place on the screen. Must give every pixel the same value however the area is cut into parts, and
    /// touch none outside it. The base class paints nothing.
    virtual void Paint(Bitmap& screen, const render::Rectangle<int>& area, long left, long top) const;
    /// A part of the control, relative to its top-left, in which Paint gives every pixel a value that does not depend
    /// on what is below: that need not be painted there. Asked once in every composing that the control takes part in,
    /// so it costs little. The base class answers with an empty rectangle.
    virtual render::Rectangle<int> OpaquePart() const { return {}; }

private:
    friend class CWindowBase;
    friend class orvane::ControlIndex;

    long m_x = 0;
    long m_y = 0;
    long m_width = 0;
    long m_height = 0;
    long m_state = kStateShown;
    CWindowBase* m_window = nullptr;
    CControlBase* m_prev = nullptr;
    CControlBase* m_next = nullptr;
    std::uint64_t m_number = 0; ///< in a window with an index of its controls: grows along the list
};
