// SPDX-License-Identifier: MIT
#pragma once

#include "kit/flight_path.h"
#include "kit/shadow.h"

#include <cstddef>
#include <memory>
#include <vector>

class C3DMoveList;
class CCardTable;
class CObject;

namespace cardkit
{

class Pile;

/// The cards in the air. A card is an animated object of the scene only while it flies; when its moves have run out it
/// rests on its pile. Every flight can be stopped or finished at any time; finished, it ends as if it had run.
class Flights
{
public:
    /// The table outlives the flights.
    explicit Flights(CCardTable& table);
    ~Flights();
    Flights(const Flights&) = delete;
    Flights& operator=(const Flights&) = delete;

    /// Starts a card of a pile along a way that begins where the card is seen now, which ends whatever flight it is in.
    /// It takes that many frames, at least 1, and ends at the card's home whatever the way ends with. A null caster:
    /// without a shadow. The caster outlives the flight.
    void Launch(Pile& pile, long position, const Way& way, int frames, const ShadowCaster* caster);
    /// Lays down every card that has arrived. Called before each frame of the table, never between a frame and its
    /// composing: the card would be seen twice.
    void Land();

    ///@{
    /// Ends a flight, or all: the card lies at its home.
    void Finish(const CObject& card);
    void FinishAll();
    ///@}
    /// Ends a flight where the card is: it stays in the scene, and away from its pile. Nothing for a card not in
    /// flight.
    void Stop(const CObject& card);
    /// True while the card flies.
    bool IsFlying(const CObject& card) const;
    /// The cards, in the order of their starts.
    std::vector<CObject*> Cards() const;
    /// How many fly.
    std::size_t NumInAir() const { return m_flights.size(); }

private:
    struct Flight {
        Pile* pile;
        CObject* card;
        std::unique_ptr<C3DMoveList> moves;
        FlyingShadow shadow;
    };

    void LayDown(const Flight& flight);

    CCardTable& m_table;
    std::vector<Flight> m_flights; ///< in the order of their starts
};

} // namespace cardkit
