// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/card_shadow.h"

#include <cstddef>
#include <memory>
#include <vector>

class C3DMoveList;
class CCardTable;
class CObject;

namespace deal
{

class CardPile;

/// The cards in the air. A card is an animated object of the scene only while it flies; when its moves have run out it
/// becomes a static card of its pile.
class CardFlights
{
public:
    explicit CardFlights(CCardTable& table);
    ~CardFlights();
    CardFlights(const CardFlights&) = delete;
    CardFlights& operator=(const CardFlights&) = delete;

    /// Starts the flight of a card of a pile. The card shows no static picture any more, or loses it here. The caller
    /// has placed it where the moves start. The shadow's moves take as many frames as the card's.
    void Launch(CardPile& pile, CObject& card, std::unique_ptr<C3DMoveList> moves, FlyingShadow shadow);
    /// Lays down every card that has arrived. Called before each frame of the table, never between a frame and its
    /// composing: the card would be seen twice.
    void Land();
    std::size_t NumInAir() const { return m_flights.size(); }

private:
    struct Flight {
        CardPile* pile;
        CObject* card;
        std::unique_ptr<C3DMoveList> moves;
        FlyingShadow shadow;
    };

    CCardTable& m_table;
    std::vector<Flight> m_flights; ///< in the order of their start
};

} // namespace deal
