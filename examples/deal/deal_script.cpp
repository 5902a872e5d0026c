// SPDX-License-Identifier: MIT
#include "examples/deal/deal_script.h"

#include "animation/move_list.h"
#include "animation/object.h"
#include "cardtable/pocket.h"
#include "examples/deal/edge_on.h"

#include <algorithm>
#include <cmath>

namespace deal
{

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

Placement PlacementOf(const CObject& card)
{
    Placement place;
    card.GetPosition(place.x, place.y, place.z);
    card.GetRotate(place.rotX, place.rotY, place.rotZ);
    return place;
}

void PlaceCard(CObject& card, const Placement& place)
{
    card.SetPosition(place.x, place.y, place.z);
    card.SetRotate(place.rotX, place.rotY, place.rotZ);
}

} // namespace

DealScript::DealScript(Patience& patience, double speed)
    : m_patience(patience), m_stage(patience.Stage()),
      m_shadows(m_stage.View(), patience.Layout().CardWidth(), patience.Layout().CardHeight()), m_speed(speed)
{
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

int DealScript::Frames(double atNormalSpeed) const
{
    return std::max(1, static_cast<int>(std::lround(atNormalSpeed / m_speed)));
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
    while (m_stage.Flights().NumInAir() > 0) {
        m_stage.Frame();
    }
}

void DealScript::Fly(CardPile& pile, CObject& card, const Placement& to, const FlightStyle& style, double frames)
{
    const FlightPath path(m_stage.View(), PlacementOf(card), to, style);
    const TableLayout& layout = m_patience.Layout();
    const int count = FramesNeverEdgeOn(m_stage.Table(), path, Frames(frames), layout.CardWidth(), layout.CardHeight());
    m_stage.Flights().Launch(pile, card, MakeMoves([&path](double progress) { return path.At(progress); }, count),
                             m_shadows.Cast(path, count));
}

void DealScript::FlyToPile(CardPile& from, CardPile& to, Facing facing, const FlightStyle& style, double frames)
{
    // No card passes from one pocket to another: the new pile makes its own, placed where the old one lay.
    const long top = from.NumCards();
    const Placement start = PlacementOf(*from.CardAt(top));
    CObject* const card = to.Add(from.Pocket().GetCard(top), facing);
    if (card == nullptr) {
        return;
    }
    PlaceCard(*card, start);
    from.RemoveTop();
    if (from.NumCards() > 0) {
        from.LayDown(from.NumCards());
    }
    Fly(to, *card, to.Rest(to.NumCards()), style, frames);
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
    const double low = m_stage.View().HeightForScale(1.30);
    const double high = m_stage.View().HeightForScale(1.55);
    Stagger(static_cast<int>(steps.size()), kDealGap, [&](int i) {
        const Step& step = steps[static_cast<std::size_t>(i)];
        const bool turns = step.facing == Facing::Up;
        const double far = static_cast<double>(step.column) / (TableLayout::kColumns - 1);
        const double arch = (turns ? high : low) * (0.55 + 0.45 * far); // a short flight stays low
        const FlightStyle style{arch, 0.07, turns ? 22.0 : 30.0, turns ? -14.0 : -24.0};
        FlyToPile(m_patience.Stock(), m_patience.Column(step.column), step.facing, style,
                  kDealFrames + (turns ? 6.0 : 0.0) + 6.0 * far);
    });
    UntilLanded();
}

void DealScript::GatherTopCards()
{
    Begin("gathering the top cards");
    const double arch = m_stage.View().HeightForScale(1.35);
    Stagger(TableLayout::kColumns, kGatherGap, [&](int column) {
        const FlightStyle style{arch, 0.08, 26.0, 14.0};
        FlyToPile(m_patience.Column(column), m_patience.Waste(), Facing::Up, style, kGatherFrames);
    });
    UntilLanded();
}

void DealScript::TurnUpColumns()
{
    Begin("turning the columns up");
    const double arch = m_stage.View().HeightForScale(1.30);
    Stagger(TableLayout::kColumns, kTurnGap, [&](int column) {
        CardPile& pile = m_patience.Column(column);
        const long top = pile.NumCards();
        if (top > 0) {
            pile.SetFacing(top, Facing::Up);
            Fly(pile, *pile.CardAt(top), pile.Rest(top), {arch, 0.0, 0.0, 10.0}, kTurnFrames);
        }
    });
    UntilLanded();
}

void DealScript::ShowFoundationHints()
{
    Begin("shading the foundations");
    Stagger(TableLayout::kFoundations, kHintGap, [&](int suit) {
        CardPile& pile = m_patience.Foundation(suit);
        if (pile.Add(suit * DeckFiles::kSuitCards, Facing::Up) != nullptr) {
            pile.LayDown(1);
            pile.Pocket().SetShaded(1, 1);
            pile.Pocket().ForceRedrawStatics();
        }
    });
    m_stage.Frame();
}

void DealScript::RaiseCard()
{
    Begin("raising a card");
    CardPile& pile = m_patience.Column(TableLayout::kColumns / 2);
    const long top = pile.NumCards();
    CObject& card = *pile.CardAt(top);
    const double arch = m_stage.View().HeightForScale(1.6);
    Fly(pile, card, pile.Rest(top), {arch, 0.0, 0.0, -10.0}, kRaiseFrames);
    UntilLanded();
}

} // namespace deal
