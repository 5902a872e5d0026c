// SPDX-License-Identifier: MIT
#include "kit/edge_on.h"

#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "cardtable/card_table.h"
#include "geometry/polygon.h"
#include "kit/flight_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace cardkit
{

namespace
{

constexpr int kCorners = 4;

/// Projects as a drawing does, to whole half pixels.
double DrawnArea(CCardTable& table, const CPolygon& card)
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    card.GetPosition(x, y, z);
    std::array<long, kCorners> screenX{};
    std::array<long, kCorners> screenY{};
    for (std::size_t i = 0; i < kCorners; ++i) {
        double cornerX = 0.0;
        double cornerY = 0.0;
        double cornerZ = 0.0;
        card.GetPoint(static_cast<long>(i), cornerX, cornerY, cornerZ);
        table.ProjectPoint2Screen(cornerX + x, cornerY + y, cornerZ + z, screenX[i], screenY[i]);
    }
    const double cross = static_cast<double>(screenX[2] - screenX[0]) * static_cast<double>(screenY[3] - screenY[1]) -
                         static_cast<double>(screenX[3] - screenX[1]) * static_cast<double>(screenY[2] - screenY[0]);
    return std::abs(cross) / 2.0 / 4.0; // half the cross product of the diagonals; four half-pixel squares a pixel
}

} // namespace

double SmallestDrawnArea(CCardTable& table, C3DMoveList& moves, CardSize size)
{
    const double x = size.width / 2.0;
    const double y = size.height / 2.0;
    CPolygon card;
    card.Set3D(-x, y, 0.0, x, y, 0.0, x, -y, 0.0, -x, -y, 0.0);
    double smallest = std::numeric_limits<double>::max();
    for (moves.First(); moves.Exists() != 0; moves.Next(0)) {
        Placement place;
        moves.Get()->Get3DPos(place.x, place.y, place.z);
        moves.Get()->Get3DRot(place.rotX, place.rotY, place.rotZ);
        card.SetPosition(place.x, place.y, place.z);
        card.SetRotate(place.rotX, place.rotY, place.rotZ);
        card.RotatePolygon();
        smallest = std::min(smallest, DrawnArea(table, card));
        card.ResetCoords();
    }
    moves.First();
    return smallest;
}

int FramesNeverEdgeOn(CCardTable& table, const FlightPath& path, int wanted, CardSize size)
{
    constexpr int kTries = 5;
    if (!path.TurnsOver()) {
        return wanted; // what a card is banked in flight is far from a right angle
    }
    int best = wanted;
    double bestArea = -1.0;
    for (int frames = wanted; frames < wanted + kTries; ++frames) {
        const auto moves = MakeMoves([&path](double progress) { return path.At(progress); }, frames);
        const double area = SmallestDrawnArea(table, *moves, size);
        if (area > bestArea) {
            best = frames;
            bestArea = area;
        }
    }
    return best;
}

} // namespace cardkit
