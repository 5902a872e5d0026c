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

/// Frames of an animation do not all need the same room: when it had to grow, it grows to four times the need, so that
/// few of them allocate.
template <typename T> void GrowAmply(std::vector<T>& items, std::size_t earlierRoom)
{
    if (items.capacity() > earlierRoom) {
        items.reserve(4 * items.size());
    }
}

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

    /// Calls the visitor with the number of each area that the place reaches into.
    template <typename Visitor> void VisitEach(const Area& place, Visitor visitor) const
    {
        if (Intersection(place, m_bounds).IsEmpty()) {
            return;
        }
        const auto endsAbove = [&](const render::Rectangle<int>& area, std::int64_t top) {
            return area.y + m_tallest <= top;
        };
        auto area = std::lower_bound(m_areas.begin(), m_areas.end(), place.top, endsAbove);
        for (; area != m_areas.end() && area->y < place.bottom; ++area) {
            if (!Intersection(AreaOf(*area), place).IsEmpty()) {
                visitor(static_cast<std::size_t>(area - m_areas.begin()));
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

/// Lists, for each area, the controls that reach into it.
void Screen::StackLayers(const Damage::Rectangles& areas)
{
    FindControls(areas);
    const PaintAreas paintAreas(areas);
    const std::size_t earlierRoom = m_links.capacity();
    m_layers.clear();
    m_links.clear();
    m_highest.assign(areas.size(), kNone);
    for (const CControlBase* control : m_controls) {
        const Area place = PlaceOnScreen(*control);
        const std::size_t layer = m_layers.size();
        paintAreas.VisitEach(place, [&](std::size_t area) {
            if (layer == m_layers.size()) {
                const Area opaque = Moved(AreaOf(control->OpaquePart()), place.left, place.top);
                m_layers.push_back({control, place, Intersection(opaque, place)});
            }
            m_links.push_back({layer, m_highest[area]});
            m_highest[area] = m_links.size() - 1;
        });
    }
    GrowAmply(m_links, earlierRoom);
}

void Screen::Paint(const Damage::Rectangles& areas)
{
    StackLayers(areas);
    for (std::size_t i = 0; i < areas.size(); ++i) {
        PaintArea(AreaOf(areas[i]), m_highest[i]);
    }
}

/// What opaque parts of higher controls hide is not painted: looks from the highest control down for what shows, then
/// paints that from the lowest up.
void Screen::PaintArea(const Area& area, std::size_t highest)
{
    const std::size_t earlierRoom = m_steps.capacity();
    m_steps.clear();
    m_uncovered.Reset(area);
    for (std::size_t link = highest; link != kNone && !m_uncovered.IsEmpty(); link = m_links[link].below) {
        const Layer& layer = m_layers[m_links[link].layer];
        for (const Area& part : m_uncovered.Parts()) {
            const Area common = Intersection(part, layer.place);
            if (!common.IsEmpty()) {
                m_steps.push_back({&layer, common});
            }
        }
        if (!layer.opaque.IsEmpty()) {
            m_uncovered.Cover(layer.opaque);
        }
    }

    for (const Area& part : m_uncovered.Parts()) {
        m_picture->FillRect(RectangleOf(part), m_background);
    }
    std::for_each(m_steps.rbegin(), m_steps.rend(), [&](const Step& step) {
        const Area& place = step.layer->place;
        step.layer->control->Paint(*m_picture, RectangleOf(step.part), static_cast<long>(place.left),
                                   static_cast<long>(place.top));
    });
    GrowAmply(m_steps, earlierRoom);
}

} // namespace orvane
