// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/area.h"

class CControlBase;
class CWindowBase;

namespace orvane
{

/// The control's rectangle in screen pixels; it stands in a window.
Area PlaceOnScreen(const CControlBase& control);
/// Has the area that the control covers composed anew; nothing when it is not part of the screen's picture.
void InvalidatePlace(const CControlBase& control);
/// The same for every control of the window.
void InvalidateControls(const CWindowBase& window);

} // namespace orvane
