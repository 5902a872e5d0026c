// SPDX-License-Identifier: MIT
#include "host/window.h"

#include "orvane/control_area.h"
#include "orvane/control_index.h"
#include "orvane/dialog_stack.h"
#include "orvane/number32.h"

#include <algorithm>

CWindowBase::~CWindowBase()
{
    orvane::ControlIndex::Drop(*this);
    while (m_first != nullptr) {
        Unlink(m_first);
    }
}

long CWindowBase::AddCntrlBefore(CControlBase* control, CControlBase* before)
{
    if (control == nullptr) {
        return 0;
    }
    Place(control, before != nullptr && before->m_window == this ? before : nullptr);
    return 1;
}

long CWindowBase::AddCntrlAfter(CControlBase* control, CControlBase* after)
{
    if (control == nullptr) {
        return 0;
    }
    Place(control, after != nullptr && after->m_window == this ? after->m_next : nullptr);
    return 1;
}

long CWindowBase::RemoveCntrl(CControlBase* control)
{
    if (control == nullptr || control->m_window != this) {
        return 0;
    }
    orvane::InvalidatePlace(*control);
    Unlink(control);
    return 1;
}

void CWindowBase::MoveTo(long x, long y)
{
    const long newX = orvane::WrapTo32Bits(x);
    const long newY = orvane::WrapTo32Bits(y);
    if (newX == m_x && newY == m_y) {
        return;
    }
    orvane::InvalidateControls(*this);
    m_x = newX;
    m_y = newY;
    orvane::InvalidateControls(*this);
}

/// Puts the control before another one of this window, or at the end for null. Beside itself it keeps its place.
void CWindowBase::Place(CControlBase* control, CControlBase* before)
{
    if (control->m_window == this && (before == control || before == control->m_next)) {
        return;
    }
    if (control->m_window == this) {
        Unlink(control); // the same area is damaged below
    } else if (control->m_window != nullptr) {
        control->m_window->RemoveCntrl(control);
    }
    Link(control, before);
    orvane::InvalidatePlace(*control);
}

void CWindowBase::Link(CControlBase* control, CControlBase* before)
{
    CControlBase* const after = before == nullptr ? m_last : before->m_prev;
    control->m_window = this;
    control->m_prev = after;
    control->m_next = before;
    (after == nullptr ? m_first : after->m_next) = control;
    (before == nullptr ? m_last : before->m_prev) = control;
    ++m_count;
    orvane::ControlIndex::Enter(*control);
}

void CWindowBase::Unlink(CControlBase* control)
{
    orvane::ControlIndex::Leave(*control);
    (control->m_prev == nullptr ? m_first : control->m_prev->m_next) = control->m_next;
    (control->m_next == nullptr ? m_last : control->m_next->m_prev) = control->m_prev;
    control->m_window = nullptr;
    control->m_prev = nullptr;
    control->m_next = nullptr;
    --m_count;
}

CDialog::~CDialog()
{
    Hide();
}

void CDialog::SetPos(long x, long y)
{
    MoveTo(x, y);
}

void CDialog::Show()
{
    if (m_shown) {
        return;
    }
    orvane::ShownDialogs().push_back(this);
    m_shown = true;
    orvane::InvalidateControls(*this);
}

void CDialog::Hide()
{
    if (!m_shown) {
        return;
    }
    orvane::InvalidateControls(*this);
    m_shown = false;
    auto& dialogs = orvane::ShownDialogs();
    dialogs.erase(std::find(dialogs.begin(), dialogs.end(), this));
}
