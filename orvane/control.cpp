// SPDX-License-Identifier: MIT
#include "host/control.h"

#include "host/window.h"
#include "orvane/control_area.h"
#include "orvane/control_index.h"
#include "orvane/number32.h"
#include "orvane/running_host.h"

#include <algorithm>

CControlBase::~CControlBase()
{
    if (m_window != nullptr) {
        m_window->RemoveCntrl(this);
    }
}

void CControlBase::SetPos(long x, long y)
{
    const long newX = orvane::WrapTo32Bits(x);
    const long newY = orvane::WrapTo32Bits(y);
    if (newX == m_x && newY == m_y) {
        return;
    }
    const orvane::PlaceChange change(*this);
    m_x = newX;
    m_y = newY;
}

void CControlBase::SetSize(long width, long height)
{
    const long newWidth = std::max(0, orvane::WrapTo32Bits(width));
    const long newHeight = std::max(0, orvane::WrapTo32Bits(height));
    if (newWidth == m_width && newHeight == m_height) {
        return;
    }
    const orvane::PlaceChange change(*this);
    m_width = newWidth;
    m_height = newHeight;
}

void CControlBase::Invalidate()
{
    if (const orvane::RunningHost* host = orvane::Running(); host != nullptr && host->observer != nullptr) {
        host->observer->ControlInvalidated(*this);
    }
    orvane::InvalidatePlace(*this);
}

void CControlBase::SetState(long state)
{
    if (state == m_state || (state != kStateShown && state != kStateHidden)) {
        return;
    }
    orvane::InvalidatePlace(*this);
    m_state = state;
    orvane::InvalidatePlace(*this);
}

void CControlBase::Paint(Bitmap& /*screen*/, const render::Rectangle<int>& /*area*/, long /*left*/, long /*top*/) const
{
}
