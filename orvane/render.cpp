// SPDX-License-Identifier: MIT
#include "host/render.h"

#include "host/bitmap.h"
#include "orvane/area.h"
#include "orvane/pixel.h"
#include "orvane/running_host.h"

#include <cstring>

Render& Render::Instance()
{
    static Render render;
    return render;
}

int Render::GetActiveWidth() const
{
    const orvane::RunningHost* host = orvane::Running();
    return host != nullptr ? host->screen.Width() : 0;
}

int Render::GetActiveHeight() const
{
    const orvane::RunningHost* host = orvane::Running();
    return host != nullptr ? host->screen.Height() : 0;
}

void Render::Copy(const Bitmap* source, Bitmap* destination, int destinationX, int destinationY, int sourceX,
                  int sourceY, int width, int height)
{
    using namespace orvane;
    if (source == nullptr || destination == nullptr || width <= 0 || height <= 0) {
        return;
    }
    const std::int64_t moveX = std::int64_t{sourceX} - destinationX;
    const std::int64_t moveY = std::int64_t{sourceY} - destinationY;
    const Area readable = AreaAt(-moveX, -moveY, source->Width(), source->Height());
    const Area writable = AreaAt(0, 0, destination->Width(), destination->Height());
    const Area asked = AreaAt(destinationX, destinationY, width, height);
    const Area copied = Intersection(asked, Intersection(readable, writable));
    if (copied.IsEmpty()) {
        return;
    }

    const std::uint32_t* from = Pixels(*source) + (copied.top + moveY) * source->Width() + (copied.left + moveX);
    std::uint32_t* to = Pixels(*destination) + copied.top * destination->Width() + copied.left;
    const std::size_t rowSize = sizeof(std::uint32_t) * static_cast<std::size_t>(copied.right - copied.left);
    const std::int64_t rows = copied.bottom - copied.top;
    // Within one bitmap, rows that move down are copied from the last one on, before they are overwritten.
    const bool upwards = source == destination && moveY < 0;
    for (std::int64_t i = 0; i < rows; ++i) {
        const std::int64_t row = upwards ? rows - 1 - i : i;
        std::memmove(to + row * destination->Width(), from + row * source->Width(), rowSize);
    }
}

void Render::InvalidateArea(const render::Rectangle<int>& area)
{
    orvane::RunningHost* const host = orvane::Running();
    if (host == nullptr) {
        return;
    }
    if (host->observer != nullptr) {
        host->observer->AreaInvalidated(area);
    }
    host->screen.Invalidate(area);
}
