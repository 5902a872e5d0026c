// SPDX-License-Identifier: MIT
#include "examples/klondike/app/layout.h"

#include "examples/klondike/rules/table.h"

#include <algorithm>
#include <cmath>

namespace klondike
{

namespace
{

constexpr int kColumns = static_cast<int>(kNumTableau);

/// Parts of a card's width between two columns, and of its height between the two rows.
constexpr double kGap = 0.14;
constexpr double kRowGap = 0.2;
/// Cards on cards that a column shows without being squeezed, in parts of a card's height.
constexpr double kFan = 1.5;
/// Steps from a card to the next one in a column, in parts of a card's height.
constexpr double kStepUp = 0.22;
constexpr double kStepDown = 0.1;
/// From a card of the waste to the next, in parts of its width.
constexpr double kWasteStep = 0.24;

int Rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

int BarHeight(int height)
{
    constexpr double kShare = 0.072;
    return std::clamp(Rounded(height * kShare), 30, 96);
}

int Margin(int height)
{
    return std::max(height / 60, 4);
}

} // namespace

bool operator==(const Layout& a, const Layout& b)
{
    return a.width == b.width && a.height == b.height && a.card == b.card && a.piles == b.piles;
}

render::Rectangle<int> Layout::Place(std::size_t pile) const
{
    const cardkit::Pixel place = piles.at(pile).place;
    return {place.x, place.y, card.width, card.height};
}

std::vector<TableSlot> Layout::Slots(SlotSign stock) const
{
    std::vector<TableSlot> slots;
    for (std::size_t pile = 0; pile < piles.size(); ++pile) {
        if (pile != kWaste) {
            slots.push_back({Place(pile), pile == kStock ? stock : SlotSign::None});
        }
    }
    return slots;
}

CardSize CardRoom(int width, int height)
{
    const double columns = width / (kColumns + (kColumns + 1) * kGap);
    const double rows = (height - BarHeight(height) - 2 * Margin(height)) / (2.0 + kRowGap + kFan);
    const auto side = [](double pixels) {
        return std::clamp(static_cast<int>(pixels), kSmallestCardSide, kLargestCardSide);
    };
    return {side(columns), side(rows)};
}

Layout MakeLayout(int width, int height, const LayoutWishes& wishes)
{
    Layout layout;
    layout.width = width;
    layout.height = height;
    const CardSize card = FittedCard(CardRoom(width, height), wishes.cardAspect);
    layout.card = {card.width, card.height};
    const int bar = BarHeight(height);
    layout.toolBar = {0, height - bar, width, bar};
    layout.textPixels = std::max(Rounded(bar * 0.4), 11);

    // Wide windows have more room between the columns, but a table must not fall apart.
    const int widest = Rounded(card.width * 0.45);
    const int gap = std::min((width - kColumns * card.width) / (kColumns + 1), widest);
    const int left = (width - kColumns * card.width - (kColumns - 1) * gap) / 2;
    const int top = Margin(height);
    const int columnTop = top + card.height + Rounded(card.height * kRowGap);
    const auto column = [&](int index) {
        return left + (wishes.leftHanded ? kColumns - 1 - index : index) * (card.width + gap);
    };

    const int wasteStep = Rounded(card.width * kWasteStep) * (wishes.leftHanded ? -1 : 1);
    cardkit::PileLayout stock = cardkit::Squared({column(0), top});
    cardkit::PileLayout waste = cardkit::Squared({column(1), top});
    waste.stepUp = waste.stepDown = {wasteStep, 0};
    waste.apart = wishes.wasteApart;
    layout.piles = {stock, waste};
    const int foundations = static_cast<int>(kNumFoundations);
    for (int i = 0; i < foundations; ++i) {
        const int place = kColumns - foundations + (wishes.leftHanded ? foundations - 1 - i : i);
        layout.piles.push_back(cardkit::Squared({column(place), top}));
    }
    const int room = std::max(height - bar - Margin(height) - columnTop - card.height, 0);
    for (int i = 0; i < kColumns; ++i) {
        layout.piles.push_back(cardkit::FannedDown({left + i * (card.width + gap), columnTop},
                                                   Rounded(card.height * kStepUp), Rounded(card.height * kStepDown),
                                                   room));
    }
    return layout;
}

} // namespace klondike
