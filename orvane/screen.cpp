// SPDX-License-Identifier: MIT
#include "orvane/screen.h"

#include "host/bitmap_manager.h"
#include "host/window.h"
#include "orvane/area.h"
#include "orvane/control_area.h"
#include "orvane/control_index.h"
#include "orvane/dialog_stack.h"

#include <algorithm>
#include <utility>

namespace orvane
{

namespace
{

/// Disjoint areas, sorted by y, in which to find those that a control reaches into without looking at all.
class PaintAreas
{
public:
    explicit PaintAreas(const Damage::Rectangles& areas) : m_areas(areas)
    {
        m_bounds = AreaOf(areas.front());
        for (const auto& rectangle : areas) {
            const Area area = AreaOf(rectangle);
            m_bounds = {std::min(m_bounds.left, area.left), std::min(m_bounds.top, area.top),
                        std::max(m_bounds.right, area.right), std::max(m_bounds.bottom, area.bottom)};
            m_tallest = std::max(m_tallest, rectangle.height);
        }
    }

    /// Calls the visitor with the number of each area that the place reaches into, and their common part.
    template <typename Visitor> void VisitCommon(const Area& place, Visitor visitor) const
    {
        if (Intersection(place, m_bounds).IsEmpty()) {
            return;
        }
        const auto endsAbove = [&](const render::Rectangle<int>& area, std::int64_t top) {
            return area.y + m_tallest <= top;
        };
        auto area = std::lower_bound(m_areas.begin(), m_areas.end(), place.top, endsAbove);
        for (; area != m_areas.end() && area->y < place.bottom; ++area) {
            const Area common = Intersection(AreaOf(*area), place);
            if (!common.IsEmpty()) {
                visitor(static_cast<std::size_t>(area - m_areas.begin()), RectangleOf(common));
            }
        }
    }

private:
    const Damage::Rectangles& m_areas;
    Area m_bounds;
    int m_tallest = 0;
};

} // namespace

Screen::Screen(int width, int height, const Rgba& background)
    : m_width(width), m_height(height), m_background(background),
      m_picture(BitmapManager::Instance().Create(width, height)), m_damage(width, height)
{
}

void Screen::Resize(int width, int height)
{
    Damage damage(width, height);
    m_picture->Realloc(width, height);
    m_damage = std::move(damage);
    m_width = width;
    m_height = height;
}

const Damage::Rectangles& Screen::Compose()
{
    m_composed.clear();
    if (!HasDamage()) {
        return m_composed;
    }
    m_damage.Take(m_composed);
    try {
        Paint(m_composed);
    } catch (...) {
        for (const auto& area : m_composed) {
            m_damage.Add(area);
        }
        throw;
    }
    return m_composed;
}

void Screen::ComposeAll()
{
    m_damage.Clear();
    m_damage.Add({0, 0, m_width, m_height});
    Compose();
}

/// Lists the controls that may reach into the areas, the lowest first.
void Screen::FindControls(const Damage::Rectangles& areas)
{
    m_controls.clear();
    for (CDialog* dialog : ShownDialogs()) {
        ControlIndex* const index = ControlIndex::Of(*dialog);
        if (index != nullptr && index->Find(areas, m_controls)) {
            continue;
        }
        for (const CControlBase* control = dialog->FirstControl(); control != nullptr;
             control = control->NextControl()) {
            m_controls.push_back(control);
        }
    }
    std::erase_if(m_controls, [](const CControlBase* control) { return !control->IsShown(); });
}

void Screen::Paint(const Damage::Rectangles& areas)
{
    FindControls(areas);
    const PaintAreas paintAreas(areas);

    // What an opaque control hides in the whole of an area is not painted there.
    constexpr std::size_t kBackground = 0;
    m_lowest.assign(areas.size(), kBackground);
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        const CControlBase& control = *m_controls[i];
        paintAreas.VisitCommon(PlaceOnScreen(control), [&](std::size_t area, const render::Rectangle<int>& common) {
            if (common == areas[area] && control.IsOpaque()) {
                m_lowest[area] = i + 1;
            }
        });
    }

    for (std::size_t area = 0; area < areas.size(); ++area) {
        if (m_lowest[area] == kBackground) {
            m_picture->FillRect(areas[area], m_background);
        }
    }
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        const CControlBase& control = *m_controls[i];
        const Area place = PlaceOnScreen(control);
        paintAreas.VisitCommon(place, [&](std::size_t area, const render::Rectangle<int>& common) {
            if (i + 1 >= m_lowest[area]) {
                control.Paint(*m_picture, common, static_cast<long>(place.left), static_cast<long>(place.top));
            }
        });
    }
}

} // namespace orvane
