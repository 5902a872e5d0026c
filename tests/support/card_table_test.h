// SPDX-License-Identifier: MIT
#pragma once

#include "cardtable/cardtable.h"
#include "tests/support/picture_file.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

#include <cstdint>
#include <string>
#include <vector>

/// A host, pictures and a table of three pockets whose cards are 7 x 9 pixels, in a sheet of 5 rows of 13, the last of
/// 2. Nothing is loaded yet.
class CardTableTest : public HostTest
{
protected:
    static constexpr int kWidth = 7;
    static constexpr int kHeight = 9;
    static constexpr int kColumns = 13;

    CardTableTest()
    {
        table.SetCardSize(kWidth, kHeight);
        table.SetCardDimension(2, 3);
        table.Init(3, 5, kColumns, 2);
    }
    /// The pixel of the sheet, from which every card differs.
    static std::uint32_t SheetColour(int x, int y)
    {
        return 0xFF000000U | static_cast<std::uint32_t>(y) << 8 | static_cast<std::uint32_t>(x);
    }
    void Load(int makeShaded = 0, double factor = 0.5)
    {
        EXPECT_EQ(table.LoadTextures(sheet.Path(), back.Path(), makeShaded, factor), 1);
    }

    const PictureFile sheet{kWidth * kColumns, kHeight * 5, &SheetColour};
    const PictureFile back{4, 6, [](int, int) { return 0xFF8040C0U; }};
    const std::string missing = testing::TempDir() + "cardtable_no_such_file.png";
    CCardTable table;
};

/// The draws of an object's polygons.
inline std::vector<RecordingRenderer::DrawCall> SidesOf(CObject& card, RecordingRenderer& renderer)
{
    CSceneHandler scene;
    const OwnBitmap target(1, 1);
    renderer.draws.clear();
    card.On();
    card.Draw(&scene, target);
    return renderer.draws;
}
