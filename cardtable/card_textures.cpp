// SPDX-License-Identifier: MIT
// The table's textures: cut from sheets, looked up, put on cards.
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "cardtable/scoped_bitmap.h"
#include "cardtable/texture_list.h"
#include "geometry/int32.h"
#include "geometry/list_walk.h"
#include "geometry/polygon.h"
#include "host/bitmap.h"
#include "host/render.h"

#include <algorithm>
#include <limits>

namespace
{

Bitmap* LoadBitmap(const char* file)
{
    return BitmapManager::Instance().Load(file != nullptr ? file : "", true);
}

/// Textures that are destroyed at the end of their scope unless they have been handed over.
class ScopedTextures
{
public:
    ScopedTextures() = default;
    ~ScopedTextures() { DestroyTextures(list); }
    ScopedTextures(const ScopedTextures&) = delete;
    ScopedTextures& operator=(const ScopedTextures&) = delete;

    void Replace(CLList& textures)
    {
        CLList old = textures;
        textures = list;
        list.KillAll();
        DestroyTextures(old);
    }

    CLList list;
};

/// The start of a cell in a sheet; one that no sheet can reach where the product does not fit.
int CellStart(long cellSize, long index)
{
    constexpr long long kOutside = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(static_cast<long long>(cellSize) * index, kOutside));
}

Bitmap* NumberedTexture(CLList& textures, long columns, long row, long column)
{
    long number = WrapToInt32(static_cast<long long>(WrapToInt32(row)) * columns + WrapToInt32(column));
    textures.First();
    for (; number > 0 && textures.Exists() != 0; --number) {
        textures.Next();
    }
    return UnderCursor<Bitmap>(textures);
}

long ShowOnFace(CObject* card, Bitmap* texture)
{
    CPolygon* const face = card != nullptr ? card->GetFrontPoly() : nullptr;
    if (face == nullptr || texture == nullptr) {
        return 0;
    }
    face->SetTexture(texture, texture->Width(), texture->Height(), 0.0, 0.0, 1.0, 1.0);
    return 1;
}

/// More cards than any sheet has: a grid beyond it is a mistake, and would take all memory.
constexpr long long kMostCards = 65536;

} // namespace

bool CCardTable::CutSheet(const Bitmap& sheet, long cardWidth, long cardHeight, CLList& textures) const
{
    const int width = static_cast<int>(cardWidth);
    const int height = static_cast<int>(cardHeight);
    const long long fullRows = std::max(m_numRows - 1LL, 0LL);
    if (fullRows * std::max(m_numColumns, 0L) + m_numLastRow > kMostCards || m_numRows > kMostCards) {
        return false;
    }
    for (long row = 0; row < m_numRows; ++row) {
        const long count = row == m_numRows - 1 ? m_numLastRow : m_numColumns;
        for (long column = 0; column < count; ++column) {
            ScopedBitmap card(BitmapManager::Instance().Create(width, height));
            if (card.Get() == nullptr) {
                return false;
            }
            Render::Instance().Copy(&sheet, card.Get(), 0, 0, CellStart(cardWidth, column), CellStart(cardHeight, row),
                                    width, height);
            textures.InsertLast(card.Get(), 0);
            card.Release();
        }
    }
    return true;
}

long CCardTable::LoadTextures(const char* faceSheetFile, const char* backFile, int makeShaded, double shadeFactor)
{
    m_makeShaded = makeShaded;
    const ScopedBitmap sheet(LoadBitmap(faceSheetFile));
    LoadBackTexture(backFile);
    if (sheet.Get() == nullptr || m_backTexture == nullptr) {
        return 0;
    }
    ScopedTextures faces;
    ScopedTextures shaded;
    if (!CutSheet(*sheet.Get(), m_cardWidth, m_cardHeight, faces.list)) {
        return 0;
    }
    if (m_makeShaded != 0) {
        for (const Bitmap* face : TypedWalk<Bitmap>(faces.list)) {
            ScopedBitmap copy(CopyOf(*face));
            ScaleBytes(*copy.Get(), shadeFactor);
            shaded.list.InsertLast(copy.Get(), 0);
            copy.Release();
        }
    }
    faces.Replace(m_cardTextures);
    shaded.Replace(m_shadedTextures);
    return 1;
}

long CCardTable::LoadAdditionalCardTexture(const char* sheetFile)
{
    const ScopedBitmap sheet(LoadBitmap(sheetFile));
    ScopedTextures faces;
    if (sheet.Get() == nullptr || !CutSheet(*sheet.Get(), m_additionalCardWidth, m_additionalCardHeight, faces.list)) {
        return 0;
    }
    faces.Replace(m_additionalTextures);
    return 1;
}

long CCardTable::LoadBackTexture(const char* file)
{
    BitmapManager::Instance().Destroy(m_backTexture);
    m_backTexture = LoadBitmap(file);
    return m_backTexture != nullptr ? 1 : 0;
}

Bitmap* CCardTable::GetCardTexture(long row, long column)
{
    return NumberedTexture(m_cardTextures, m_numColumns, row, column);
}

Bitmap* CCardTable::GetAdditionalCardTexture(long row, long column)
{
    return NumberedTexture(m_additionalTextures, m_numColumns, row, column);
}

Bitmap* CCardTable::GetShadedCardTexture(long row, long column)
{
    return NumberedTexture(m_shadedTextures, m_numColumns, row, column);
}

long CCardTable::ChangeCard(CObject* card, long row, long column, int useAdditional)
{
    return ShowOnFace(card, useAdditional != 0 ? GetAdditionalCardTexture(row, column) : GetCardTexture(row, column));
}

long CCardTable::SetShaded(CObject* card, long row, long column)
{
    return ShowOnFace(card, GetShadedCardTexture(row, column));
}

void CCardTable::ShowBackOnFace(CObject& card)
{
    ShowOnFace(&card, m_backTexture);
}
