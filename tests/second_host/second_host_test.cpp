// SPDX-License-Identifier: MIT
#include "cardtable/cardtable.h"
#include "host/bitmap_manager.h"
#include "host/canvas.h"
#include "host/window.h"
#include "tests/second_host/host.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>

namespace
{

using Colour = std::array<int, 3>; ///< red, green, blue
constexpr Colour kNone{0, 0, 0};
constexpr Colour kFaces[] = {{250, 10, 20}, {30, 240, 40}};
constexpr Colour kBack{50, 60, 230};

/// A PPM file of one colour a column of cards.
std::string Picture(const char* name, std::initializer_list<Colour> columns)
{
    constexpr int kWidth = 10;
    constexpr int kHeight = 12;
    const std::string path = testing::TempDir() + name;
    std::ofstream stream(path, std::ios::binary);
    stream << "P6 " << kWidth * static_cast<int>(columns.size()) << ' ' << kHeight << " 255\n";
    for (int y = 0; y < kHeight; ++y) {
        for (const Colour& column : columns) {
            for (int x = 0; x < kWidth; ++x) {
                for (const int channel : column) {
                    stream.put(static_cast<char>(channel));
                }
            }
        }
    }
    return path;
}

Colour At(const Bitmap& bitmap, long x, long y)
{
    const std::uint8_t* pixel = bitmap.Buffer() + 4 * (y * bitmap.Width() + x);
    return {pixel[2], pixel[1], pixel[0]};
}

TEST(SecondHost, PlaysACardFromFlightToRest)
{
    auto& host = second_host::TheState();
    host.width = 320;
    host.height = 240;
    SetCameraFOV(36.4, 27.0);
    const std::string sheet = Picture("cardtable_second_sheet.ppm", {kFaces[0], kFaces[1]});
    const std::string back = Picture("cardtable_second_back.ppm", {kBack});

    Bitmap* target = BitmapManager::Instance().Create(320, 240);
    CDialog dialog;
    Canvas anchor;
    dialog.AddCntrlBefore(&anchor, nullptr);
    C3DMoveList flight;
    C3DMoveList rest;
    {
        CCardTable table;
        table.SetCardSize(10, 12);
        table.SetCardDimension(1, 1.2);
        table.Init(2, 1, 2, 2);
        ASSERT_EQ(table.LoadTextures(sheet.c_str(), back.c_str(), 1, 0.5), 1);
        table.SetTargetBitmap(target);
        CPocket& pocket = *table.GetPocket(0);
        ASSERT_EQ(pocket.AddCard(0) + pocket.AddCard(1), 2);
        CObject* card = nullptr;
        ASSERT_EQ(pocket.GetCard(card), 1);

        // From the left edge to the middle, turning over.
        auto* const move = new C3DMove;
        move->Init(-4, 0, 20, 0, 0, 20, 9);
        move->SetRotX(0, 180);
        flight.AddMove(move);
        table.StartAnim(&flight, card);
        int frames = 0;
        for (; table.IsAnyPolyAnim() != 0; ++frames) {
            host.now += 10;
            table.Handler();
            if (frames == 0) {
                EXPECT_EQ(At(*target, 50, 120), kBack);
            }
        }
        EXPECT_EQ(frames, 9);
        EXPECT_EQ(At(*target, 50, 120), kNone) << "erased";
        EXPECT_EQ(At(*target, 160, 120), kFaces[1]);
        EXPECT_FALSE(host.areas.empty());
        long x = 0;
        long y = 0;
        table.ProjectPoint2Screen(0, 0, 20, x, y);
        EXPECT_EQ(table.IsPointInside(x, y, card), 1);
        EXPECT_EQ(table.IsPointInside(0, 0, card), 0);

        // The frame after it, and one that catches up.
        table.Handler();
        table.StartAnim(&flight, card);
        for (frames = 0; table.IsAnyPolyAnim() != 0; ++frames) {
            host.now += 30;
            table.Handler();
        }
        EXPECT_EQ(frames, 4) << "frames 0, 3, 6 and the last";

        // It comes to rest as a control and leaves the scene.
        auto* const standing = new C3DMove;
        standing->Init(0, 0, 20, 0, 0, 20, 1);
        standing->SetRotX(180, 180);
        rest.AddMove(standing);
        pocket.AddMove(&rest);
        pocket.AddMove(&rest);
        pocket.SetUseControls(&dialog, &anchor);
        pocket.DrawCard(2, 0, nullptr);
        table.RemoveObject(card);
        table.Handler();
        EXPECT_EQ(At(*target, 160, 120), kNone);
        ASSERT_EQ(dialog.GetNumControls(), 2);
        const auto& control = *static_cast<const Canvas*>(dialog.FirstControl());
        const Bitmap& picture = *control.GetBitmap();
        EXPECT_EQ(At(picture, picture.Width() / 2, picture.Height() / 2), kFaces[1]);
        EXPECT_NEAR(static_cast<double>(control.X()) + static_cast<double>(control.Width()) / 2, 160, 1);
        pocket.SetShaded(2, 1);
        pocket.ForceRedrawStatics();
        EXPECT_EQ(At(picture, picture.Width() / 2, picture.Height() / 2), (Colour{15, 120, 20}));
        pocket.ChangeCard(2, 0);
        EXPECT_EQ(At(picture, picture.Width() / 2, picture.Height() / 2), kFaces[0]);
        table.DrawPocket(5, 0, target);
        EXPECT_EQ(host.lines.back(), "game.card.cardtable: CCardTable::DrawPocket(5), index out of range [0,2]");
    }
    EXPECT_EQ(dialog.GetNumControls(), 1) << "the controls went with the table";
    BitmapManager::Instance().Destroy(target);
    std::remove(sheet.c_str());
    std::remove(back.c_str());
}

} // namespace
