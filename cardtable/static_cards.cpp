// SPDX-License-Identifier: MIT
// The pocket's card controls: resting cards shown through the host's controls.
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "cardtable/pocket.h"
#include "cardtable/stamp_marks.h"
#include "geometry/int32.h"
#include "host/canvas.h"
#include "host/owned_bitmap.h"
#include "host/rect.h"
#include "host/render.h"
#include "host/window.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace
{

int ToInt(long long value)
{
    return static_cast<int>(WrapToInt32(value));
}

int NotNegative(long long value)
{
    return ToInt(std::max(value, 0LL));
}

} // namespace

Bitmap* CPocket::m_drawBitmap = nullptr;

Bitmap* CPocket::GetTempBitmap()
{
    constexpr int kLeastWidth = 800;
    constexpr int kLeastHeight = 600;
    const int width = std::max(kLeastWidth, Render::Instance().GetActiveWidth());
    const int height = std::max(kLeastHeight, Render::Instance().GetActiveHeight());
    if (m_drawBitmap == nullptr) {
        m_drawBitmap = BitmapManager::Instance().Create(width, height);
    } else if (m_drawBitmap->Width() < width || m_drawBitmap->Height() < height) {
        m_drawBitmap->Realloc(width, height);
    }
    return m_drawBitmap;
}

void CPocket::DestroyTempBitmap()
{
    BitmapManager::Instance().Destroy(m_drawBitmap);
}

void CPocket::SetUseControls(CDialog* dialog, CControlBase* anchor)
{
    m_dialog = dialog;
    m_anchorControl = anchor;
    m_useControls = dialog != nullptr && anchor != nullptr;
}

CardObjects* CPocket::GetCardObject(int position) const
{
    for (CardObjects* record : m_staticCards) {
        if (record->position == position) {
            return record;
        }
    }
    return nullptr;
}

bool CPocket::StaticCardMember(int position) const
{
    return GetCardObject(position) != nullptr;
}

bool CPocket::ShowStaticCard(int position)
{
    const CardObjects* const record = GetCardObject(position);
    if (record == nullptr || record->control == nullptr) {
        return false;
    }
    record->control->SetState(CControlBase::kStateShown);
    return true;
}

void CPocket::ShowCard(int position, bool show)
{
    const CardObjects* const record = m_useControls ? GetCardObject(position) : nullptr;
    if (record != nullptr && record->control != nullptr) {
        record->control->SetState(show ? CControlBase::kStateShown : CControlBase::kStateHidden);
    }
}

bool CPocket::AddStaticCard(CObject* card, int position, C3DMoveList* moves)
{
    if (!m_useControls) {
        return false;
    }
    if (GetCardObject(position) != nullptr) {
        ShowStaticCard(position);
        return true;
    }
    OwnedBitmap bitmap(BitmapManager::Instance().Create(0, 0));
    auto control = std::make_unique<Canvas>();
    control->Create(0, 0, 0, 0);
    control->SetBitmap(bitmap.get());
    auto record = std::make_unique<CardObjects>();
    m_staticCards.push_back(record.get());
    m_dialog->AddCntrlBefore(control.get(), m_anchorControl);

    CardObjects* const kept = record.release();
    kept->control = control.release();
    kept->bitmap = bitmap.release();
    kept->position = position;
    try {
        RedrawStaticCard(kept->bitmap, kept->control, card, moves);
    } catch (...) {
        // Not rendered, it would stand for the card for ever.
        RemoveRecord(std::prev(m_staticCards.end()));
        throw;
    }
    return true;
}

void CPocket::RedrawStaticCard(Bitmap* bitmap, Canvas* canvas, CObject* card, C3DMoveList* moves)
{
    if (bitmap == nullptr || canvas == nullptr || card == nullptr || m_table == nullptr) {
        return;
    }
    Bitmap* const draw = GetTempBitmap();
    if (draw == nullptr) {
        return;
    }
    const CRect& clip = *card->GetClip();
    try {
        if (moves != nullptr) {
            m_table->DrawLastFrame(moves, card, draw);
        } else {
            card->Draw(m_table, draw);
        }
        bitmap->Realloc(ToInt(clip.Width()), ToInt(clip.Height()));
    } catch (...) {
        DestroyTempBitmap(); // what stands in it would show up in the next card
        throw;
    }

    // The control takes the whole of the covered rectangle, the copy only what lies in the drawing bitmap.
    const long long left = clip.left;
    const long long top = clip.top;
    const long long width = std::min<long long>(clip.Width(), draw->Width() - left);
    const long long height = std::min<long long>(clip.Height(), draw->Height() - top);
    Render::Instance().Copy(draw, bitmap, NotNegative(-left), NotNegative(-top), NotNegative(left), NotNegative(top),
                            ToInt(width), ToInt(height));
    canvas->SetSize(bitmap->Width(), bitmap->Height());
    canvas->SetPos(clip.left, clip.top);

    // The drawing bitmap is left clean, with one pixel around the card, for the next one.
    render::Rectangle<int> used{NotNegative(left - 1), NotNegative(top - 1),
                                ToInt(std::min(width + 2, draw->Width() - left + 1)),
                                ToInt(std::min(height + 2, draw->Height() - top + 1))};
    draw->ClearRect(used);
}

void CPocket::ForceRedrawStatic(int position)
{
    const CardObjects* const record = m_useControls ? GetCardObject(position) : nullptr;
    if (record == nullptr || record->control == nullptr || record->bitmap == nullptr) {
        return;
    }
    if (CObject* const card = CardAt(std::max(position, 0))) {
        const StampMarks marks(*card);
        RedrawStaticCard(record->bitmap, record->control, card, nullptr);
    }
    record->control->Invalidate();
}

void CPocket::ForceRedrawStatics()
{
    for (const CardObjects* record : m_staticCards) {
        ForceRedrawStatic(record->position);
    }
}

void CPocket::LiftCard(int position)
{
    const CardObjects* const record = m_useControls ? GetCardObject(position) : nullptr;
    if (record != nullptr && record->control != nullptr) {
        m_dialog->RemoveCntrl(record->control);
        m_dialog->AddCntrlBefore(record->control, m_anchorControl);
        record->control->Invalidate();
    }
}

void CPocket::ChangeZOrder(int position, CControlBase* after)
{
    const CardObjects* const record = m_useControls ? GetCardObject(position) : nullptr;
    if (record != nullptr && record->control != nullptr) {
        m_dialog->RemoveCntrl(record->control);
        m_dialog->AddCntrlAfter(record->control, after);
        record->control->Invalidate();
    }
}

void CPocket::RemoveRecord(std::list<CardObjects*>::iterator record)
{
    const std::unique_ptr<CardObjects> removed(*record);
    m_staticCards.erase(record);
    removed->control->Invalidate();
    // The window it stands in now: the pocket may use another dialog by now.
    if (CWindowBase* const window = removed->control->Window()) {
        window->RemoveCntrl(removed->control);
    }
    delete removed->control;
    BitmapManager::Instance().Destroy(removed->bitmap);
}

void CPocket::RemoveAllRecords()
{
    while (!m_staticCards.empty()) {
        RemoveRecord(m_staticCards.begin());
    }
}

void CPocket::RemoveCardControl(int position)
{
    if (!m_useControls) {
        return;
    }
    for (auto record = m_staticCards.begin(); record != m_staticCards.end();) {
        const auto current = record++;
        if ((*current)->position == position) {
            RemoveRecord(current);
        }
    }
}

void CPocket::RemoveLastCardControl()
{
    if (m_useControls && !m_staticCards.empty()) {
        RemoveRecord(std::prev(m_staticCards.end()));
    }
}

void CPocket::RemoveAllCardControls()
{
    if (m_useControls) {
        RemoveAllRecords();
    }
}

void CPocket::ControlsFollowDown(int removed)
{
    if (!m_useControls) {
        return;
    }
    for (CardObjects* record : m_staticCards) {
        if (record->position > removed) {
            --record->position;
        }
    }
}
