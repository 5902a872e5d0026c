// SPDX-License-Identifier: MIT
// What the contestants may rely on in every scene, and the geometry they share.
#include "bench/contest/card_picture.h"
#include "bench/contest/projective_map.h"
#include "bench/contest/scenes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

using namespace contest;

bool IsWhole(double value)
{
    return value == std::floor(value);
}

double Cross(const Point& before, const Point& corner, const Point& after)
{
    return (corner.x - before.x) * (after.y - corner.y) - (corner.y - before.y) * (after.x - corner.x);
}

void ExpectCardOf(const Scene& scene, const Quad& quad)
{
    for (std::size_t i = 0; i < quad.size(); ++i) {
        EXPECT_TRUE(IsWhole(quad[i].x * 2.0) && IsWhole(quad[i].y * 2.0));
        EXPECT_GT(Cross(quad[i], quad[(i + 1) % 4], quad[(i + 2) % 4]), 0.0); // convex and clockwise
        if (scene.kind == Kind::Blit) {
            EXPECT_TRUE(IsWhole(quad[i].x) && IsWhole(quad[i].y));
        }
    }
    EXPECT_TRUE(scene.kind == Kind::Tilted || IsParallelogram(quad));
    if (scene.kind == Kind::Blit || scene.kind == Kind::Upright) {
        EXPECT_EQ(quad[2].x - quad[0].x, scene.cardWidth);
        EXPECT_EQ(quad[2].y - quad[0].y, scene.cardHeight);
        EXPECT_EQ(AreaInside(quad, scene.width, scene.height), scene.cardWidth * scene.cardHeight);
    }
}

TEST(ContestScenes, CardsLieAsTheirKindSays)
{
    for (const Scene& scene : Scenes()) {
        SCOPED_TRACE(scene.name);
        int halves = 0;
        int tilted = 0;
        for (const Frame& frame : MakeFrames(scene)) {
            ASSERT_EQ(frame.size(), 52U);
            for (const Quad& quad : frame) {
                ExpectCardOf(scene, quad);
                halves += IsWhole(quad[0].x) ? 0 : 1;
                tilted += IsParallelogram(quad) ? 0 : 1;
            }
        }
        EXPECT_EQ(halves == 0, scene.kind == Kind::Blit);
        EXPECT_EQ(tilted > 5000, scene.kind == Kind::Tilted); // of 5200
    }
}

TEST(ContestScenes, TheNumberOfPicturesDoesNotMoveACard)
{
    const Frame one = MakeFrames(FindScene("tilted240"))[kComparedFrame];
    const Frame many = MakeFrames(FindScene("tilted240-52"))[kComparedFrame];
    for (std::size_t card = 0; card < one.size(); ++card) {
        for (std::size_t corner = 0; corner < 4; ++corner) {
            EXPECT_EQ(one[card][corner].x, many[card][corner].x);
            EXPECT_EQ(one[card][corner].y, many[card][corner].y);
        }
    }
    EXPECT_THROW(FindScene("tilted"), std::invalid_argument);
}

TEST(ContestGeometry, TheMapTakesCornersToCornersAndBack)
{
    const Quad quad{{{3.0, 2.5}, {40.0, 6.0}, {35.5, 61.0}, {-4.0, 44.0}}};
    const ProjectiveMap map = ProjectiveMap::OfPicture(71.0, 96.0, quad);
    const ProjectiveMap back = map.Inverse();
    const Quad picture{{{0.0, 0.0}, {71.0, 0.0}, {71.0, 96.0}, {0.0, 96.0}}};
    for (std::size_t corner = 0; corner < 4; ++corner) {
        EXPECT_NEAR(map(picture[corner]).x, quad[corner].x, 1e-9);
        EXPECT_NEAR(map(picture[corner]).y, quad[corner].y, 1e-9);
        EXPECT_NEAR(back(quad[corner]).x, picture[corner].x, 1e-9);
        EXPECT_NEAR(back(quad[corner]).y, picture[corner].y, 1e-9);
        EXPECT_GT(back.Row(2, quad[corner].x, quad[corner].y), 0.0);
    }
}

TEST(ContestGeometry, OnlyThePartInTheTargetCounts)
{
    const Quad diamond{{{10.0, 0.0}, {20.0, 10.0}, {10.0, 20.0}, {0.0, 10.0}}};
    EXPECT_DOUBLE_EQ(AreaInside(diamond, 20, 20), 200.0);
    EXPECT_DOUBLE_EQ(AreaInside(diamond, 10, 20), 100.0);
    EXPECT_DOUBLE_EQ(AreaInside(diamond, 10, 10), 50.0);
    EXPECT_DOUBLE_EQ(AreaInside(diamond, 2, 2), 0.0);
}

TEST(ContestCard, HasSeeThroughCornersAndAnOpaqueMiddle)
{
    const Picture card = DrawCard(71, 96);
    const auto alpha = [&](int x, int y) { return card.premultiplied[static_cast<std::size_t>(y * 71 + x)] >> 24; };
    EXPECT_EQ(alpha(0, 0), 0U);
    EXPECT_EQ(alpha(70, 95), 0U);
    EXPECT_EQ(alpha(35, 0), 255U);
    EXPECT_EQ(alpha(35, 48), 255U);
    int soft = 0;
    for (const std::uint32_t pixel : card.premultiplied) {
        soft += pixel >> 24 != 0U && pixel >> 24 != 255U ? 1 : 0;
        for (const int shift : {0, 8, 16}) {
            EXPECT_LE((pixel >> shift) & 255U, pixel >> 24);
        }
    }
    EXPECT_GT(soft, 8);
}

} // namespace
