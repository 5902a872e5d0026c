// SPDX-License-Identifier: MIT
#include "kit/flight_path.h"

#include "animation/move_3d.h"
#include "animation/move_list.h"

#include <cmath>

namespace cardkit
{

namespace
{

/// The part of the flight in which a card turns over.
constexpr double kTurnFrom = 0.16;
constexpr double kTurnTo = 0.84;

/// From 0 to 1 with no speed at either end; the way into it is shorter than the way out, as a tossed card has it.
double Ease(double t)
{
    constexpr double kQuickStart = 0.6;
    const double skewed = t + kQuickStart * t * (1.0 - t);
    return skewed * skewed * (3.0 - 2.0 * skewed);
}

double SmoothStep(double from, double to, double t)
{
    const double u = t <= from ? 0.0 : t >= to ? 1.0 : (t - from) / (to - from);
    return u * u * (3.0 - 2.0 * u);
}

/// The longest move for that many remaining frames. A curved track runs over a grid of 128 steps: only with 1, 2, 4, 8
/// or 16 intervals does every frame fall on the grid, with others the speed trembles.
int MoveFrames(int remaining)
{
    for (const int frames : {17, 9, 5, 3, 2}) {
        if (frames <= remaining) {
            return frames;
        }
    }
    return 1;
}

/// Sends one track of a move through its values at the start, in the middle and at the end.
void BendTrack(C3DMove& move, void (C3DMove::*set)(double, double, double, double), double start, double middle,
               double end)
{
    constexpr double kArchOfBends = 32.0; // what a sum of bends of 1 adds in the middle
    const double bend = (middle - (start + end) / 2.0) / kArchOfBends / 2.0;
    (move.*set)(start, bend, end, bend);
}

} // namespace

FlightPath::FlightPath(const TablePlane& plane, const Placement& from, const Placement& to, const FlightStyle& style)
    : m_plane(plane), m_from(plane.SeenUnscaled(from)), m_to(to), m_style(style),
      m_length(std::hypot(m_to.x - m_from.x, m_to.y - m_from.y)), m_turnsOver(m_from.rotX != m_to.rotX)
{
    if (m_length > 0.0) {
        m_directionX = (m_to.x - m_from.x) / m_length;
        m_directionY = (m_to.y - m_from.y) / m_length;
    }
}

Placement FlightPath::At(double progress) const
{
    const double way = Ease(progress);
    const double swell = 4.0 * way * (1.0 - way); // 0 at both ends, 1 in the middle
    Placement place;
    const double rise = -m_style.arch * swell;
    place.z = std::lerp(m_from.z, m_to.z, way) + rise;
    // In perspective whatever rises moves away from the middle of the screen, and a card near an edge would leave it.
    // Most of that is taken back.
    constexpr double kSteadiness = 0.85;
    const double steady = std::lerp(1.0, m_plane.Shrinkage(rise), kSteadiness);
    const double aside = m_style.bow * m_length * swell;
    place.x = (std::lerp(m_from.x, m_to.x, way) - m_directionY * aside) * steady;
    place.y = (std::lerp(m_from.y, m_to.y, way) + m_directionX * aside) * steady;

    const double turn = SmoothStep(kTurnFrom, kTurnTo, progress);
    place.rotX = std::lerp(m_from.rotX, m_to.rotX, m_turnsOver ? turn : way) + m_style.bank * swell * m_directionY;
    place.rotY = std::lerp(m_from.rotY, m_to.rotY, way) + m_style.bank * swell * m_directionX;
    place.rotZ = std::lerp(m_from.rotZ, m_to.rotZ, way) + m_style.twist * swell;
    return place;
}

std::unique_ptr<C3DMoveList> MakeMoves(const Way& way, int frames)
{
    auto moves = std::make_unique<C3DMoveList>();
    const auto at = [&](double frame) { return way(frames > 1 ? frame / (frames - 1) : 1.0); };
    // Each move starts one frame after the end of the one before it: a list shows both sides of a joint.
    for (int first = 0; first < frames;) {
        const int count = MoveFrames(frames - first);
        const int last = first + count - 1;
        const Placement start = at(first);
        const Placement middle = at((first + last) / 2.0);
        const Placement end = at(last);
        auto move = std::make_unique<C3DMove>();
        move->Init(start.x, start.y, start.z, end.x, end.y, end.z, count);
        BendTrack(*move, &C3DMove::SetX, start.x, middle.x, end.x);
        BendTrack(*move, &C3DMove::SetY, start.y, middle.y, end.y);
        BendTrack(*move, &C3DMove::SetZ, start.z, middle.z, end.z);
        BendTrack(*move, &C3DMove::SetScale, start.scale, middle.scale, end.scale);
        BendTrack(*move, &C3DMove::SetRotX, start.rotX, middle.rotX, end.rotX);
        BendTrack(*move, &C3DMove::SetRotY, start.rotY, middle.rotY, end.rotY);
        BendTrack(*move, &C3DMove::SetRotZ, start.rotZ, middle.rotZ, end.rotZ);
        if (moves->AddMove(move.get()) != 0) {
            move.release();
        }
        first += count;
    }
    return moves;
}

} // namespace cardkit
