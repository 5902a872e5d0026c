// SPDX-License-Identifier: MIT
#include "orvane/control_index.h"

#include "host/window.h"
#include "orvane/control_area.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace orvane
{

namespace
{

/// A window of fewer controls is walked: that is as fast, and costs no memory.
constexpr long kLeastControls = 64;

/// A cell of the grid is a square of 2 to this power pixels: a card stands in a few of them.
constexpr int kCellShift = 6;
constexpr std::int64_t kMostCells = 64;

std::int64_t NumCells(const Area& cells)
{
    return cells.IsEmpty() ? 0 : (cells.right - cells.left) * (cells.bottom - cells.top);
}

} // namespace

ControlIndex* ControlIndex::Of(CWindowBase& window) noexcept
{
    if (window.m_index == nullptr && window.m_count >= kLeastControls) {
        try {
            window.m_index = new ControlIndex(window);
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
    }
    return window.m_index;
}

void ControlIndex::Drop(CWindowBase& window) noexcept
{
    delete std::exchange(window.m_index, nullptr);
}

void ControlIndex::Enter(CControlBase& control) noexcept
{
    CWindowBase* const window = control.m_window;
    if (window == nullptr || window->m_index == nullptr) {
        return;
    }
    try {
        window->m_index->Add(control);
    } catch (const std::bad_alloc&) {
        Drop(*window);
    }
}

void ControlIndex::Leave(const CControlBase& control) noexcept
{
    if (control.m_window != nullptr && control.m_window->m_index != nullptr) {
        control.m_window->m_index->Remove(control);
    }
}

ControlIndex::ControlIndex(CWindowBase& window) : m_window(window)
{
    NumberAll();
    for (CControlBase* control = window.m_first; control != nullptr; control = control->m_next) {
        Add(*control);
    }
}

Area ControlIndex::PlaceInWindow(const CControlBase& control)
{
    return AreaAt(control.X(), control.Y(), control.Width(), control.Height());
}

ControlIndex::CellRange ControlIndex::CellsOf(const Area& area)
{
    if (area.IsEmpty()) {
        return {};
    }
    return {area.left >> kCellShift, area.top >> kCellShift, ((area.right - 1) >> kCellShift) + 1,
            ((area.bottom - 1) >> kCellShift) + 1};
}

bool ControlIndex::IsLarge(const CellRange& cells)
{
    return NumCells(cells) > kMostCells;
}

template <typename Visitor> void ControlIndex::VisitCells(const CellRange& cells, Visitor visitor)
{
    for (std::int64_t y = cells.top; y < cells.bottom; ++y) {
        for (std::int64_t x = cells.left; x < cells.right; ++x) {
            visitor(Cell{static_cast<std::uint32_t>(x)} << 32 | static_cast<std::uint32_t>(y));
        }
    }
}

void ControlIndex::Add(CControlBase& control)
{
    Number(control);
    const CellRange cells = CellsOf(PlaceInWindow(control));
    if (IsLarge(cells)) {
        m_large.push_back(&control);
    } else {
        VisitCells(cells, [&](Cell cell) { m_cells[cell].push_back(&control); });
    }
}

void ControlIndex::Remove(const CControlBase& control) noexcept
{
    const CellRange cells = CellsOf(PlaceInWindow(control));
    const auto removeFrom = [&](std::vector<const CControlBase*>& controls) {
        const auto found = std::find(controls.begin(), controls.end(), &control);
        *found = controls.back();
        controls.pop_back();
    };
    if (IsLarge(cells)) {
        removeFrom(m_large);
        return;
    }
    VisitCells(cells, [&](Cell cell) {
        const auto found = m_cells.find(cell);
        removeFrom(found->second);
        if (found->second.empty()) {
            m_cells.erase(found);
        }
    });
}

/// Gives the control a number between those of its neighbours. A full gap has all of them numbered anew, which is rare:
/// the gaps are wide, and controls put one after another before the same one use them up in small steps.
void ControlIndex::Number(CControlBase& control)
{
    constexpr std::uint64_t kStep = std::uint64_t{1} << 32;
    const std::uint64_t before = control.m_prev != nullptr ? control.m_prev->m_number : 0;
    const std::uint64_t after =
        control.m_next != nullptr ? control.m_next->m_number : std::numeric_limits<std::uint64_t>::max();
    if (after - before < 2) {
        NumberAll();
        return;
    }
    control.m_number = before + std::min((after - before) / 2, kStep);
}

void ControlIndex::NumberAll()
{
    const std::uint64_t gap =
        std::numeric_limits<std::uint64_t>::max() / (static_cast<std::uint64_t>(m_window.m_count) + 1);
    std::uint64_t number = 0;
    for (CControlBase* control = m_window.m_first; control != nullptr; control = control->m_next) {
        number += gap;
        control->m_number = number;
    }
}

bool ControlIndex::FindCells(const Damage::Rectangles& areas)
{
    m_wanted.clear();
    std::int64_t number = 0;
    for (const auto& area : areas) {
        const CellRange cells = CellsOf(
            AreaAt(std::int64_t{area.x} - m_window.X(), std::int64_t{area.y} - m_window.Y(), area.width, area.height));
        number += NumCells(cells);
        if (number > m_window.GetNumControls()) {
            return false;
        }
        VisitCells(cells, [&](Cell cell) { m_wanted.push_back(cell); });
    }
    std::sort(m_wanted.begin(), m_wanted.end());
    m_wanted.erase(std::unique(m_wanted.begin(), m_wanted.end()), m_wanted.end());
    return true;
}

bool ControlIndex::Find(const Damage::Rectangles& areas, std::vector<const CControlBase*>& found)
{
    if (!FindCells(areas)) {
        return false;
    }
    const std::size_t start = found.size();
    found.insert(found.end(), m_large.begin(), m_large.end());
    for (const Cell cell : m_wanted) {
        const auto controls = m_cells.find(cell);
        if (controls == m_cells.end()) {
            continue;
        }
        found.insert(found.end(), controls->second.begin(), controls->second.end());
        if (found.size() - start > static_cast<std::size_t>(m_window.GetNumControls())) {
            found.resize(start);
            return false;
        }
    }
    const auto begin = found.begin() + static_cast<std::ptrdiff_t>(start);
    std::sort(begin, found.end(),
              [](const CControlBase* a, const CControlBase* b) { return a->m_number < b->m_number; });
    found.erase(std::unique(begin, found.end()), found.end());
    return true;
}

PlaceChange::PlaceChange(CControlBase& control) : m_control(control)
{
    InvalidatePlace(control);
    ControlIndex::Leave(control);
}

PlaceChange::~PlaceChange()
{
    ControlIndex::Enter(m_control);
    InvalidatePlace(m_control);
}

} // namespace orvane
