// SPDX-License-Identifier: MIT
#include "examples/deal/card_pile.h"

#include "animation/move_3d.h"
#include "animation/move_list.h"
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "cardtable/pocket.h"
#include "host/window.h"

namespace deal
{

CardPile::CardPile(CCardTable& table, long pocket, const TableView& view, CDialog& dialog, CControlBase& flights,
                   int cardWidth, int cardHeight, const PileShape& shape)
    : m_pocket(*table.GetPocket(pocket)), m_view(view), m_cardWidth(cardWidth), m_cardHeight(cardHeight), m_shape(shape)
{
    dialog.AddCntrlBefore(&m_anchor, &flights);
    m_pocket.SetUseControls(&dialog, &m_anchor);
}

CardPile::~CardPile()
{
    m_pocket.RemoveCards();
    m_pocket.SetUseControls(nullptr, nullptr);
    m_pocket.RemoveMoves();
}

long CardPile::NumCards() const
{
    return m_pocket.GetNumCards();
}

Placement CardPile::Rest(long position) const
{
    const int steps = static_cast<int>((position - 1) / m_shape.cardsAStep);
    return m_view.Resting(m_shape.left + steps * m_shape.stepX, m_shape.top + steps * m_shape.stepY, m_cardWidth,
                          m_cardHeight, FacingAt(position));
}

long CardPile::PositionOf(const CObject& card) const
{
    for (long position = NumCards(); position > 0; --position) {
        if (CardAt(position) == &card) {
            return position;
        }
    }
    return 0;
}

CObject* CardPile::CardAt(long position) const
{
    CObject* card = nullptr;
    m_pocket.GetCard(card, position);
    return card;
}

CObject* CardPile::Add(long value, Facing facing)
{
    if (m_pocket.AddCard(value) == 0) {
        return nullptr;
    }
    const long position = NumCards();
    m_facings.push_back(facing);
    if (m_rests.size() < m_facings.size()) {
        m_rests.push_back(std::make_unique<C3DMoveList>());
        m_pocket.AddMove(m_rests.back().get());
    }
    SetFacing(position, facing);
    return CardAt(position);
}

void CardPile::RemoveTop()
{
    m_pocket.RemoveCard(NumCards());
    m_facings.pop_back();
}

void CardPile::SetFacing(long position, Facing facing)
{
    const auto index = static_cast<std::size_t>(position) - 1;
    m_facings[index] = facing;
    const Placement place = Rest(position);
    auto move = std::make_unique<C3DMove>();
    move->Init(place.x, place.y, place.z, place.x, place.y, place.z, 1);
    move->SetRotX(place.rotX, place.rotX);
    m_rests[index]->Init(0, 0);
    if (m_rests[index]->AddMove(move.get()) != 0) {
        move.release();
    }
}

void CardPile::LayDown(long position)
{
    m_pocket.DrawCard(position, 0, nullptr);
    Order(position);
}

void CardPile::PickUp(long position)
{
    m_pocket.RemoveCardControl(static_cast<int>(position));
}

void CardPile::LayDownVisible()
{
    const long count = NumCards();
    for (long position = 1; position <= count; ++position) {
        if (position % m_shape.cardsAStep == 0 || position == count) {
            m_pocket.DrawCard(position, 0, nullptr);
        }
    }
}

void CardPile::Order(long from)
{
    const long count = NumCards();
    for (long position = from; position <= count; ++position) {
        m_pocket.LiftCard(static_cast<int>(position));
    }
}

} // namespace deal
