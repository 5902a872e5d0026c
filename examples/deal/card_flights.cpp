// SPDX-License-Identifier: MIT
#include "examples/deal/card_flights.h"

#include "animation/move_list.h"
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "examples/deal/card_pile.h"

#include <utility>

namespace deal
{

CardFlights::CardFlights(CCardTable& table) : m_table(table) {}

CardFlights::~CardFlights() = default;

void CardFlights::Launch(CardPile& pile, CObject& card, std::unique_ptr<C3DMoveList> moves, FlyingShadow shadow)
{
    pile.PickUp(pile.PositionOf(card));
    card.StampObject(); // in its first frame it still lies at its place, and is drawn for rest as it was there
    m_table.StartAnim(shadow.moves.get(), shadow.object.get());
    m_table.StartAnim(moves.get(), &card);
    m_flights.push_back({&pile, &card, std::move(moves), std::move(shadow)});
}

void CardFlights::Land()
{
    std::erase_if(m_flights, [this](const Flight& flight) {
        if (flight.moves->Exists() != 0) {
            return false;
        }
        m_table.RemoveObject(flight.card);
        flight.pile->LayDown(flight.pile->PositionOf(*flight.card)); // the shadow leaves the scene with its owner
        return true;
    });
}

} // namespace deal
