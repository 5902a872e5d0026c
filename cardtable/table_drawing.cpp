// SPDX-License-Identifier: MIT
// The table's drawing of its pockets by index.
#include "cardtable/card_table.h"
#include "cardtable/pocket.h"
#include "host/log.h"

namespace
{

const Log g_log("game.card.cardtable");

} // namespace

void CCardTable::Draw(long moveOffset, Bitmap* target)
{
    for (long k = 0; m_pockets != nullptr && k < m_numPockets; ++k) {
        DrawPocket(m_pocketOrder[k], moveOffset, target);
    }
}

void CCardTable::Redraw(Bitmap* target)
{
    for (long k = 0; m_pockets != nullptr && k < m_numPockets; ++k) {
        RedrawPocket(m_pocketOrder[k], target);
    }
}

void CCardTable::DrawPocket(long pocket, long moveOffset, Bitmap* target)
{
    if (CPocket* const found = GetPocket(pocket)) {
        found->Draw(moveOffset, target);
    } else {
        g_log.Error("CCardTable::DrawPocket(%d), index out of range [0,%d]", static_cast<int>(pocket),
                    static_cast<int>(m_numPockets));
    }
}

void CCardTable::DrawCard(long pocket, long position, long moveOffset, Bitmap* target)
{
    if (CPocket* const found = GetPocket(pocket)) {
        found->DrawCard(position, moveOffset, target);
    } else {
        g_log.Error("CCardTable::DrawCard(%d), pocket-index out of range [0,%d]", static_cast<int>(pocket),
                    static_cast<int>(m_numPockets));
    }
}

void CCardTable::RedrawPocket(long pocket, Bitmap* target)
{
    if (CPocket* const found = GetPocket(pocket)) {
        found->Redraw(target);
    } else {
        g_log.Error("CCardTable::RedrawPocket(%d), index out of range [0,%d]", static_cast<int>(pocket),
                    static_cast<int>(m_numPockets));
    }
}

void CCardTable::RedrawCard(long pocket, long position, Bitmap* target)
{
    if (CPocket* const found = GetPocket(pocket)) {
        found->RedrawCard(position, target);
    } else {
        g_log.Error("CCardTable::RedrawCard(%d), pocket-index out of range [0,%d]", static_cast<int>(pocket),
                    static_cast<int>(m_numPockets));
    }
}
