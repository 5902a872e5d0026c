// SPDX-License-Identifier: MIT
#pragma once

#include "orvane/area.h"
#include "orvane/damage.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

class CControlBase;
class CWindowBase;

namespace orvane
{

/// Finds the controls of one window by their places, so that composing a small area costs what lies there and not what
/// the window holds. Made by the first composing of a window with many controls, then kept right by every change; when
/// memory for it runs out it is dropped, and the list is walked until the next composing.
class ControlIndex
{
public:
    ControlIndex(const ControlIndex&) = delete;
    ControlIndex& operator=(const ControlIndex&) = delete;

    /// The window's index, made when it is worth it; null when there is none.
    static ControlIndex* Of(CWindowBase& window) noexcept;
    static void Drop(CWindowBase& window) noexcept;
    ///@{
    /// The control stands in a window: it has come to its place in the list and on the screen, or is about to leave it.
    /// Constant time on average, but for a walk over the controls of a grid cell when it leaves.
    static void Enter(CControlBase& control) noexcept;
    static void Leave(const CControlBase& control) noexcept;
    ///@}

    /// Appends the controls that may reach into one of the areas of the screen, in list order. False, with nothing
    /// appended, when a walk over the whole window costs no more.
    bool Find(const Damage::Rectangles& areas, std::vector<const CControlBase*>& found);

private:
    using Cell = std::uint64_t;
    /// A range of grid cells, half-open.
    using CellRange = Area;

    explicit ControlIndex(CWindowBase& window);

    static Area PlaceInWindow(const CControlBase& control);
    static CellRange CellsOf(const Area& area);
    static bool IsLarge(const CellRange& cells);
    template <typename Visitor> static void VisitCells(const CellRange& cells, Visitor visitor);

    void Add(CControlBase& control);
    void Remove(const CControlBase& control) noexcept;
    void Number(CControlBase& control);
    void NumberAll();
    bool FindCells(const Damage::Rectangles& areas);

    CWindowBase& m_window;
    std::unordered_map<Cell, std::vector<const CControlBase*>> m_cells;
    std::vector<const CControlBase*> m_large; ///< those that would stand in too many cells
    std::vector<Cell> m_wanted;               ///< working memory of Find
};

/// While it lives, the place and size of a control may be changed: what it shows before and after is damaged, and the
/// index of its window follows.
class PlaceChange
{
public:
    explicit PlaceChange(CControlBase& control);
    ~PlaceChange();
    PlaceChange(const PlaceChange&) = delete;
    PlaceChange& operator=(const PlaceChange&) = delete;

private:
    CControlBase& m_control;
};

} // namespace orvane
