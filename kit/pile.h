// SPDX-License-Identifier: MIT
#pragma once

#include "host/control.h"
#include "host/rectangle.h"
#include "kit/pile_layout.h"
#include "kit/placement.h"
#include "kit/table_plane.h"

#include <cstddef>
#include <memory>
#include <vector>

class C3DMoveList;
class CCardTable;
class CDialog;
class CObject;
class CPocket;

namespace cardkit
{

/// A card's value and the side it shows.
struct Card {
    ///@{
    /// The value counts through the sheet.
    long value = 0;
    Facing facing = Facing::Down;
    ///@}

    /// Equal in both.
    friend bool operator==(const Card&, const Card&) = default;
};

/// One pocket of the table with what it needs to rest: its layout, its rest lists and its anchor, an empty control that
/// keeps the pile's card controls together in one band of the stack. Positions count from 1, the bottom card.
///
/// A card either rests, shown by a control, or is away: in the air, in the player's hand, or not shown yet. Its place
/// in the pile is kept. A resting card that another one covers exactly has no control: it could not be seen, and its
/// soft edges would show through.
class Pile
{
public:
    /// Takes over the pocket and puts the anchor into the dialog, just below a control (that which shows flying cards).
    /// Table, plane and dialog outlive the pile; nobody else uses the pocket.
    Pile(CCardTable& table, long pocket, const TablePlane& plane, CDialog& dialog, CControlBase& above, CardSize size,
         const PileLayout& layout);
    ~Pile();
    Pile(const Pile&) = delete;
    Pile& operator=(const Pile&) = delete;

    ///@{
    /// The pocket, how its cards lie, and how many there are.
    CPocket& Pocket() const { return m_pocket; }
    const PileLayout& Layout() const { return m_layout; }
    long NumCards() const { return static_cast<long>(m_slots.size()); }
    ///@}
    ///@{
    /// The card at a position; -1, face down and null out of range.
    long ValueAt(long position) const;
    Facing FacingAt(long position) const;
    CObject* CardAt(long position) const;
    ///@}
    ///@{
    /// The position of a card object, or of the topmost card of a value; 0 when it is not in this pile.
    long PositionOf(const CObject& card) const;
    long PositionOfValue(long value) const;
    ///@}
    /// All cards, bottom to top.
    std::vector<Card> Cards() const;

    ///@{
    /// Where the card at a position rests; the pile's place out of range.
    Placement Home(long position) const;
    Pixel HomePixel(long position) const;
    ///@}
    /// Where the next card would rest.
    Pixel NextHomePixel() const;
    /// True while the card at a position rests.
    bool IsResting(long position) const;
    /// The positions of cards that rest elsewhere than at their homes, since the pile grew or
    /// shrank; bottom to top.
    std::vector<long> Displaced() const;

    /// Puts a card on top, which is away. Null, and nothing is added, when its picture is missing.
    CObject* Add(const Card& card);
    /// Takes a card out for good, with its control; those above move down a position.
    void Remove(long position);
    /// The side that a card shows when it rests.
    void SetFacing(long position, Facing facing);
    /// Lays a card down at its home; it has left the scene.
    void LayDown(long position);
    /// Lays down every card, wherever it was.
    void LayDownAll();
    /// Takes a resting card's control away: it is about to move, from where it lies.
    void PickUp(long position);

    /// Builds every card anew, after a change of the pictures, the card size or the projection. All cards rest then.
    void Rebuild(CardSize size, const PileLayout& layout);

private:
    struct Slot {
        Facing facing = Facing::Down;
        bool resting = false;
        Pixel rest{};        ///< where it rests, while it rests
        bool shown = false;  ///< it has a control
        Placement shownAt{}; ///< what the control shows
    };

    bool Has(long position) const { return position >= 1 && position <= NumCards(); }
    Slot& At(long position) { return m_slots[static_cast<std::size_t>(position) - 1]; }
    const Slot& At(long position) const { return m_slots[static_cast<std::size_t>(position) - 1]; }
    void ComputeHomes();
    Placement RestOf(const Slot& slot) const { return m_plane.Resting(slot.rest, m_size, slot.facing); }
    bool IsCovered(long position) const;
    void Render(long position);
    void UpdateControls();

    CPocket& m_pocket;
    const TablePlane& m_plane;
    CardSize m_size;
    PileLayout m_layout;
    CControlBase m_anchor;
    std::vector<Slot> m_slots;
    std::vector<Pixel> m_homes;                        ///< one a position
    std::vector<Facing> m_facings;                     ///< scratch of ComputeHomes
    std::vector<std::unique_ptr<C3DMoveList>> m_rests; ///< one a position, as the pocket knows them
};

} // namespace cardkit
