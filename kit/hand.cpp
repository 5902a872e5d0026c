// SPDX-License-Identifier: MIT
#include "kit/hand.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace cardkit
{

namespace
{

/// How far a pointer moves before a press is a drag, pixels.
constexpr int kDragDistance = 5;

/// A card that was dropped nowhere, or where it may not lie.
constexpr Flight kReturn{FlightStyle{}, 12, 0, true};

std::int64_t SharedArea(const render::Rectangle<int>& a, const render::Rectangle<int>& b)
{
    const std::int64_t width = std::int64_t{std::min(a.x + a.width, b.x + b.width)} - std::max(a.x, b.x);
    const std::int64_t height = std::int64_t{std::min(a.y + a.height, b.y + b.height)} - std::max(a.y, b.y);
    return std::max<std::int64_t>(width, 0) * std::max<std::int64_t>(height, 0);
}

} // namespace

HandRules::~HandRules() = default;

void Hand::Press(Pixel pixel, int clicks)
{
    Cancel();
    m_table.StartWaiting();
    m_press = PressState{pixel, clicks, m_table.SpotAt(pixel)};
}

void Hand::Move(Pixel pixel)
{
    if (!m_press) {
        return;
    }
    const int dx = pixel.x - m_press->pixel.x;
    const int dy = pixel.y - m_press->pixel.y;
    if (!m_press->dragging) {
        const bool isFar = std::abs(dx) >= kDragDistance || std::abs(dy) >= kDragDistance;
        const auto& spot = m_press->spot;
        if (!isFar || !spot || spot->position == 0 || spot->position > m_table.At(spot->pile).NumCards() ||
            !m_rules.MayTake(*spot)) {
            return;
        }
        m_table.Hold(spot->pile, spot->position);
        m_press->dragging = true;
    }
    m_table.MoveHeld(dx, dy);
}

void Hand::Release(Pixel pixel)
{
    Move(pixel);
    if (!m_press) {
        return;
    }
    const PressState press = *m_press;
    if (!press.dragging) {
        m_press.reset();
        const bool isNear =
            std::abs(pixel.x - press.pixel.x) < kDragDistance && std::abs(pixel.y - press.pixel.y) < kDragDistance;
        if (isNear) {
            m_rules.Tapped(press.spot, press.clicks);
        }
        return;
    }
    const std::optional<std::size_t> target = Target();
    m_press.reset();
    if (target) {
        m_rules.Dropped(*press.spot, *target);
    }
    m_table.LetGo(kReturn);
}

void Hand::Cancel()
{
    m_press.reset();
    m_table.LetGo(kReturn);
}

std::optional<std::size_t> Hand::Target() const
{
    const render::Rectangle<int> held = m_table.HeldArea();
    std::optional<std::size_t> best;
    std::int64_t bestArea = 0;
    for (std::size_t i = 0; i < m_table.NumPiles(); ++i) {
        if (!m_rules.MayDrop(*m_press->spot, i)) {
            continue;
        }
        const CardSize size = m_table.Size();
        const Pixel next = m_table.At(i).NextHomePixel();
        const render::Rectangle<int> generous{next.x - size.width / 2, next.y - size.height / 2, size.width * 2,
                                              size.height * 2};
        const std::int64_t area = SharedArea(held, generous);
        if (area > bestArea) {
            best = i;
            bestArea = area;
        }
    }
    return best;
}

} // namespace cardkit
