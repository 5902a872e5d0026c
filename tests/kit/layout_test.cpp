// SPDX-License-Identifier: MIT
#include "kit/pile_layout.h"
#include "kit/table_plane.h"
#include "tests/kit/kit_game.h"

#include "geometry/polygon.h"

#include <algorithm>

using namespace cardkit;

TEST(PileLayout, SqueezesWhatDoesNotFitAndNothingElse)
{
    std::vector<Pixel> homes;
    const auto lay = [&](const PileLayout& layout, int down, int up) {
        std::vector<Facing> facings(static_cast<std::size_t>(down), Facing::Down);
        facings.insert(facings.end(), static_cast<std::size_t>(up), Facing::Up);
        ComputeHomes(layout, facings, homes);
        return homes;
    };
    const PileLayout column = FannedDown({10, 20}, 15, 6, 100);
    EXPECT_EQ(lay(column, 2, 2), (std::vector<Pixel>{{10, 20}, {10, 26}, {10, 32}, {10, 47}}));
    for (int up = 1; up < 40; ++up) {
        lay(column, 6, up);
        EXPECT_LE(homes.back().y, 120);
        EXPECT_TRUE(std::is_sorted(homes.begin(), homes.end(), [](Pixel a, Pixel b) { return a.y < b.y; }));
        if (homes.back().y < 110 && up > 4) {
            ADD_FAILURE() << "squeezed more than needed: " << up;
        }
    }
    PileLayout waste = FannedRight({0, 0}, 13, 100);
    waste.apart = 3;
    EXPECT_EQ(lay(waste, 0, 5), (std::vector<Pixel>{{0, 0}, {0, 0}, {0, 0}, {13, 0}, {26, 0}}));
    EXPECT_TRUE(lay(waste, 0, 0).empty());
    waste.roomX = -5;
    waste.cardsAStep = 0;
    waste.apart = -1;
    EXPECT_EQ(lay(waste, 0, 3).back(), (Pixel{0, 0}));
}

TEST(TablePlane, DrawsACardAtRestOnItsPixelsWhereverItLies)
{
    for (const auto& [width, height] : {std::pair{480, 361}, std::pair{801, 600}, std::pair{1920, 1080}}) {
        const TestHost host(width, height);
        CCardTable table;
        table.Init(1, 1, 1, 1);
        const TablePlane plane(width, height);
        plane.Apply(table);
        for (const CardSize size : {CardSize{71, 96}, CardSize{100, 141}, CardSize{33, 47}}) {
            CPolygon card;
            const double x = size.width / 2.0;
            const double y = size.height / 2.0;
            card.Set3D(-x, y, 0.0, x, y, 0.0, x, -y, 0.0, -x, -y, 0.0);
            for (int left = 0; left + size.width <= width; left += 37) {
                for (const double z : {0.0, plane.Foremost()}) {
                    const Pixel topLeft{left, left * 7 % (height - size.height)};
                    const Placement rest = plane.SeenAt(plane.Resting(topLeft, size, Facing::Down), z);
                    EXPECT_EQ(plane.TopLeft(rest, size), topLeft);
                    long screenX = 0;
                    long screenY = 0;
                    table.ProjectPoint2Screen(rest.x - x * rest.scale, rest.y + y * rest.scale, rest.z, screenX,
                                              screenY);
                    ASSERT_EQ((Pixel{static_cast<int>(screenX), static_cast<int>(screenY)}),
                              (Pixel{2 * topLeft.x, 2 * topLeft.y}));
                    table.ProjectPoint2Screen(rest.x + x * rest.scale, rest.y - y * rest.scale, rest.z, screenX,
                                              screenY);
                    ASSERT_EQ((Pixel{static_cast<int>(screenX), static_cast<int>(screenY)}),
                              (Pixel{2 * (topLeft.x + size.width), 2 * (topLeft.y + size.height)}));
                }
            }
        }
    }
}
