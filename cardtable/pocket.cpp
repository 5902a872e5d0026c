// SPDX-License-Identifier: MIT
// The pocket's record and its cards.
#include "cardtable/pocket.h"

#include "animation/move_list.h"
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "geometry/int32.h"
#include "geometry/list_walk.h"

#include <memory>

namespace
{

constexpr long kNoCard = -1;

} // namespace

CPocket::CPocket() = default;

CPocket::~CPocket()
{
    RemoveAllRecords();
    DestroyTempBitmap();
    RemoveCards();
}

void CPocket::SetCamera(CCamera* camera)
{
    m_camera = camera;
    for (CObject* object : TypedWalk<CObject>(m_cardObjects)) {
        object->SetCamera(camera);
    }
}

long CPocket::AddMove(C3DMoveList* moves)
{
    if (moves == nullptr) {
        return 0;
    }
    const LifeRegistry::Serial serial = MoveListLives().Watch(moves);
    m_moveSerials.reserve(m_moveSerials.size() + 1); // so that both lists grow, or neither
    const long inserted = m_moves.InsertLast(moves, 0);
    m_moveSerials.push_back(serial);
    return inserted;
}

C3DMoveList* CPocket::GetMove(long index)
{
    if (index < 0 || index >= m_moves.GetNumNodes()) {
        return nullptr;
    }
    m_moves.First();
    for (long i = 0; i < index; ++i) {
        m_moves.Next();
    }
    C3DMoveList* const moves = UnderCursor<C3DMoveList>(m_moves);
    return MoveListLives().Lives(moves, m_moveSerials[static_cast<std::size_t>(index)]) ? moves : nullptr;
}

long CPocket::RemoveMoves()
{
    m_moves.KillAll();
    m_moveSerials.clear();
    return 1;
}

bool CPocket::SplitValue(long card, SheetPlace& place) const
{
    const long long columns = m_table != nullptr ? m_table->m_numColumns : 0;
    if (columns == 0) {
        return false;
    }
    place = {WrapToInt32(card / columns), WrapToInt32(card % columns)};
    return true;
}

long CPocket::AddCard(long card)
{
    card = WrapToInt32(card);
    SheetPlace place{};
    if (!SplitValue(card, place)) {
        return 0;
    }
    if (card == kFaceDownCard) {
        place = {-1, -1};
    }
    std::unique_ptr<CObject> object(
        m_table->GetCardObj(place.row, place.column, 0.0, 0.0, 1.0, 1.0, m_useAdditionalTexture));
    if (object == nullptr) {
        return 0;
    }
    object->SetCamera(m_camera);
    auto value = std::make_unique<long>(card);
    m_cardObjects.InsertLast(object.get(), 0);
    try {
        const long inserted = m_cards.InsertLast(value.get(), 0);
        object.release()->m_keeper = &m_cardWatch;
        value.release();
        return inserted;
    } catch (...) {
        m_cardObjects.DeleteItem(object.get());
        throw;
    }
}

void CPocket::DeleteObject()
{
    CObject* const object = UnderCursor<CObject>(m_cardObjects);
    if (object != nullptr) {
        m_cardObjects.Delete(1);
        object->m_keeper = nullptr;
        delete object;
    }
}

void CPocket::ForgetCard(const void* object) noexcept
{
    long position = 1;
    m_cards.First();
    for (CObject* card : TypedWalk<CObject>(m_cardObjects)) {
        if (card == object) {
            m_cardObjects.Delete(1);
            m_cards.DeleteData();
            m_cards.Delete(1);
            RemoveCardControl(static_cast<int>(position));
            ControlsFollowDown(static_cast<int>(position));
            return;
        }
        m_cards.Next();
        ++position;
    }
}

long CPocket::RemoveCard()
{
    m_cardObjects.Last();
    m_cards.Last();
    DeleteObject();
    m_cards.DeleteData();
    RemoveLastCardControl();
    return m_cards.Delete(1);
}

long CPocket::RemoveCard(long position)
{
    const int control = static_cast<int>(WrapToInt32(position));
    if (!FindCard(position)) {
        RemoveCardControl(control);
        return 0;
    }
    DeleteObject();
    m_cards.DeleteData();
    const long removed = m_cards.Delete(1);
    RemoveCardControl(control);
    ControlsFollowDown(control);
    return removed;
}

long CPocket::RemoveCards()
{
    for (m_cardObjects.First(); m_cardObjects.Exists() != 0; m_cardObjects.First()) {
        DeleteObject();
    }
    m_cards.KillAllData();
    RemoveAllCardControls();
    return 1;
}

bool CPocket::FindCard(long position)
{
    if (position < 1 || position > GetNumCards()) {
        return false;
    }
    m_cards.First();
    m_cardObjects.First();
    for (long p = 1; p < position; ++p) {
        m_cards.Next();
        m_cardObjects.Next();
    }
    return true;
}

CObject* CPocket::CardAt(long position)
{
    return FindCard(position) ? UnderCursor<CObject>(m_cardObjects) : nullptr;
}

long CPocket::GetCard()
{
    return GetCard(GetNumCards());
}

long CPocket::GetCard(CObject*& object)
{
    object = nullptr;
    return GetCard(object, GetNumCards());
}

long CPocket::GetCard(CObject*& object, long position)
{
    if (!FindCard(position)) {
        return kNoCard;
    }
    object = UnderCursor<CObject>(m_cardObjects);
    return *UnderCursor<long>(m_cards);
}

long CPocket::GetCard(long position)
{
    CObject* object = nullptr;
    return GetCard(object, position);
}

long CPocket::GetNumCards() const
{
    return m_cards.GetNumNodes();
}

long CPocket::ChangeCard(long position, long card)
{
    card = WrapToInt32(card);
    SheetPlace place{};
    if (!FindCard(position) || !SplitValue(card, place)) {
        return 0;
    }
    *UnderCursor<long>(m_cards) = card;
    CObject* const object = UnderCursor<CObject>(m_cardObjects);
    if (card == kFaceDownCard) {
        m_table->ShowBackOnFace(*object);
    } else {
        m_table->ChangeCard(object, place.row, place.column, 0);
    }
    ForceRedrawStatic(static_cast<int>(position));
    return 1;
}

long CPocket::SetShaded(long position, int shaded)
{
    SheetPlace place{};
    if (!FindCard(position) || !SplitValue(*UnderCursor<long>(m_cards), place)) {
        return 0;
    }
    CObject* const object = UnderCursor<CObject>(m_cardObjects);
    if (*UnderCursor<long>(m_cards) == kFaceDownCard) {
        if (shaded == 0) {
            m_table->ShowBackOnFace(*object);
        }
    } else if (shaded != 0) {
        m_table->SetShaded(object, place.row, place.column);
    } else {
        m_table->ChangeCard(object, place.row, place.column, 0);
    }
    return 1;
}
