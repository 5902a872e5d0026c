// SPDX-License-Identifier: MIT
// The pocket's drawing of its cards, and the areas they cover.
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "cardtable/pocket.h"
#include "cardtable/stamp_marks.h"
#include "geometry/int32.h"
#include "geometry/list_walk.h"
#include "host/log.h"
#include "host/rect.h"

namespace
{

const Log g_log("game.components.card.pocket");

} // namespace

long CPocket::GetClearPoly(long position, CPolygon*& polygon)
{
    if (const CObject* const object = CardAt(position)) {
        polygon = object->GetClearPoly();
    }
    return 1;
}

long CPocket::GetClip(long position, CRect*& clip)
{
    if (const CObject* const object = CardAt(position)) {
        clip = object->GetClip();
    }
    return 1;
}

long CPocket::GetTotalClip(CRect*& clip)
{
    if (clip == nullptr) {
        return 1;
    }
    bool first = true;
    for (const CObject* object : TypedWalk<CObject>(m_cardObjects)) {
        if (first) {
            clip->Copy(object->GetClip());
            first = false;
        } else {
            CRect sofar = *clip;
            clip->Union(object->GetClip(), &sofar);
        }
    }
    g_log.Info("FinalClip: %ld %ld %ld %ld\n", clip->left, clip->top, clip->right, clip->bottom);
    return 1;
}

void CPocket::Draw(long moveOffset, Bitmap* target)
{
    for (long position = 1; position <= GetNumCards(); ++position) {
        DrawCard(position, moveOffset, target);
    }
}

void CPocket::DrawCard(long position, long moveOffset, Bitmap* target)
{
    CObject* const object = CardAt(position);
    if (object == nullptr) {
        return;
    }
    C3DMoveList* const moves = GetMove(WrapToInt32(static_cast<long long>(position) + WrapToInt32(moveOffset) - 1));
    if (moves == nullptr) {
        return;
    }
    if (m_useControls) {
        AddStaticCard(object, static_cast<int>(position), moves);
    } else if (m_table != nullptr) {
        m_table->DrawLastFrame(moves, object, target);
    }
}

void CPocket::Redraw(Bitmap* target)
{
    const long skipped = m_skipTopCard != 0 ? 1 : 0;
    for (long position = 1; position <= GetNumCards() - skipped; ++position) {
        RedrawCard(position, target);
    }
}

void CPocket::RedrawCard(long position, Bitmap* target)
{
    if (m_useControls && ShowStaticCard(static_cast<int>(WrapToInt32(position)))) {
        return;
    }
    CObject* const object = CardAt(position);
    if (object == nullptr) {
        return;
    }
    const StampMarks marks(*object);
    if (m_useControls) {
        AddStaticCard(object, static_cast<int>(position), nullptr);
    } else {
        object->Draw(m_table, target);
    }
}
