// SPDX-License-Identifier: MIT
#include "host/bitmap.h"

#include "orvane/area.h"
#include "orvane/pixel.h"

#include <algorithm>
#include <cstring>
#include <new>

void Bitmap::FillRect(const render::Rectangle<int>& rectangle, const Rgba& colour)
{
    using namespace orvane;
    const Area filled = Intersection(AreaOf(rectangle), AreaAt(0, 0, m_width, m_height));
    if (filled.IsEmpty()) {
        return;
    }
    const std::uint32_t pixel = PremultipliedPixel(colour);
    std::uint32_t* row = Pixels(*this) + filled.top * m_width + filled.left;
    for (std::int64_t y = filled.top; y < filled.bottom; ++y, row += m_width) {
        std::fill_n(row, filled.right - filled.left, pixel);
    }
}

void Bitmap::ClearRect(render::Rectangle<int>& rectangle)
{
    FillRect(rectangle, Rgba{});
}

bool Bitmap::Realloc(int width, int height)
{
    if (!m_alive || width > kMaxSide || height > kMaxSide) {
        return false;
    }
    if (width <= 0 || height <= 0) {
        Free();
        return true;
    }
    const std::size_t size = std::size_t{4} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    if (size > m_capacity) {
        void* const pixels = ::operator new(size);
        Free();
        m_pixels = static_cast<std::uint8_t*>(pixels);
        m_capacity = size;
    }
    m_width = width;
    m_height = height;
    std::memset(m_pixels, 0, size);
    Changed();
    return true;
}

void Bitmap::Free()
{
    ::operator delete(m_pixels);
    m_pixels = nullptr;
    m_capacity = 0;
    m_width = 0;
    m_height = 0;
    Changed();
}
