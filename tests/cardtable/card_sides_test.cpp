// SPDX-License-Identifier: MIT
#include "tests/support/card_table_test.h"

#include <algorithm>
#include <array>
#include <memory>

namespace
{

class CardSides : public CardTableTest
{
protected:
    std::unique_ptr<CObject> Card(long row, long column, int useAdditional = 0)
    {
        return std::unique_ptr<CObject>(table.GetCardObj(row, column, 0, 0, 1, 1, useAdditional));
    }
};

std::array<double, 12> CornersOf(const CPolygon& polygon)
{
    std::array<double, 12> corners{};
    for (std::size_t i = 0; i < 4; ++i) {
        polygon.GetPoint(static_cast<long>(i), corners[3 * i], corners[3 * i + 1], corners[3 * i + 2]);
    }
    return corners;
}

TEST_F(CardSides, CornersAndTextureCoordinates)
{
    using Coords = std::array<long, 8>;
    RecordingRenderer renderer;
    EXPECT_EQ(Card(-1, 0), nullptr) << "no back yet";
    Load();
    EXPECT_EQ(Card(0, 0, 1), nullptr) << "no additional faces";
    EXPECT_EQ(Card(4, 2), nullptr);
    for (const bool faceDown : {false, true}) {
        const auto card = faceDown ? Card(-1, 7) : Card(0, 0);
        table.SetCardDimension(50, 60); // for later cards
        EXPECT_EQ(CornersOf(*card->GetFrontPoly()),
                  faceDown ? (std::array<double, 12>{2, -3, 0, -2, -3, 0, -2, 3, 0, 2, 3, 0})
                           : (std::array<double, 12>{-2, 3, 0, 2, 3, 0, 2, -3, 0, -2, -3, 0}));
        table.SetCardDimension(2, 3);
        card->SetPosition(0, 0, 100);
        const auto sides = SidesOf(*card, renderer);
        ASSERT_EQ(sides.size(), 2U);
        const auto& backSide = sides[0];
        const auto& face = sides[1];
        EXPECT_EQ(face.texture, card->GetFrontPoly()->GetTexture());
        EXPECT_EQ(face.texture == backSide.texture, faceDown);
        EXPECT_EQ(backSide.texture->Width(), 4);
        EXPECT_EQ(backSide.coords, (Coords{262143, 393215, 0, 393215, 0, 0, 262143, 0})) << "mirrored both ways";
        EXPECT_EQ(face.coords, faceDown ? (Coords{0, 0, 262143, 0, 262143, 393215, 0, 393215})
                                        : (Coords{0, 0, 458751, 0, 458751, 589823, 0, 589823}));
        // The back's corners run the other way round over the same four places.
        const std::size_t sameAsBack[] = {1, 0, 3, 2};
        for (std::size_t corner = 0; corner < 4; ++corner) {
            const std::size_t other = faceDown ? 3 - corner : sameAsBack[corner];
            EXPECT_EQ(backSide.vertices[2 * corner], face.vertices[2 * other]) << corner;
            EXPECT_EQ(backSide.vertices[2 * corner + 1], face.vertices[2 * other + 1]) << corner;
        }
    }
    const std::unique_ptr<CObject> part(table.GetCardObj(0, 0, 0.5, 0, 1, 0.5, 0));
    EXPECT_EQ(SidesOf(*part, renderer)[1].coords, (Coords{196607, 0, 458751, 0, 458751, 262143, 196607, 262143}));
    EXPECT_EQ(renderer.draws[0].coords, (Coords{262143, 196607, 131071, 196607, 131071, 0, 262143, 0}));
}

TEST_F(CardSides, FacesAreChanged)
{
    Load(1);
    const auto card = Card(0, 0);
    CPolygon& face = *card->GetFrontPoly();
    EXPECT_EQ(table.ChangeCard(card.get(), 1, 2, 0), 1);
    EXPECT_EQ(face.GetTexture(), table.GetCardTexture(1, 2));
    EXPECT_EQ(table.ChangeCard(card.get(), 4, 2, 0), 0);
    EXPECT_EQ(table.ChangeCard(card.get(), 1, 3, 1), 0) << "no additional faces";
    EXPECT_EQ(table.ChangeCard(nullptr, 0, 0, 0), 0);
    EXPECT_EQ(face.GetTexture(), table.GetCardTexture(1, 2));
    EXPECT_EQ(table.SetShaded(card.get(), 1, 2), 1);
    EXPECT_EQ(face.GetTexture(), table.GetShadedCardTexture(1, 2));
    EXPECT_EQ(table.SetShaded(card.get(), 9, 9), 0);
    EXPECT_EQ(face.GetTexture(), table.GetShadedCardTexture(1, 2));
}

/// The colours of the four quarters of a picture: top left, top right, bottom left, bottom right.
using Quarters = std::array<std::uint32_t, 4>;
constexpr Quarters kFace{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF};
constexpr Quarters kBack{0xFFFFFF00, 0xFF00FFFF, 0xFFFF00FF, 0xFF000000};

Quarters UpsideDown(Quarters quarters)
{
    std::reverse(quarters.begin(), quarters.end());
    return quarters;
}

PictureFile FourColours(int width, int height, const Quarters& quarters)
{
    return PictureFile(width, height,
                       [=](int x, int y) { return quarters[(x < width / 2 ? 0U : 1U) + (y < height / 2 ? 0U : 2U)]; });
}

TEST_F(CardSides, TheSideThatShowsIsUpright)
{
    const PictureFile face = FourColours(40, 60, kFace);
    const PictureFile cardBack = FourColours(40, 60, kBack);
    table.SetCardSize(40, 60);
    table.Init(1, 1, 1, 1);
    ASSERT_EQ(table.LoadTextures(face.Path(), cardBack.Path(), 0, 0), 1);
    const struct {
        double aboutX, aboutY;
        bool faceDown;
        Quarters shown;
    } cases[] = {
        {0, 0, false, kBack},
        {180, 0, false, kFace},
        {0, 180, false, UpsideDown(kFace)},
        {180, 180, false, UpsideDown(kBack)},
        {0, 0, true, kBack},
        {180, 0, true, UpsideDown(kBack)},
        {0, 180, true, kBack},
        {30, 0, false, kBack},
        {150, 0, false, kFace},
    };
    for (const auto& c : cases) {
        for (const long stamp : {0, 1}) {
            const auto which = testing::Message() << (&c - cases) << " stamp " << stamp;
            const OwnBitmap target(800, 600);
            const auto card = c.faceDown ? Card(-1, -1) : Card(0, 0);
            card->SetPosition(0, 0, 40);
            card->SetRotate(c.aboutX, c.aboutY, 0);
            card->GetFrontPoly()->SetStamp(stamp);
            table.SetTargetBitmap(target);
            table.AddObject(card.get());
            card->On();
            table.Handler();
            const CRect& area = *card->GetClip();
            ASSERT_GT(area.Width(), 80) << which;
            ASSERT_GT(area.Height(), 100) << which;
            EXPECT_NEAR(static_cast<double>(area.left + area.right), 800, 2) << which;
            const auto at = [&](long eighthsX, long eighthsY) {
                return PixelAt(*target, static_cast<int>(area.left + area.Width() * eighthsX / 8),
                               static_cast<int>(area.top + area.Height() * eighthsY / 8));
            };
            EXPECT_EQ((Quarters{at(2, 2), at(6, 2), at(2, 6), at(6, 6)}), c.shown) << which;
            // What was drawn is what is recorded, and gone after the next frame's erasing.
            card->Off();
            table.Handler();
            std::uint32_t left = 0;
            for (int y = 0; y < 600; ++y) {
                for (int x = 0; x < 800; ++x) {
                    left |= PixelAt(*target, x, y);
                }
            }
            EXPECT_EQ(left, 0U) << which;
            table.SetTargetBitmap(nullptr);
        }
    }
}

} // namespace
