// SPDX-License-Identifier: MIT
#pragma once

#include "host/control.h"
#include "host/export.h"

/// A container of controls. Controls are painted in list order: a later one covers an earlier one. The window does not
/// own its controls; both may be destroyed in any order. Insertion and removal take constant time.
class ORVANE_API CWindowBase
{
public:
    CWindowBase() = default;
    /// Takes every control out of the window.
    virtual ~CWindowBase();
    CWindowBase(const CWindowBase&) = delete;
    CWindowBase& operator=(const CWindowBase&) = delete;

    /// Puts a control directly before another one in the list; at the end when that one is null or not in this window.
    /// A control that is in a window already leaves its place there. Returns 1, or 0 for a null control.
    long AddCntrlBefore(CControlBase* control, CControlBase* before);
    /// The same, directly after another one.
    long AddCntrlAfter(CControlBase* control, CControlBase* after);
    /// Takes a control out of the window; it is not destroyed. Returns 1, or 0 when it is not in this window.
    long RemoveCntrl(CControlBase* control);

    ///@{
    /// The first control of the list (the lowest), or null; go on with CControlBase::NextControl.
    CControlBase* FirstControl() const { return m_first; }
    CControlBase* LastControl() const { return m_last; }
    long GetNumControls() const { return m_count; }
    ///@}

    ///@{
    /// The window's place on the screen, pixels.
    long X() const { return m_x; }
    long Y() const { return m_y; }
    ///@}
    /// True when the window's controls are part of the screen's picture.
    virtual bool IsOnScreen() const { return false; }

protected:
    /// Moves the window with all its controls, in screen pixels.
    void MoveTo(long x, long y);

private:
    friend class orvane::ControlIndex;

    void Place(CControlBase* control, CControlBase* before);
    void Link(CControlBase* control, CControlBase* before);
    void Unlink(CControlBase* control);

    CControlBase* m_first = nullptr;
    CControlBase* m_last = nullptr;
    long m_count = 0;
    long m_x = 0;
    long m_y = 0;
    orvane::ControlIndex* m_index = nullptr; ///< finds the controls by their places; null while they are few
};

/// A window of the screen. It does not cut its controls to a size of its own. Dialogs lie above each other in the order
/// in which they were shown.
class ORVANE_API CDialog : public CWindowBase
{
public:
    /// At (0, 0), not shown.
    CDialog() = default;
    /// Hides it and takes its controls out.
    ~CDialog() override;

    /// Moves the dialog, in screen pixels; any 32-bit place is allowed.
    void SetPos(long x, long y);
    /// Puts the dialog on the screen, above those that are shown; nothing when it is shown.
    void Show();
    /// Takes it off the screen; nothing when it is not shown.
    void Hide();

    bool IsOnScreen() const override { return m_shown; }

private:
    bool m_shown = false;
};
