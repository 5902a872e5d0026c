// SPDX-License-Identifier: MIT
#include "kit/pile.h"

#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "cardtable/pocket.h"
#include "host/window.h"

namespace cardkit
{

Pile::Pile(CCardTable& table, long pocket, const TablePlane& plane, CDialog& dialog, CControlBase& above, CardSize size,
           const PileLayout& layout)
    : m_pocket(*table.GetPocket(pocket)), m_plane(plane), m_size(size), m_layout(layout)
{
    dialog.AddCntrlBefore(&m_anchor, &above);
    m_pocket.SetUseControls(&dialog, &m_anchor);
}

Pile::~Pile()
{
    m_pocket.RemoveCards();
    m_pocket.SetUseControls(nullptr, nullptr);
    m_pocket.RemoveMoves();
}

long Pile::ValueAt(long position) const
{
    return Has(position) ? m_pocket.GetCard(position) : -1;
}

Facing Pile::FacingAt(long position) const
{
    return Has(position) ? At(position).facing : Facing::Down;
}

CObject* Pile::CardAt(long position) const
{
    CObject* card = nullptr;
    if (Has(position)) {
        m_pocket.GetCard(card, position);
    }
    return card;
}

long Pile::PositionOf(const CObject& card) const
{
    for (long position = NumCards(); position > 0; --position) {
        if (CardAt(position) == &card) {
            return position;
        }
    }
    return 0;
}

long Pile::PositionOfValue(long value) const
{
    for (long position = NumCards(); position > 0; --position) {
        if (m_pocket.GetCard(position) == value) {
            return position;
        }
    }
    return 0;
}

std::vector<Card> Pile::Cards() const
{
    std::vector<Card> cards;
    cards.reserve(m_slots.size());
    for (long position = 1; position <= NumCards(); ++position) {
        cards.push_back({m_pocket.GetCard(position), At(position).facing});
    }
    return cards;
}

Pixel Pile::HomePixel(long position) const
{
    return Has(position) ? m_homes[static_cast<std::size_t>(position) - 1] : m_layout.place;
}

Placement Pile::Home(long position) const
{
    return m_plane.Resting(HomePixel(position), m_size, FacingAt(position));
}

Pixel Pile::NextHomePixel() const
{
    std::vector<Facing> facings;
    for (const Slot& slot : m_slots) {
        facings.push_back(slot.facing);
    }
    return NextHome(m_layout, facings);
}

bool Pile::IsResting(long position) const
{
    return Has(position) && At(position).resting;
}

std::vector<long> Pile::Displaced() const
{
    std::vector<long> positions;
    for (long position = 1; position <= NumCards(); ++position) {
        if (At(position).resting && At(position).rest != HomePixel(position)) {
            positions.push_back(position);
        }
    }
    return positions;
}

CObject* Pile::Add(const Card& card)
{
    m_slots.reserve(m_slots.size() + 1);
    if (m_rests.size() == m_slots.size()) {
        m_rests.push_back(std::make_unique<C3DMoveList>());
        m_pocket.AddMove(m_rests.back().get());
    }
    if (m_pocket.AddCard(card.value) == 0) {
        return nullptr;
    }
    m_slots.emplace_back().facing = card.facing;
    ComputeHomes();
    CObject* const object = CardAt(NumCards());
    Place(*object, Home(NumCards()));
    return object;
}

void Pile::Remove(long position)
{
    if (!Has(position)) {
        return;
    }
    m_pocket.RemoveCard(position);
    m_slots.erase(m_slots.begin() + (position - 1));
    ComputeHomes();
    UpdateControls(); // what it covered is seen now
}

void Pile::SetFacing(long position, Facing facing)
{
    if (Has(position) && At(position).facing != facing) {
        At(position).facing = facing;
        ComputeHomes();
        UpdateControls();
    }
}

void Pile::LayDown(long position)
{
    if (Has(position)) {
        At(position).resting = true;
        At(position).rest = HomePixel(position);
        UpdateControls();
    }
}

void Pile::LayDownAll()
{
    for (long position = 1; position <= NumCards(); ++position) {
        At(position).resting = true;
        At(position).rest = HomePixel(position);
    }
    UpdateControls();
}

void Pile::PickUp(long position)
{
    if (Has(position)) {
        At(position).resting = false;
        UpdateControls();
    }
}

void Pile::Rebuild(CardSize size, const PileLayout& layout)
{
    const std::vector<Card> cards = Cards();
    m_pocket.RemoveCards();
    m_slots.clear();
    m_size = size;
    m_layout = layout;
    for (const Card& card : cards) {
        Add(card);
    }
    LayDownAll();
}

void Pile::ComputeHomes()
{
    m_facings.clear();
    for (const Slot& slot : m_slots) {
        m_facings.push_back(slot.facing);
    }
    cardkit::ComputeHomes(m_layout, m_facings, m_homes);
}

bool Pile::IsCovered(long position) const
{
    return position < NumCards() && At(position + 1).resting && At(position + 1).rest == At(position).rest;
}

void Pile::Render(long position)
{
    Slot& slot = At(position);
    const Placement place = RestOf(slot);
    C3DMoveList& rest = *m_rests[static_cast<std::size_t>(position) - 1];
    rest.Init(0, 0);
    auto move = std::make_unique<C3DMove>();
    move->Init(place.x, place.y, place.z, place.x, place.y, place.z, 1);
    move->SetRotX(place.rotX, place.rotX);
    if (rest.AddMove(move.get()) != 0) {
        move.release();
    }
    m_pocket.RemoveCardControl(static_cast<int>(position)); // one that exists would be kept as it is
    m_pocket.DrawCard(position, 0, nullptr);
    slot.shown = true;
    slot.shownAt = place;
}

void Pile::UpdateControls()
{
    bool isOrderKept = true;
    for (long position = 1; position <= NumCards(); ++position) {
        Slot& slot = At(position);
        const bool isSeen = slot.resting && !IsCovered(position);
        if (!isSeen) {
            if (slot.shown) {
                m_pocket.RemoveCardControl(static_cast<int>(position));
                slot.shown = false;
            }
            if (slot.resting) {
                Place(*CardAt(position), RestOf(slot)); // where a player's click, or its next flight, finds it
            }
        } else if (!slot.shown || slot.shownAt != RestOf(slot)) {
            Render(position); // at the top of the pile's band
            isOrderKept = false;
        } else if (!isOrderKept) {
            m_pocket.LiftCard(static_cast<int>(position));
        }
    }
}

} // namespace cardkit
