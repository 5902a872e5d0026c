// SPDX-License-Identifier: MIT
#include "orvane/control_area.h"

#include "host/render.h"
#include "host/window.h"

#include <limits>

namespace orvane
{

Area PlaceOnScreen(const CControlBase& control)
{
    const CWindowBase& window = *control.Window();
    return AreaAt(std::int64_t{window.X()} + control.X(), std::int64_t{window.Y()} + control.Y(), control.Width(),
                  control.Height());
}

void InvalidatePlace(const CControlBase& control)
{
    if (!control.IsShown() || control.Window() == nullptr || !control.Window()->IsOnScreen()) {
        return;
    }
    // What is cut off here is far from any screen, and the sides never grow.
    constexpr Area kRepresentable{std::numeric_limits<int>::min(), std::numeric_limits<int>::min(),
                                  std::numeric_limits<int>::max(), std::numeric_limits<int>::max()};
    const Area place = Intersection(PlaceOnScreen(control), kRepresentable);
    if (!place.IsEmpty()) {
        Render::Instance().InvalidateArea(RectangleOf(place));
    }
}

void InvalidateControls(const CWindowBase& window)
{
    for (const CControlBase* control = window.FirstControl(); control != nullptr; control = control->NextControl()) {
        InvalidatePlace(*control);
    }
}

} // namespace orvane
