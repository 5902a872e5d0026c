// SPDX-License-Identifier: MIT
// The table's life, its settings and its frame.
#include "cardtable/card_table.h"

#include "cardtable/pocket.h"
#include "cardtable/texture_list.h"
#include "geometry/int32.h"
#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "host/rect.h"
#include "host/render.h"

#include <algorithm>
#include <memory>
#include <vector>

CCardTable::CCardTable() = default;

CCardTable::~CCardTable()
{
    Exit();
}

long CCardTable::Init(long numPockets, long numRows, long numColumns, long numLastRow)
{
    const long count = WrapToInt32(numPockets);
    const auto size = static_cast<std::size_t>(std::max(count, 0L));
    // All of it is made before anything is replaced, so that a failed allocation leaves the table as it was.
    std::vector<std::unique_ptr<CPocket>> pockets(size);
    for (std::unique_ptr<CPocket>& pocket : pockets) {
        pocket = std::make_unique<CPocket>();
        pocket->m_table = this;
    }
    auto slots = std::make_unique<CPocket*[]>(size);
    auto order = std::make_unique<long[]>(size);

    DeletePockets();
    for (std::size_t i = 0; i < size; ++i) {
        slots[i] = pockets[i].release();
        order[i] = static_cast<long>(i);
    }
    m_pockets = slots.release();
    m_pocketOrder = order.release();
    m_numPockets = count;
    m_numRows = WrapToInt32(numRows);
    m_numColumns = WrapToInt32(numColumns);
    m_numLastRow = WrapToInt32(numLastRow);
    SetActiveCamera(&m_camera);
    SetLight(&m_light);
    return 1;
}

void CCardTable::DeletePockets()
{
    if (m_pockets != nullptr) {
        for (long i = 0; i < m_numPockets; ++i) {
            delete m_pockets[i];
            m_pockets[i] = nullptr;
        }
    }
    delete[] m_pockets;
    m_pockets = nullptr;
    delete[] m_pocketOrder;
    m_pocketOrder = nullptr;
}

void CCardTable::Exit()
{
    DeletePockets();
    DestroyTextures(m_cardTextures);
    DestroyTextures(m_additionalTextures);
    DestroyTextures(m_shadedTextures);
    BitmapManager::Instance().Destroy(m_backTexture);
}

void CCardTable::SetCardSize(long width, long height)
{
    m_cardWidth = WrapToInt32(width);
    m_cardHeight = WrapToInt32(height);
}

void CCardTable::SetAdditionalCardSize(long width, long height)
{
    m_additionalCardWidth = WrapToInt32(width);
    m_additionalCardHeight = WrapToInt32(height);
}

void CCardTable::SetCardDimension(double x, double y)
{
    m_cardDimX = x;
    m_cardDimY = y;
}

void CCardTable::SetSurfaceOffset(int x, int y)
{
    m_surfaceOffsetX = x;
    m_surfaceOffsetY = y;
}

void CCardTable::SetPersistent(Bitmap* bitmap)
{
    m_persistent = bitmap;
}

CPocket* CCardTable::GetPocket(long index) const
{
    return m_pockets != nullptr && index >= 0 && index < m_numPockets ? m_pockets[index] : nullptr;
}

long CCardTable::Handler()
{
    if (HasTargetBitmap()) {
        EraseLastDrawnRegions();
    }
    try {
        CSceneHandler::Handler();
    } catch (...) {
        // What was drawn until then stands in the target, so it has to come to the screen.
        ShowDrawnRegions();
        throw;
    }
    ShowDrawnRegions();
    return 1;
}

void CCardTable::ShowDrawnRegions()
{
    if (HasTargetBitmap()) {
        InvalidateDrawnRegions();
    }
}

namespace
{

/// A place in the target as a place on the screen.
int OnScreen(long long place, int offset)
{
    return static_cast<int>(WrapToInt32(place + offset));
}

} // namespace

void CCardTable::EraseLastDrawnRegions()
{
    Bitmap* const target = GetTargetBitmap();
    if (target == nullptr) {
        return;
    }
    const long targetWidth = target->Width();
    const long targetHeight = target->Height();
    for (auto rect = LastDrawnRectsBegin(); rect != LastDrawnRectsEnd(); ++rect) {
        // One pixel more on the right and at the bottom than was drawn, never more than the target has.
        const long x = std::max(rect->left, 0L);
        const long y = std::max(rect->top, 0L);
        const long long width = std::min<long long>(rect->Width() + 1LL, targetWidth - x);
        const long long height = std::min<long long>(rect->Height() + 1LL, targetHeight - y);
        render::Rectangle<int> area{static_cast<int>(x), static_cast<int>(y), static_cast<int>(width),
                                    static_cast<int>(height)};
        target->FillRect(area, Rgba{0, 0, 0, 0});
        area.x = OnScreen(x, m_surfaceOffsetX);
        area.y = OnScreen(y, m_surfaceOffsetY);
        Render::Instance().InvalidateArea(area);
    }
}

void CCardTable::InvalidateDrawnRegions()
{
    for (auto rect = LastDrawnRectsBegin(); rect != LastDrawnRectsEnd(); ++rect) {
        Render::Instance().InvalidateArea({OnScreen(rect->left, m_surfaceOffsetX),
                                           OnScreen(rect->top, m_surfaceOffsetY), static_cast<int>(rect->Width()),
                                           static_cast<int>(rect->Height())});
    }
}

std::list<CRect>::iterator CCardTable::LastDrawnRectsBegin()
{
    return CSceneHandler::LastDrawnRectsBegin();
}

std::list<CRect>::iterator CCardTable::LastDrawnRectsEnd()
{
    return CSceneHandler::LastDrawnRectsEnd();
}
