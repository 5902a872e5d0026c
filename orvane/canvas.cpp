// SPDX-License-Identifier: MIT
#include "host/canvas.h"

#include "host/bitmap.h"
#include "orvane/area.h"
#include "orvane/control_area.h"
#include "orvane/number32.h"
#include "orvane/opaque_part.h"
#include "orvane/pixel.h"
#include "orvane/raster/blend.h"

#include <algorithm>
#include <limits>

Canvas::~Canvas() = default;

void Canvas::Create(long x, long y, long width, long height)
{
    SetPos(x, y);
    SetSize(width, height);
    SetState(kStateShown);
}

void Canvas::SetBitmap(Bitmap* bitmap)
{
    m_bitmap = bitmap;
    orvane::InvalidatePlace(*this);
}

void Canvas::Paint(Bitmap& screen, const render::Rectangle<int>& area, long left, long top) const
{
    using namespace orvane;
    if (m_bitmap == nullptr) {
        return;
    }
    const Bitmap& picture = *m_bitmap;
    // Beyond the 32-bit range a place is as far off the screen as at its end.
    constexpr long kFarthest = std::numeric_limits<std::int32_t>::max();
    left = std::clamp(left, -kFarthest, kFarthest);
    top = std::clamp(top, -kFarthest, kFarthest);
    const Area shown =
        AreaAt(left, top, std::min<long>(Width(), picture.Width()), std::min<long>(Height(), picture.Height()));
    const Area wanted = Intersection(AreaOf(area), AreaAt(0, 0, screen.Width(), screen.Height()));
    const Area painted = Intersection(shown, wanted);
    if (painted.IsEmpty()) {
        return;
    }

    const std::uint32_t* source = Pixels(picture) + (painted.top - top) * picture.Width() + (painted.left - left);
    std::uint32_t* destination = Pixels(screen) + painted.top * screen.Width() + painted.left;
    const int count = static_cast<int>(painted.right - painted.left);
    const bool opaque = IsExamined() && Contains(AreaOf(m_opaquePart), Moved(painted, -left, -top));
    if (opaque && count == picture.Width() && count == screen.Width()) {
        // Rows without a gap between them, as of a table: the more is copied at once, the faster.
        std::copy_n(source, count * (painted.bottom - painted.top), destination);
        return;
    }
    for (std::int64_t y = painted.top; y < painted.bottom; ++y) {
        if (opaque) {
            std::copy_n(source, count, destination);
        } else {
            raster::BlendRow(destination, source, count);
        }
        source += picture.Width();
        destination += screen.Width();
    }
}

render::Rectangle<int> Canvas::OpaquePart() const
{
    if (m_bitmap == nullptr) {
        return {};
    }
    if (m_examined != m_bitmap || m_examinedRevision != m_bitmap->Revision()) {
        m_examined = m_bitmap;
        m_examinedRevision = m_bitmap->Revision();
        m_isExamined = false;
        return {};
    }
    if (!m_isExamined) {
        m_opaquePart = orvane::FindOpaquePart(*m_bitmap);
        m_isExamined = true;
    }
    return m_opaquePart;
}

bool Canvas::IsExamined() const
{
    return m_isExamined && m_examined == m_bitmap && m_examinedRevision == m_bitmap->Revision();
}
