// SPDX-License-Identifier: MIT
#include "tests/support/card_table_test.h"

#include <array>
#include <limits>
#include <memory>

namespace
{

class Textures : public CardTableTest
{
protected:
    bool HasBack() { return std::unique_ptr<CObject>(table.GetCardObj(-1, -1, 0, 0, 1, 1, 0)) != nullptr; }
};

TEST_F(Textures, SheetIsCutRowByRow)
{
    const struct {
        long rows, columns, lastRow;
        long lastRowNumber, lastColumn; ///< of the last texture, -1 for none
    } cases[] = {{4, 13, 13, 3, 12},  {5, 13, 2, 4, 1},     {1, 13, 5, 0, 4},  {2, 3, 7, 3, 0},
                 {0, 13, 13, -1, -1}, {-3, 13, 13, -1, -1}, {2, 13, 0, 0, 12}, {2, -1, 4, 0, 3}};
    for (const auto& c : cases) {
        table.Init(1, c.rows, c.columns, c.lastRow);
        Load();
        const auto which = testing::Message() << (&c - cases);
        if (c.lastRowNumber < 0) {
            EXPECT_EQ(table.GetCardTexture(0, 0), nullptr) << which;
            continue;
        }
        EXPECT_NE(table.GetCardTexture(c.lastRowNumber, c.lastColumn), nullptr) << which;
        EXPECT_EQ(table.GetCardTexture(c.lastRowNumber, c.lastColumn + 1), nullptr) << which;
    }
    table.Init(1, 5, 13, 2);
    Load();
    const Bitmap& card = *table.GetCardTexture(2, 3);
    EXPECT_EQ(card.Width(), kWidth);
    EXPECT_EQ(card.Height(), kHeight);
    EXPECT_EQ(PixelAt(card, 0, 0), SheetColour(3 * kWidth, 2 * kHeight));
    EXPECT_EQ(PixelAt(card, 6, 8), SheetColour(3 * kWidth + 6, 2 * kHeight + 8));
}

TEST_F(Textures, AbsurdGridIsRefusedAndTheEarlierFacesStay)
{
    Load();
    Bitmap* const first = table.GetCardTexture(0, 0);
    const struct {
        long rows, columns, lastRow;
    } grids[] = {{2, 1000000000, 1}, {1000000000, 0, 1}, {1, 13, 2147483647}, {2147483647, 2147483647, 2147483647}};
    for (const auto& grid : grids) {
        table.Init(1, grid.rows, grid.columns, grid.lastRow);
        EXPECT_EQ(table.LoadTextures(sheet.Path(), back.Path(), 0, 0), 0);
        EXPECT_EQ(table.GetCardTexture(0, 0), first);
    }
}

TEST_F(Textures, LookupIsOneRunningNumber)
{
    constexpr long kMost = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(table.GetCardTexture(0, 0), nullptr);
    EXPECT_EQ(table.GetCardTexture(0, -1), nullptr);
    Load();
    Bitmap* const first = table.GetCardTexture(0, 0);
    EXPECT_EQ(table.GetCardTexture(0, -1), first);
    EXPECT_EQ(table.GetCardTexture(-4, 7), first);
    EXPECT_EQ(table.GetCardTexture(0, -kMost - 1), first);
    EXPECT_EQ(table.GetCardTexture(0, 13), table.GetCardTexture(1, 0));
    EXPECT_EQ(table.GetCardTexture(2, -13), table.GetCardTexture(1, 0));
    EXPECT_EQ(table.GetCardTexture(0, 54), nullptr);
    EXPECT_EQ(table.GetCardTexture(0, kMost), nullptr);
    EXPECT_EQ(table.GetShadedCardTexture(0, 0), nullptr);
    EXPECT_EQ(table.GetAdditionalCardTexture(0, 0), nullptr);
}

TEST_F(Textures, ShadingTruncatesAndWraps)
{
    const PictureFile picture(kWidth, kHeight, [](int, int) { return 0xFF0365C8U; }); // bytes 200, 101, 3, 255
    table.Init(1, 1, 1, 1);
    const struct {
        double factor;
        std::array<int, 4> bytes;
    } cases[] = {
        {0.5, {100, 50, 1, 127}}, {1, {200, 101, 3, 255}},
        {1.5, {44, 151, 4, 126}}, {-1, {56, 155, 253, 1}},
        {0, {0, 0, 0, 0}},        {1e300, {255, 255, 255, 255}},
        {-1e300, {0, 0, 0, 0}},   {std::numeric_limits<double>::quiet_NaN(), {0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(table.LoadTextures(picture.Path(), back.Path(), 1, c.factor), 1);
        const auto* const bytes = static_cast<const Bitmap*>(table.GetShadedCardTexture(0, 0))->Buffer();
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(bytes[i], c.bytes[i]) << c.factor << " byte " << i;
        }
        EXPECT_EQ(PixelAt(*table.GetShadedCardTexture(0, 0), 6, 8), PixelAt(*table.GetShadedCardTexture(0, 0), 0, 0));
        EXPECT_EQ(PixelAt(*table.GetCardTexture(0, 0), 0, 0), 0xFF0365C8U);
    }
}

TEST_F(Textures, MissingFiles)
{
    EXPECT_EQ(table.LoadTextures(missing.c_str(), missing.c_str(), 0, 0), 0);
    EXPECT_FALSE(HasBack());
    EXPECT_EQ(table.LoadTextures(nullptr, back.Path(), 0, 0), 0);
    EXPECT_TRUE(HasBack()) << "a back that loaded is kept";
    EXPECT_EQ(table.GetCardTexture(0, 0), nullptr);
    EXPECT_EQ(table.LoadTextures(sheet.Path(), missing.c_str(), 1, 1), 0);
    EXPECT_FALSE(HasBack());
    EXPECT_EQ(table.GetCardTexture(0, 0), nullptr);
    EXPECT_EQ(table.LoadAdditionalCardTexture(missing.c_str()), 0);
    EXPECT_EQ(table.LoadAdditionalCardTexture(nullptr), 0);
    EXPECT_EQ(table.LoadBackTexture(nullptr), 0);

    // A set that cannot be loaded leaves the faces before it.
    Load(1);
    Bitmap* const face = table.GetCardTexture(0, 0);
    EXPECT_EQ(table.LoadTextures(missing.c_str(), back.Path(), 0, 0), 0);
    table.SetCardSize(Bitmap::kMaxSide + 1, 5);
    EXPECT_EQ(table.LoadTextures(sheet.Path(), back.Path(), 1, 1), 0);
    EXPECT_EQ(table.GetCardTexture(0, 0), face);
    EXPECT_NE(table.GetShadedCardTexture(0, 0), nullptr);
    EXPECT_EQ(table.LoadBackTexture(missing.c_str()), 0);
    EXPECT_FALSE(HasBack());
    EXPECT_EQ(std::unique_ptr<CObject>(table.GetCardObj(0, 0, 0, 0, 1, 1, 0)), nullptr);
}

TEST_F(Textures, RepeatedLoadsReplace)
{
    RecordingRenderer renderer;
    Load(1);
    const Bitmap* const face = table.GetCardTexture(0, 0);
    const Bitmap* const shaded = table.GetShadedCardTexture(0, 0);
    const std::unique_ptr<CObject> card(table.GetCardObj(0, 0, 0, 0, 1, 1, 0));
    Load(0);
    EXPECT_NE(table.GetCardTexture(0, 0), face);
    EXPECT_NE(table.GetCardTexture(4, 1), nullptr);
    EXPECT_EQ(table.GetCardTexture(4, 2), nullptr) << "one set, not two";
    EXPECT_EQ(table.GetShadedCardTexture(0, 0), nullptr);
    EXPECT_EQ(face->Width() + shaded->Width(), 0) << "destroyed";
    for (const auto& side : SidesOf(*card, renderer)) {
        EXPECT_EQ(side.texture->Width(), 0) << "a card made before shows nothing";
    }
    const OwnBitmap target(8, 8);
    card->Draw(&table, target);
}

TEST_F(Textures, AdditionalFacesHaveTheirOwnSize)
{
    Load();
    table.SetAdditionalCardSize(3, 4);
    EXPECT_EQ(table.LoadAdditionalCardTexture(sheet.Path()), 1);
    EXPECT_EQ(table.LoadAdditionalCardTexture(sheet.Path()), 1);
    const Bitmap& card = *table.GetAdditionalCardTexture(1, 2);
    EXPECT_EQ(PixelAt(card, 2, 3), SheetColour(2 * 3 + 2, 4 + 3));
    EXPECT_EQ(card.Width(), 3);
    EXPECT_EQ(table.GetAdditionalCardTexture(4, 2), nullptr);
}

} // namespace
