// SPDX-License-Identifier: MIT
#include "examples/klondike/app/celebration.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace klondike
{

namespace
{

constexpr int kFlightFrames = 300;
constexpr int kFramesApart = 4;
constexpr double kRounds = 2.0;
constexpr double kTurns = 3.0; ///< of a card about its own axes
/// The part of the flight that leads into the circle, and out of it again.
constexpr double kJoin = 0.18;

double Smooth(double t)
{
    const double u = std::clamp(t, 0.0, 1.0);
    return u * u * u * (u * (u * 6.0 - 15.0) + 10.0);
}

} // namespace

void Celebration::Begin(const std::vector<std::size_t>& piles)
{
    m_order.clear();
    m_next = 0;
    m_frame = 0;
    bool found = true;
    for (long depth = 0; found; ++depth) {
        found = false;
        for (const std::size_t pile : piles) {
            const long position = m_table.At(pile).NumCards() - depth;
            if (position > 0) {
                m_order.push_back({pile, position});
                found = true;
            }
        }
    }
    m_running = !m_order.empty();
}

void Celebration::Frame()
{
    if (!m_running) {
        return;
    }
    if (m_next < m_order.size()) {
        if (m_frame++ % kFramesApart == 0) {
            Launch(m_order[m_next++]);
            m_running = m_table.IsMoving(); // else cards are not to fly
        }
    } else if (!m_table.IsMoving()) {
        m_running = false;
    }
}

void Celebration::End()
{
    if (m_running) {
        m_running = false;
        m_table.FinishAll();
    }
}

void Celebration::Launch(const cardkit::Spot& spot)
{
    const cardkit::TablePlane& plane = m_table.Plane();
    const cardkit::Placement home = m_table.At(spot.pile).Home(spot.position);
    const double radiusX = plane.Width() * 0.3;
    const double radiusY = plane.Height() * 0.26;
    const double height = plane.HeightForScale(1.7);
    const double start = std::atan2(home.y / radiusY, home.x / radiusX);
    const auto way = [=](double progress) {
        using std::numbers::pi;
        const double joined = Smooth(progress / kJoin) * Smooth((1.0 - progress) / kJoin);
        const double angle = start - 2.0 * pi * kRounds * progress;
        cardkit::Placement place = home;
        place.x = std::lerp(home.x, radiusX * std::cos(angle), joined);
        place.y = std::lerp(home.y, radiusY * std::sin(angle), joined);
        place.z = -height * joined * (0.5 - 0.45 * std::sin(angle));
        // Neighbours turn alike, so that none goes through another.
        const double turn = Smooth(progress);
        place.rotX = home.rotX + 360.0 * kTurns * turn;
        place.rotY = 25.0 * joined * std::cos(angle);
        place.rotZ = 360.0 * turn;
        return place;
    };
    m_table.FlyAlong(spot.pile, spot.position, way, kFlightFrames, false);
}

} // namespace klondike
