// SPDX-License-Identifier: MIT
// Builds the two-sided object of a card.
#include "animation/object.h"
#include "cardtable/card_table.h"
#include "geometry/polygon.h"
#include "host/bitmap.h"

#include <memory>

namespace
{

constexpr long kFaceDownRow = -1;

/// The part of a texture that a side of the card shows, in fractions.
struct TextureArea {
    double left;
    double top;
    double right;
    double bottom;
};

std::unique_ptr<CPolygon> CardSide(Bitmap* texture, const TextureArea& area)
{
    auto side = std::make_unique<CPolygon>();
    side->SetTexture(texture, texture->Width(), texture->Height(), area.left, area.top, area.right, area.bottom);
    return side;
}

void HandOver(CObject& card, std::unique_ptr<CPolygon> side)
{
    card.AddPolygon(side.get());
    side.release();
}

} // namespace

CObject* CCardTable::GetCardObj(long row, long column, double left, double top, double right, double bottom,
                                int useAdditional)
{
    if (m_backTexture == nullptr) {
        return nullptr;
    }
    Bitmap* faceTexture = m_backTexture;
    if (row != kFaceDownRow) {
        faceTexture = useAdditional != 0 ? GetAdditionalCardTexture(row, column) : GetCardTexture(row, column);
    }
    if (faceTexture == nullptr) {
        return nullptr;
    }

    const double x = m_cardDimX;
    const double y = m_cardDimY;
    auto face = CardSide(faceTexture, {left, top, right, bottom});
    if (row == kFaceDownRow) {
        // The ordinary face turned by half a turn in its plane.
        face->Set3D(x, -y, 0.0, -x, -y, 0.0, -x, y, 0.0, x, y, 0.0);
    } else {
        face->Set3D(-x, y, 0.0, x, y, 0.0, x, -y, 0.0, -x, -y, 0.0);
    }
    // The other way round, so that one of the two sides always turns away from the viewer.
    auto back = CardSide(m_backTexture, {right, bottom, left, top});
    back->Set3D(x, y, 0.0, -x, y, 0.0, -x, -y, 0.0, x, -y, 0.0);

    auto card = std::make_unique<CObject>();
    HandOver(*card, std::move(back));
    HandOver(*card, std::move(face));
    return card.release();
}
