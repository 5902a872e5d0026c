// SPDX-License-Identifier: MIT
#include "examples/deal/deal_script.h"

#include "cardtable/pocket.h"

#include <algorithm>
#include <cmath>

namespace deal
{

using cardkit::Facing;
using cardkit::FlightStyle;

namespace
{

/// Frames between the starts of two cards, and of their flights, at normal speed.
constexpr double kDealGap = 6.5;
constexpr double kDealFrames = 46.0;
constexpr double kGatherGap = 5.0;
constexpr double kGatherFrames = 48.0;
constexpr double kTurnGap = 5.0;
constexpr double kTurnFrames = 34.0;
constexpr double kHintGap = 8.0;
constexpr double kRaiseFrames = 100.0;

/// Frames at rest between the scenes, whatever the speed.
constexpr int kShortRest = 20;
constexpr int kLongRest = 40;

std::size_t Column(int index)
{
    return Patience::kFirstColumn + static_cast<std::size_t>(index);
}

} // namespace

DealScript::DealScript(Patience& patience, double speed)
    : m_stage(patience.Stage()), m_table(m_stage.Table()), m_speed(speed)
{
    m_table.SetSpeed(speed);
}

void DealScript::Play()
{
    Rest(kShortRest);
    DealColumns();
    Rest(kLongRest);
    GatherTopCards();
    Rest(kShortRest);
    TurnUpColumns();
    Rest(kShortRest);
    ShowFoundationHints();
    Rest(kShortRest);
    RaiseCard();
    Rest(kLongRest);
}

void DealScript::Begin(const char* scene)
{
    if (m_observer) {
        m_observer(scene);
    }
}

void DealScript::Rest(int frames)
{
    for (int i = 0; i < frames; ++i) {
        m_stage.Frame();
    }
}

void DealScript::Stagger(int count, double gap, const std::function<void(int)>& launch)
{
    int frame = 0;
    for (int i = 0; i < count; ++i) {
        for (const long start = std::lround(i * gap / m_speed); frame < start; ++frame) {
            m_stage.Frame();
        }
        launch(i);
    }
}

void DealScript::UntilLanded()
{
    while (m_table.IsMoving()) {
        m_stage.Frame();
    }
}

void DealScript::FlyTop(std::size_t pile, cardkit::Facing facing, const cardkit::FlightStyle& style, double frames)
{
    FlyToPile(pile, pile, facing, style, frames);
}

void DealScript::FlyToPile(std::size_t from, std::size_t to, cardkit::Facing facing, const cardkit::FlightStyle& style,
                           double frames)
{
    const cardkit::Pile& pile = m_table.At(from);
    m_table.Order(from, pile.ValueAt(pile.NumCards()), to, facing, {style, static_cast<int>(std::lround(frames))});
}

void DealScript::DealColumns()
{
    Begin("dealing 28 cards");
    struct Step {
        int column;
        Facing facing;
    };
    std::vector<Step> steps;
    for (int round = 0; round < TableLayout::kColumns; ++round) {
        for (int column = round; column < TableLayout::kColumns; ++column) {
            steps.push_back({column, column == round ? Facing::Up : Facing::Down});
        }
    }
    const double low = m_table.Plane().HeightForScale(1.30);
    const double high = m_table.Plane().HeightForScale(1.55);
    Stagger(static_cast<int>(steps.size()), kDealGap, [&](int i) {
        const Step& step = steps[static_cast<std::size_t>(i)];
        const bool turns = step.facing == Facing::Up;
        const double far = static_cast<double>(step.column) / (TableLayout::kColumns - 1);
        const double arch = (turns ? high : low) * (0.55 + 0.45 * far); // a short flight stays low
        const FlightStyle style{arch, 0.07, turns ? 22.0 : 30.0, turns ? -14.0 : -24.0};
        FlyToPile(Patience::kStock, Column(step.column), step.facing, style,
                  kDealFrames + (turns ? 6.0 : 0.0) + 6.0 * far);
    });
    UntilLanded();
}

void DealScript::GatherTopCards()
{
    Begin("gathering the top cards");
    const double arch = m_table.Plane().HeightForScale(1.35);
    Stagger(TableLayout::kColumns, kGatherGap, [&](int column) {
        const FlightStyle style{arch, 0.08, 26.0, 14.0};
        FlyToPile(Column(column), Patience::kWaste, Facing::Up, style, kGatherFrames);
    });
    UntilLanded();
}

void DealScript::TurnUpColumns()
{
    Begin("turning the columns up");
    const double arch = m_table.Plane().HeightForScale(1.30);
    Stagger(TableLayout::kColumns, kTurnGap, [&](int column) {
        FlyTop(Column(column), Facing::Up, {arch, 0.0, 0.0, 10.0}, kTurnFrames);
    });
    UntilLanded();
}

void DealScript::ShowFoundationHints()
{
    Begin("shading the foundations");
    Stagger(TableLayout::kFoundations, kHintGap, [&](int suit) {
        const std::size_t foundation = Patience::kFirstFoundation + static_cast<std::size_t>(suit);
        m_table.Add(foundation, {suit * DeckFiles::kSuitCards, Facing::Up});
        CPocket& pocket = m_table.At(foundation).Pocket();
        pocket.SetShaded(1, 1);
        pocket.ForceRedrawStatics();
    });
    m_stage.Frame();
}

void DealScript::RaiseCard()
{
    Begin("raising a card");
    const double arch = m_table.Plane().HeightForScale(1.6);
    FlyTop(Column(TableLayout::kColumns / 2), Facing::Up, {arch, 0.0, 0.0, -10.0}, kRaiseFrames);
    UntilLanded();
}

} // namespace deal
