// SPDX-License-Identifier: MIT
// What is drawn at all and where: winding, rectangles, points, states, and corners that no card has.
#include "tests/orvane/raster/quad_shot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>

namespace
{

constexpr long kMost = std::numeric_limits<std::int32_t>::max();
constexpr long kLeast = std::numeric_limits<std::int32_t>::min();

using Edges = std::array<long, 4>;

Edges EdgesOf(const CRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

HalfPixels Reversed(const HalfPixels& c)
{
    return {c[0], c[1], c[6], c[7], c[4], c[5], c[2], c[3]};
}

struct Rule {
    const char* name;
    HalfPixels corners;
    std::optional<Edges> drawn; ///< empty: nothing
    bool farSide = false;
};

TEST(QuadRules, ClipAndLastDrawnRectangleNameTheCoveredPixels)
{
    const std::array rules{
        Rule{"whole pixels", Upright(20, 10, 40, 30), Edges{10, 5, 30, 20}},
        Rule{"half pixels", Upright(21, 11, 40, 30), Edges{10, 5, 31, 21}},
        Rule{"past the left and top", Upright(-21, -11, 40, 30), Edges{0, 0, 10, 10}},
        Rule{"past the right and bottom", Upright(81, 71, 400, 300), Edges{40, 35, 50, 40}},
        Rule{"the whole target and more",
             {kLeast, kLeast, kMost, kLeast, kMost, kMost, kLeast, kMost},
             Edges{0, 0, 50, 40}},
        Rule{"off the target", Upright(200, 10, 40, 30), std::nullopt},
        Rule{"beside a slanted edge", {-300, 60, 200, -300, 200, -290, -290, 60}, std::nullopt},
        Rule{"on edge", {20, 10, 60, 30, 60, 30, 20, 10}, std::nullopt},
        Rule{"a point", {20, 10, 20, 10, 20, 10, 20, 10}, std::nullopt},
        Rule{"far side", Reversed(Upright(20, 10, 40, 30)), std::nullopt, true},
        Rule{"far side, huge", {kLeast, kLeast, kLeast, kMost, kMost, kMost, kMost, kLeast}, std::nullopt, true},
        Rule{"a triangle", {20, 10, 60, 10, 60, 10, 20, 50}, Edges{10, 5, 30, 25}},
        Rule{"concave", {20, 10, 60, 10, 30, 20, 20, 50}, Edges{10, 5, 30, 25}},
        Rule{"folded, both lobes equal", {20, 10, 60, 50, 60, 10, 20, 50}, Edges{10, 5, 30, 25}},
    };
    PolygonRender& render = *glb->polygonRender;
    const OwnedBitmap white = MakeFilled(16, 16, kWhite);
    for (const Rule& rule : rules) {
        SCOPED_TRACE(rule.name);
        const OwnedBitmap target = MakeBitmap(50, 40);
        SetQuad(rule.corners);
        SetTexels(WholeOf(*white));
        render.SetTexture(white.get());
        CRect clip;
        clip.Set(1, 2, 3, 4);
        CRect* clipPointer = &clip;
        render.Draw(target.get(), clipPointer);
        const Edges untouched{1, 2, 3, 4};
        EXPECT_EQ(EdgesOf(clip), rule.farSide ? untouched : rule.drawn.value_or(Edges{}));
        const CRect* const last = render.GetLastDrawnRect();
        ASSERT_EQ(last != nullptr, rule.drawn.has_value());
        if (last != nullptr) {
            EXPECT_EQ(EdgesOf(*last), *rule.drawn);
        }
        const std::vector<std::uint32_t> pixels = PixelsOf(*target);
        const bool clear = std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel == 0; });
        EXPECT_EQ(clear, !rule.drawn.has_value());
        CRect* none = nullptr;
        render.Draw(target.get(), none);
        EXPECT_EQ(none, nullptr);
    }
}

TEST(QuadRules, WithoutTargetOrPictureNothingIsDrawnAndTheClipIsEmpty)
{
    const OwnedBitmap white = MakeFilled(16, 16, kWhite);
    const OwnedBitmap target = MakeBitmap(50, 40);
    const OwnedBitmap empty = MakeBitmap(0, 0);
    Bitmap* destroyed = BitmapManager::Instance().Create(16, 16);
    Bitmap* const stale = destroyed;
    BitmapManager::Instance().Destroy(destroyed);
    const std::array<std::pair<Bitmap*, Bitmap*>, 5> cases{{{nullptr, white.get()},
                                                            {empty.get(), white.get()},
                                                            {target.get(), nullptr},
                                                            {target.get(), empty.get()},
                                                            {target.get(), stale}}};
    for (const auto& [to, from] : cases) {
        const CRect clip = DrawQuad(to, from, Upright(20, 10, 40, 30), {0, 0, 16, 16});
        EXPECT_EQ(EdgesOf(clip), Edges{});
        EXPECT_EQ(glb->polygonRender->GetLastDrawnRect(), nullptr);
        EXPECT_EQ(PixelsOf(*target), std::vector<std::uint32_t>(50 * 40));
    }
}

TEST(QuadRules, ValuesStayUntilTheyAreSetAgain)
{
    PolygonRender& render = *glb->polygonRender;
    std::mt19937 random(1);
    const OwnedBitmap noise = MakeNoise(64, 64, random);
    const OwnedBitmap target = MakeBitmap(40, 40);
    const HalfPixels small{10, 11, 50, 14, 47, 55, 9, 50};
    const auto drawn = [&] {
        Fill(*target, kGreen);
        CRect* none = nullptr;
        render.Draw(target.get(), none);
        return PixelsOf(*target);
    };
    DrawQuad(target.get(), noise.get(), small, WholeOf(*noise), 0);
    const auto motion = drawn();
    EXPECT_EQ(drawn(), motion);
    render.SetRenderState(0, 1);
    render.SetRenderState(2, 5);
    render.SetRenderState(kLeast, kMost);
    render.SetRenderState(1, 0);
    EXPECT_EQ(drawn(), motion);
    render.SetRenderState(1, -3);
    const auto rest = drawn();
    EXPECT_NE(rest, motion);
    EXPECT_EQ(drawn(), rest);
    if constexpr (sizeof(long) > 4) {
        const long above = long{1} << (sizeof(long) * 8 - 8);
        render.SetRenderState(1 + above, above);
        EXPECT_EQ(drawn(), motion) << "values are taken modulo 2^32";
        render.SetVertices(small[0] + above, small[1], 0, small[2], small[3], 0, small[4], small[5] - above, 0,
                           small[6], small[7], 0);
        EXPECT_EQ(drawn(), motion);
    }
}

TEST(QuadRules, CoordinatesOutsideThePictureShowItsNearestTexels)
{
    const OwnedBitmap texture = MakeFilled(4, 4, 0xFFFF0000U);
    texture->FillRect({3, 0, 1, 4}, Rgba{0, 0, 255, 255});
    const OwnedBitmap target = MakeBitmap(10, 10);
    DrawQuad(target.get(), texture.get(), Upright(0, 0, 20, 20), {8, -30000, 30000, 30000});
    EXPECT_EQ(PixelsOf(*target), std::vector<std::uint32_t>(100, 0xFF0000FFU));
    DrawQuad(target.get(), texture.get(), Upright(0, 0, 20, 20), {-100, 2, -50, 3});
    EXPECT_EQ(PixelsOf(*target), std::vector<std::uint32_t>(100, 0xFFFF0000U));
}

TEST(QuadRules, CornersOfAnyTexelsAreSpreadBilinearly)
{
    // u grows to 256 along the top, but only to 128 along the bottom: at the middle it is 96.
    OwnedBitmap ramp = MakeBitmap(256, 1);
    for (int x = 0; x < 256; ++x)
        std::memset(ramp->Buffer() + x * 4L, x, 4);
    const OwnedBitmap target = MakeBitmap(101, 101);
    constexpr long one = 65536;
    glb->polygonRender->SetTexCoords(0, 0, 256 * one, 0, 128 * one, one, 0, one);
    glb->polygonRender->SetTexture(ramp.get());
    SetQuad(Upright(0, 0, 202, 202));
    glb->polygonRender->SetRenderState(1, 1);
    CRect* none = nullptr;
    glb->polygonRender->Draw(target.get(), none);
    EXPECT_NEAR(PixelAt(*target, 50, 50) >> 24, 96 - 0.5, 1.1);
    EXPECT_NEAR(PixelAt(*target, 75, 25) >> 24, 0.7475 * (256 - 128 * 0.2525) - 0.5, 1.1);
}

/// The winding number by the sum of the angles, or nothing for a point on an edge.
std::optional<long> WindingAt(const HalfPixels& c, double x, double y)
{
    double angle = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const double ax = static_cast<double>(c[2 * i]) - x, ay = static_cast<double>(c[2 * i + 1]) - y;
        const double bx = static_cast<double>(c[(2 * i + 2) % 8]) - x;
        const double by = static_cast<double>(c[(2 * i + 3) % 8]) - y;
        if (ax * by - ay * bx == 0 && ax * bx + ay * by <= 0)
            return std::nullopt;
        angle += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
    }
    return std::lround(angle / (2 * std::acos(-1.0)));
}

HalfPixels RandomQuad(std::mt19937& random, unsigned size)
{
    HalfPixels corners{};
    for (long& value : corners)
        value = static_cast<long>(random() % size);
    return corners;
}

TEST(QuadPoints, LieInsideByWindingAndOnEdges)
{
    std::mt19937 random(2);
    for (int round = 0; round < 3000; ++round) {
        const HalfPixels corners = RandomQuad(random, 12);
        SetQuad(corners);
        for (long y = -1; y < 13; ++y)
            for (long x = -1; x < 13; ++x) {
                const std::optional<long> winding = WindingAt(corners, static_cast<double>(x), static_cast<double>(y));
                ASSERT_EQ(glb->polygonRender->IsPointInside(x, y) != 0, winding != 0) << x << ' ' << y;
            }
    }
}

TEST(QuadPoints, AreExactAtTheEndsOfTheRange)
{
    PolygonRender& render = *glb->polygonRender;
    SetQuad({kLeast, kLeast, kMost, kLeast, kMost, kMost, kLeast, kMost});
    EXPECT_NE(render.IsPointInside(kLeast, kLeast), 0);
    EXPECT_NE(render.IsPointInside(kMost, kMost), 0);
    EXPECT_EQ(EdgesOf(*render.GetBoundingBox()), (Edges{kLeast, kLeast, kMost, kMost}));
    // One unit beside a diagonal of the whole range.
    SetQuad({kLeast, kLeast, kMost, kMost, kMost, kMost, kLeast, kMost});
    EXPECT_NE(render.IsPointInside(7, 7), 0);
    EXPECT_NE(render.IsPointInside(7, 8), 0);
    EXPECT_EQ(render.IsPointInside(8, 7), 0);
    SetQuad({9, -3, 4, 8, -2, 5, 1, 1});
    EXPECT_EQ(EdgesOf(*render.GetBoundingBox()), (Edges{-2, -3, 9, 8}));
}

TEST(QuadCoverage, IsTheAreaInsideTheEdges)
{
    constexpr int side = 24;
    constexpr int samples = 8;
    std::mt19937 random(4);
    const OwnedBitmap white = MakeFilled(8, 8, kWhite);
    const OwnedBitmap target = MakeBitmap(side, side);
    for (int round = 0; round < 120; ++round) {
        const HalfPixels corners = RandomQuad(random, 2 * side);
        Fill(*target, 0);
        DrawQuad(target.get(), white.get(), corners, WholeOf(*white));
        if (glb->polygonRender->GetLastDrawnRect() == nullptr)
            continue;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                double sum = 0; // parts of both lobes of a folded one in a pixel count against each other
                for (int n = 0; n < samples * samples; ++n) {
                    const double px = 2 * (x + (n % samples + 0.501) / samples);
                    const double py = 2 * (y + (n / samples + 0.5003) / samples);
                    sum += static_cast<double>(WindingAt(corners, px, py).value_or(0));
                }
                const double wanted = std::abs(sum) / (samples * samples);
                ASSERT_NEAR((PixelAt(*target, x, y) >> 24) / 255.0, wanted, 0.13) << x << ' ' << y;
            }
    }
}

TEST(QuadFuzz, AnyCornersTouchOnlyTheReportedRectangle)
{
    std::mt19937 random(6);
    const std::array<long, 9> special{kLeast, kLeast + 1, -65536, -1, 0, 1, 65535, kMost - 1, kMost};
    const auto value = [&](long range) -> long {
        switch (random() % 8) {
        case 0:
            return special[random() % special.size()];
        case 1:
            return static_cast<std::int32_t>(random());
        default:
            return static_cast<long>(random() % static_cast<unsigned long>(2 * range)) - range / 2;
        }
    };
    const OwnedBitmap noise = MakeFilled(31, 17, 0xFF3080C0U);
    int drawn = 0;
    for (int round = 0; round < 6000; ++round) {
        const int width = 1 + static_cast<int>(random() % 40), height = 1 + static_cast<int>(random() % 40);
        const OwnedBitmap target = MakeFilled(width, height, kGreen);
        std::array<long, 8> c{};
        std::array<long, 8> t{};
        std::generate(c.begin(), c.end(), [&] { return value(60); });
        std::generate(t.begin(), t.end(), [&] { return value(31 * 65536); });
        PolygonRender& render = *glb->polygonRender;
        render.SetTexture(noise.get());
        render.SetTexCoords(t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7]);
        render.SetVertices(c[0], c[1], 0, c[2], c[3], 0, c[4], c[5], 0, c[6], c[7], 0);
        render.SetRenderState(1, static_cast<long>(random() % 2));
        CRect clip;
        CRect* clipPointer = &clip;
        render.Draw(target.get(), clipPointer);
        // One colour everywhere: each pixel lies between the ground and it, however the picture is bent.
        Edges touched{width, height, 0, 0};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const std::uint32_t pixel = PixelAt(*target, x, y);
                ASSERT_EQ(pixel >> 24, 255U);
                ASSERT_LE(pixel >> 16 & 255U, 0x30U);
                ASSERT_NEAR(pixel & 255U, (pixel >> 16 & 255U) * 4, 4);
                if (pixel != kGreen)
                    touched = {std::min<long>(touched[0], x), std::min<long>(touched[1], y),
                               std::max<long>(touched[2], x + 1), std::max<long>(touched[3], y + 1)};
            }
        const CRect* const last = render.GetLastDrawnRect();
        EXPECT_EQ(EdgesOf(clip), last != nullptr ? EdgesOf(*last) : Edges{});
        if (touched[2] == 0)
            continue;
        ++drawn;
        ASSERT_NE(last, nullptr);
        const Edges told = EdgesOf(*last);
        EXPECT_TRUE(told[0] >= 0 && told[1] >= 0 && told[2] <= width && told[3] <= height);
        EXPECT_TRUE(told[0] <= touched[0] && told[1] <= touched[1] && told[2] >= touched[2] && told[3] >= touched[3]);
    }
    EXPECT_GT(drawn, 1000);
}

} // namespace
