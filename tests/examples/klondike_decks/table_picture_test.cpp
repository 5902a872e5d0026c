// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/table_picture.h"
#include "pixels.h"

#include <set>

namespace
{

using klondike::MakeTablePicture;
using klondike::RepaintSlot;
using klondike::SlotSign;
using klondike::TableSlot;

constexpr SlotSign kSigns[] = {SlotSign::None,   SlotSign::Clubs,   SlotSign::Diamonds, SlotSign::Hearts,
                               SlotSign::Spades, SlotSign::Recycle, SlotSign::NoMore};

class TablePictureTest : public HostTest
{
};

TEST_F(TablePictureTest, IsLitFromAboveAndOpaque)
{
    const OwnedBitmap table = MakeTablePicture(320, 240, {});
    ASSERT_NE(table, nullptr);
    const auto green = [&](int x, int y) {
        int sum = 0;
        for (int i = 0; i < 100; ++i) {
            sum += static_cast<int>(PixelAt(*table, x + i % 10, y + i / 10) >> 8 & 255U);
        }
        return sum;
    };
    EXPECT_GT(green(155, 80), green(155, 228));
    EXPECT_GT(green(155, 80), green(2, 80));
    EXPECT_NEAR(green(2, 80), green(308, 80), 200) << "the same on both sides";
    EXPECT_GT(green(155, 228), 0);
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            ASSERT_EQ(PixelAt(*table, x, y) >> 24, 255U);
        }
    }
}

TEST_F(TablePictureTest, SlotsStayInTheirPlaces)
{
    const render::Rectangle<int> place{50, 40, 60, 84};
    const OwnedBitmap bare = MakeTablePicture(200, 160, {});
    std::set<std::vector<std::uint32_t>> seen;
    for (const SlotSign sign : kSigns) {
        const OwnedBitmap table = MakeTablePicture(200, 160, {{place, sign}});
        int changed = 0;
        for (int y = 0; y < 160; ++y) {
            for (int x = 0; x < 200; ++x) {
                const bool isInside = x >= 50 && x < 110 && y >= 40 && y < 124;
                const bool isChanged = PixelAt(*table, x, y) != PixelAt(*bare, x, y);
                ASSERT_TRUE(isInside || !isChanged) << x << ", " << y;
                changed += isChanged ? 1 : 0;
            }
        }
        EXPECT_GT(changed, 60 * 84 / 2);
        seen.insert(PixelsOf(*table));
    }
    EXPECT_EQ(seen.size(), std::size(kSigns));
}

TEST_F(TablePictureTest, ARepaintedSlotLooksAsIfPaintedFirst)
{
    const std::vector<TableSlot> others{{{5, 75, 40, 56}, SlotSign::Hearts}, {{100, 90, 40, 56}, SlotSign::None}};
    for (const render::Rectangle<int>& place :
         {render::Rectangle<int>{52, 7, 43, 61}, {-20, -30, 43, 61}, {180, 130, 43, 61}}) {
        std::vector<TableSlot> slots = others;
        slots.push_back({place, SlotSign::Recycle});
        const OwnedBitmap table = MakeTablePicture(200, 160, slots);
        slots.back().sign = SlotSign::NoMore;
        RepaintSlot(*table, slots.back());
        EXPECT_EQ(PixelsOf(*table), PixelsOf(*MakeTablePicture(200, 160, slots))) << place.x;
    }
}

TEST_F(TablePictureTest, TablesOfAnySize)
{
    constexpr int kLargest = 2147483647;
    EXPECT_EQ(MakeTablePicture(Bitmap::kMaxSide + 1, 10, {}), nullptr);
    EXPECT_EQ(MakeTablePicture(0, 10, {{{0, 0, 5, 5}, SlotSign::Clubs}})->Width(), 0);
    EXPECT_NE(MakeTablePicture(1, 1, {{{0, 0, 1, 1}, SlotSign::Clubs}}), nullptr);
    const OwnedBitmap bare = MakeTablePicture(30, 30, {});
    for (const render::Rectangle<int>& place : {render::Rectangle<int>{},
                                                {5, 5, -3, 10},
                                                {-kLargest, -kLargest, 10, 10},
                                                {kLargest, kLargest, 10, 10},
                                                {-5, -5, kLargest, kLargest}}) {
        const OwnedBitmap table = MakeTablePicture(30, 30, {{place, SlotSign::Spades}});
        EXPECT_EQ(PixelsOf(*table), PixelsOf(*bare)) << place.x;
        RepaintSlot(*table, {place, SlotSign::Spades});
        EXPECT_EQ(PixelsOf(*table), PixelsOf(*bare)) << place.x;
    }
    RepaintSlot(*MakeTablePicture(0, 0, {}), {{0, 0, 5, 5}, SlotSign::Clubs});
}

} // namespace
