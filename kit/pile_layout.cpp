// SPDX-License-Identifier: MIT
#include "kit/pile_layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace cardkit
{

namespace
{

/// How much of a way is left so that it fits.
double Squeeze(std::int64_t way, int room)
{
    const std::int64_t length = std::abs(way);
    const int allowed = std::max(room, 0);
    return length > allowed ? static_cast<double>(allowed) / static_cast<double>(length) : 1.0;
}

int Along(int start, std::int64_t way, double squeeze)
{
    // Rounded towards the start, so that no card lies outside the room.
    const double place = start + std::trunc(static_cast<double>(way) * squeeze);
    return static_cast<int>(std::clamp(place, -1e9, 1e9));
}

} // namespace

PileLayout Squared(Pixel place)
{
    PileLayout layout;
    layout.place = place;
    return layout;
}

PileLayout FannedDown(Pixel place, int stepUp, int stepDown, int room)
{
    PileLayout layout;
    layout.place = place;
    layout.stepUp = {0, stepUp};
    layout.stepDown = {0, stepDown};
    layout.roomY = room;
    return layout;
}

PileLayout FannedRight(Pixel place, int step, int room)
{
    PileLayout layout;
    layout.place = place;
    layout.stepUp = {step, 0};
    layout.stepDown = {step, 0};
    layout.roomX = room;
    return layout;
}

void ComputeHomes(const PileLayout& layout, const std::vector<Facing>& facings, std::vector<Pixel>& homes)
{
    struct Way {
        std::int64_t x = 0;
        std::int64_t y = 0;
    };
    const std::size_t count = facings.size();
    const auto cardsAStep = static_cast<std::size_t>(std::max(layout.cardsAStep, 1));
    const auto apart = static_cast<std::size_t>(std::max(layout.apart, 1));
    const std::size_t firstApart = count > apart ? count - apart : 0;
    const auto steps = [&](std::size_t card) { return card > firstApart && card % cardsAStep == 0; };

    Way whole;
    for (std::size_t i = 1; i < count; ++i) {
        if (steps(i)) {
            const Pixel& step = facings[i - 1] == Facing::Up ? layout.stepUp : layout.stepDown;
            whole.x += step.x;
            whole.y += step.y;
        }
    }
    const double squeezeX = Squeeze(whole.x, layout.roomX);
    const double squeezeY = Squeeze(whole.y, layout.roomY);

    homes.resize(count);
    Way way;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0 && steps(i)) {
            const Pixel& step = facings[i - 1] == Facing::Up ? layout.stepUp : layout.stepDown;
            way.x += step.x;
            way.y += step.y;
        }
        homes[i] = {Along(layout.place.x, way.x, squeezeX), Along(layout.place.y, way.y, squeezeY)};
    }
}

Pixel NextHome(const PileLayout& layout, const std::vector<Facing>& facings)
{
    std::vector<Facing> grown = facings;
    grown.push_back(Facing::Up);
    std::vector<Pixel> homes;
    ComputeHomes(layout, grown, homes);
    return homes.back();
}

} // namespace cardkit
