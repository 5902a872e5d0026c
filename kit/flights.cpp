// SPDX-License-Identifier: MIT
#include "kit/flights.h"

#include "animation/move_list.h"
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "kit/pile.h"

#include <algorithm>
#include <utility>

namespace cardkit
{

Flights::Flights(CCardTable& table) : m_table(table) {}

Flights::~Flights() = default;

void Flights::Launch(Pile& pile, long position, const Way& way, int frames, const ShadowCaster* caster)
{
    CObject* const card = pile.CardAt(position);
    if (card == nullptr) {
        return;
    }
    Stop(*card);
    const int count = std::max(frames, 1);
    Flight flight{&pile, card, MakeMoves(way, count), {}};
    if (caster != nullptr) {
        flight.shadow = caster->Cast(way, count);
    }
    if (pile.IsResting(position)) {
        pile.PickUp(position);
        card->StampObject(); // in its first frame it still lies at its place, and is drawn for rest as it was there
    }
    m_table.RemoveObject(card); // above those that were in the scene before
    m_flights.push_back(std::move(flight));
    if (caster != nullptr) {
        m_table.StartAnim(m_flights.back().shadow.moves.get(), m_flights.back().shadow.object.get());
    }
    m_table.StartAnim(m_flights.back().moves.get(), card);
}

void Flights::Land()
{
    std::erase_if(m_flights, [this](const Flight& flight) {
        if (flight.moves->Exists() != 0) {
            return false;
        }
        LayDown(flight); // its shadow leaves the scene with its owner
        return true;
    });
}

void Flights::LayDown(const Flight& flight)
{
    m_table.RemoveObject(flight.card);
    flight.pile->LayDown(flight.pile->PositionOf(*flight.card));
}

void Flights::Finish(const CObject& card)
{
    std::erase_if(m_flights, [&](const Flight& flight) {
        if (flight.card != &card) {
            return false;
        }
        LayDown(flight);
        return true;
    });
}

void Flights::FinishAll()
{
    for (const Flight& flight : m_flights) {
        LayDown(flight);
    }
    m_flights.clear();
}

void Flights::Stop(const CObject& card)
{
    std::erase_if(m_flights, [&](const Flight& flight) { return flight.card == &card; });
}

bool Flights::IsFlying(const CObject& card) const
{
    return std::any_of(m_flights.begin(), m_flights.end(), [&](const Flight& flight) { return flight.card == &card; });
}

std::vector<CObject*> Flights::Cards() const
{
    std::vector<CObject*> cards;
    for (const Flight& flight : m_flights) {
        cards.push_back(flight.card);
    }
    return cards;
}

} // namespace cardkit
