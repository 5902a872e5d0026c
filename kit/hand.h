// SPDX-License-Identifier: MIT
#pragma once

#include "kit/table.h"

#include <optional>

namespace cardkit
{

/// What a game says to the player's hand. All calls come from the hand's own.
class HandRules
{
public:
    virtual ~HandRules();
    /// May the card at a spot, with all above it, be dragged?
    virtual bool MayTake(const Spot& spot) = 0;
    /// May the cards that are held, taken from that spot, be dropped on a pile?
    virtual bool MayDrop(const Spot& from, std::size_t pile) = 0;
    /// They were dropped there: the game orders the cards to their new pile, which they reach from where they are seen.
    /// Cards that stay without an order fly home.
    virtual void Dropped(const Spot& from, std::size_t pile) = 0;
    /// A spot was pressed and let go without a drag; counts the clicks of a double click. No spot: bare table.
    virtual void Tapped(const std::optional<Spot>& spot, int clicks) = 0;
};

/// The player's hand: drags a card or a run of cards with a mouse or a finger. The grab point is kept, the cards held
/// are above all others, the pile below is seen. Of the piles that may take the cards the one that they cover most is
/// the target, with edges generous by half a card. Places are pixels of the screen.
class Hand
{
public:
    /// Table and rules outlive the hand.
    Hand(Table& table, HandRules& rules) : m_table(table), m_rules(rules) {}

    /// A press begins; one that has begun already is cancelled first. Cards that wait for their flight start it.
    void Press(Pixel pixel, int clicks);
    /// The pointer moved. Beyond a few pixels the cards at the press are picked up, when they may be.
    void Move(Pixel pixel);
    /// The press ends: a tap or a drop.
    void Release(Pixel pixel);
    /// The press ends without effect; cards held fly home.
    void Cancel();

    ///@{
    /// Whether a press, or a drag, goes on.
    bool IsPressed() const { return m_press.has_value(); }
    bool IsDragging() const { return m_press.has_value() && m_press->dragging; }
    ///@}

private:
    struct PressState {
        Pixel pixel;
        int clicks;
        std::optional<Spot> spot;
        bool dragging = false;
    };

    std::optional<std::size_t> Target() const;

    Table& m_table;
    HandRules& m_rules;
    std::optional<PressState> m_press;
};

} // namespace cardkit
