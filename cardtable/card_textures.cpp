// SPDX-License-Identifier: MIT
// The table's textures: cut from sheets, looked up, put on cards.
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "cardtable/texture_list.h"
#include "geometry/int32.h"
#include "geometry/list_walk.h"
#include "geometry/polygon.h"
#include "host/bitmap.h"
#include "host/owned_bitmap.h"

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

} // namespace

long CCardTable::LoadTextures(const char* faceSheetFile, const char* backFile, int makeShaded, double shadeFactor)
{
    m_makeShaded = makeShaded;
    const OwnedBitmap sheet(LoadBitmap(faceSheetFile));
    LoadBackTexture(backFile);
    if (sheet == nullptr || m_backTexture == nullptr) {
        return 0;
    }
    ScopedTextures faces;
    ScopedTextures shaded;
    if (!CutSheet(*sheet, {m_numRows, m_numColumns, m_numLastRow, m_cardWidth, m_cardHeight}, faces.list)) {
        return 0;
    }
    if (m_makeShaded != 0) {
        ShadeTextures(faces.list, shadeFactor, shaded.list);
    }
    faces.Replace(m_cardTextures);
    shaded.Replace(m_shadedTextures);
    return 1;
}

long CCardTable::LoadAdditionalCardTexture(const char* sheetFile)
{
    const OwnedBitmap sheet(LoadBitmap(sheetFile));
    ScopedTextures faces;
    if (sheet == nullptr ||
        !CutSheet(*sheet, {m_numRows, m_numColumns, m_numLastRow, m_additionalCardWidth, m_additionalCardHeight},
                  faces.list)) {
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
