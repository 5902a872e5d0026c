// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "host/owned_bitmap.h"
#include "host/rectangle.h"
#include "host/rgba.h"
#include "orvane/area.h"
#include "orvane/damage.h"
#include "orvane/uncovered_parts.h"

#include <cstddef>
#include <vector>

class CControlBase;

namespace orvane
{

/// The screen's picture, what of it is damaged, and its composing from the dialogs that are shown.
class Screen
{
public:
    /// A picture of that size that has not been composed yet; no damage.
    Screen(int width, int height, const Rgba& background);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Pixels. With one side 0 the picture is empty, but the other keeps its value.
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    const Bitmap& Picture() const { return *m_picture; }
    /// Gives the picture a new size; it is lost and the damage forgotten. Throws std::bad_alloc and then changes
    /// nothing.
    void Resize(int width, int height);

    void Invalidate(const render::Rectangle<int>& area) noexcept { m_damage.Add(area); }
    bool HasDamage() const { return !m_damage.IsEmpty(); }
    /// Composes the damaged areas and returns them, disjoint. What is damaged while controls paint waits for the next
    /// composing; when one throws, everything that was to be composed is damaged again.
    const Damage::Rectangles& Compose();
    void ComposeAll();

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// A control of which something is to be painted.
    struct Layer {
        const CControlBase* control;
        Area place;
        Area opaque; ///< the part that hides what is below
    };
    /// In the list of an area's layers, from the highest down.
    struct Link {
        std::size_t layer;
        std::size_t below; ///< the next link, or kNone
    };
    struct Step {
        const Layer* layer;
        Area part;
    };

    void FindControls(const Damage::Rectangles& areas);
    void StackLayers(const Damage::Rectangles& areas);
    void Paint(const Damage::Rectangles& areas);
    void PaintArea(const Area& area, std::size_t highest);

    int m_width;
    int m_height;
    Rgba m_background;
    OwnedBitmap m_picture;
    Damage m_damage;
    Damage::Rectangles m_composed;
    // Working memory of Paint.
    std::vector<const CControlBase*> m_controls;
    std::vector<Layer> m_layers; ///< the lowest first
    std::vector<Link> m_links;
    std::vector<std::size_t> m_highest; ///< for each area the link of its highest layer, or kNone
    UncoveredParts m_uncovered;
    std::vector<Step> m_steps; ///< the highest first
};

} // namespace orvane
