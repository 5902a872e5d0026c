// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/patience.h"

#include <cstddef>
#include <functional>

namespace deal
{

/// What happens on the table, scene by scene, from the shuffled stock to the end.
class DealScript
{
public:
    /// Flights are that many times as fast; 0.1 to 10 look sensible. The patience outlives the script.
    DealScript(Patience& patience, double speed);

    /// Called with the name of each scene as it begins.
    void SetSceneObserver(std::function<void(const char* scene)> observer) { m_observer = std::move(observer); }

    /// Plays everything, frame by frame, and leaves the table at rest.
    void Play();

    /// The scenes.
    void DealColumns();
    void GatherTopCards();
    void TurnUpColumns();
    void ShowFoundationHints();
    void RaiseCard();

private:
    void Begin(const char* scene);
    void Rest(int frames);
    void Stagger(int count, double gap, const std::function<void(int)>& launch);
    void UntilLanded();

    /// Turns the top card of a pile over, or lifts it and brings it back.
    void FlyTop(std::size_t pile, cardkit::Facing facing, const cardkit::FlightStyle& style, double frames);
    /// Flies the top card of one pile to the top of another.
    void FlyToPile(std::size_t from, std::size_t to, cardkit::Facing facing, const cardkit::FlightStyle& style,
                   double frames);

    HeadlessTable& m_stage;
    cardkit::Table& m_table;
    double m_speed;
    std::function<void(const char*)> m_observer;
};

} // namespace deal
