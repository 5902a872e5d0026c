// SPDX-License-Identifier: MIT
#pragma once

#include "examples/deal/placement.h"
#include "examples/deal/table_view.h"
#include "host/control.h"

#include <memory>
#include <vector>

class C3DMoveList;
class CCardTable;
class CDialog;
class CObject;
class CPocket;

namespace deal
{

/// Where the cards of a pile rest: the top-left pixel of the bottom card, and how far each card lies from the one below
/// it. A squared pile (a stock) shifts by a pixel every few cards, so that its thickness shows.
struct PileShape {
    int left = 0;
    int top = 0;
    int stepX = 0;
    int stepY = 0;
    int cardsAStep = 1; ///< cards that lie exactly on each other before the next step
};

/// One pocket of the table with what it needs to rest: its shape, its rest lists and its anchor, an empty control that
/// keeps the pile's card controls together in one band of the stack. Positions count from 1, the bottom card.
class CardPile
{
public:
    /// Takes over the pocket and puts the anchor into the dialog, just below the control that shows flying cards.
    /// Table, view and dialog outlive the pile.
    CardPile(CCardTable& table, long pocket, const TableView& view, CDialog& dialog, CControlBase& flights,
             int cardWidth, int cardHeight, const PileShape& shape);
    ~CardPile();
    CardPile(const CardPile&) = delete;
    CardPile& operator=(const CardPile&) = delete;

    CPocket& Pocket() const { return m_pocket; }
    long NumCards() const;
    /// Where the card at a position rests.
    Placement Rest(long position) const;
    Facing FacingAt(long position) const { return m_facings[static_cast<std::size_t>(position) - 1]; }
    /// The position of a card object; 0 when it is not in this pile.
    long PositionOf(const CObject& card) const;
    CObject* CardAt(long position) const;

    /// Puts a card on top, which is not seen until it flies or is laid down. Null when its picture is missing.
    CObject* Add(long value, Facing facing);
    /// Takes the top card away for good, with its control.
    void RemoveTop();
    /// Turns a card over: the side that it shows when it is laid down again.
    void SetFacing(long position, Facing facing);
    /// Shows a card at its place as a static card, in the right order among those of the pile.
    void LayDown(long position);
    /// Takes a card's static picture away; it is about to fly.
    void PickUp(long position);
    /// Lays down the top card of each step: the cards exactly below it could not be seen.
    void LayDownVisible();

private:
    void Order(long from);

    CPocket& m_pocket;
    const TableView& m_view;
    int m_cardWidth;
    int m_cardHeight;
    PileShape m_shape;
    CControlBase m_anchor;
    std::vector<std::unique_ptr<C3DMoveList>> m_rests; ///< one a position, as the pocket knows them
    std::vector<Facing> m_facings;
};

} // namespace deal
