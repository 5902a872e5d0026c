// SPDX-License-Identifier: MIT
// Pixels against a brute-force picture: 16 x 16 samples a pixel of the projective map, nothing clever.
#include "tests/orvane/raster/quad_shot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <random>
#include <string>
#include <utility>

namespace
{

constexpr int kSamples = 16;

/// A card as people draw it: a line around it, hatching and a disc, and round corners with nothing outside.
OwnedBitmap MakeCard(int width, int height)
{
    OwnedBitmap card = MakeBitmap(width, height);
    std::uint8_t* bytes = card->Buffer();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, bytes += 4) {
            const double fromMiddleX = std::abs(x + 0.5 - width / 2.0);
            const double fromMiddleY = std::abs(y + 0.5 - height / 2.0);
            const double radius = width / 10.0;
            const double intoCorner = std::hypot(std::max(fromMiddleX - width / 2.0 + radius, 0.0),
                                                 std::max(fromMiddleY - height / 2.0 + radius, 0.0));
            const double alpha = std::clamp(radius - intoCorner + 0.5, 0.0, 1.0);
            std::array<double, 3> colour{250, 244, 236};
            if (std::min(width / 2.0 - fromMiddleX, height / 2.0 - fromMiddleY) < 1)
                colour = {40, 30, 30};
            else if (std::hypot(fromMiddleX, fromMiddleY) < width / 5.0)
                colour = {30, 20, 200};
            else if (fromMiddleX < width / 3.0 && fromMiddleY < height / 3.0 && (x + 2 * y) % 9 < 2)
                colour = {160, 60, 20};
            for (std::size_t i = 0; i < 3; ++i)
                bytes[i] = static_cast<std::uint8_t>(std::lround(colour[i] * alpha));
            bytes[3] = static_cast<std::uint8_t>(std::lround(255 * alpha));
        }
    }
    return card;
}

using Matrix = std::array<double, 9>;

/// The map from target pixels to the unit square, by the usual square-to-quad formulas and the adjugate.
Matrix InverseProjection(const HalfPixels& c)
{
    std::array<double, 8> p{};
    std::transform(c.begin(), c.end(), p.begin(), [](long half) { return static_cast<double>(half) / 2; });
    const double sumX = p[0] - p[2] + p[4] - p[6], sumY = p[1] - p[3] + p[5] - p[7];
    const double x1 = p[2] - p[4], y1 = p[3] - p[5], x2 = p[6] - p[4], y2 = p[7] - p[5];
    const double g = (sumX * y2 - x2 * sumY) / (x1 * y2 - x2 * y1);
    const double h = (x1 * sumY - sumX * y1) / (x1 * y2 - x2 * y1);
    const Matrix m{p[2] - p[0] + g * p[2],
                   p[6] - p[0] + h * p[6],
                   p[0],
                   p[3] - p[1] + g * p[3],
                   p[7] - p[1] + h * p[7],
                   p[1],
                   g,
                   h,
                   1};
    return {m[4] * m[8] - m[5] * m[7], m[2] * m[7] - m[1] * m[8], m[1] * m[5] - m[2] * m[4],
            m[5] * m[6] - m[3] * m[8], m[0] * m[8] - m[2] * m[6], m[2] * m[3] - m[0] * m[5],
            m[3] * m[7] - m[4] * m[6], m[1] * m[6] - m[0] * m[7], m[0] * m[4] - m[1] * m[3]};
}

std::pair<double, double> Apply(const Matrix& m, double x, double y)
{
    const double w = m[6] * x + m[7] * y + m[8];
    return {(m[0] * x + m[1] * y + m[2]) / w, (m[3] * x + m[4] * y + m[5]) / w};
}

using Colour = std::array<double, 4>;

/// The texel, held inside the box of texels.
Colour TexelAt(const Bitmap& texture, const TexelBox& box, double x, double y)
{
    const auto held = [](double value, double a, double b) {
        return static_cast<int>(std::clamp(std::floor(value), std::min(a, b), std::max(a, b) - 1));
    };
    const std::uint32_t pixel = PixelAt(texture, held(x, box.left, box.right), held(y, box.top, box.bottom));
    Colour colour{};
    for (unsigned i = 0; i < 4; ++i)
        colour[i] = pixel >> (8 * i) & 255U;
    return colour;
}

Colour BilinearAt(const Bitmap& texture, const TexelBox& box, double u, double v)
{
    const double x = std::floor(u - 0.5), y = std::floor(v - 0.5), a = u - 0.5 - x, b = v - 0.5 - y;
    Colour sum{};
    for (int j = 0; j < 2; ++j)
        for (int i = 0; i < 2; ++i) {
            const Colour texel = TexelAt(texture, box, x + i, y + j);
            for (std::size_t k = 0; k < 4; ++k)
                sum[k] += texel[k] * (i == 0 ? 1 - a : a) * (j == 0 ? 1 - b : b);
        }
    return sum;
}

enum class Truth {
    Point, ///< one bilinear sample at the centre of the pixel, times its coverage
    Area   ///< the mean of the texels, little squares, that lie in the pixel
};

struct Difference {
    double inside = 0;
    double edge = 0;
    double outside = 0; ///< the largest, 0 to 255
};

/// Compares a picture over the ground with the truth; decibels.
Difference Compare(const Bitmap& drawn, std::uint32_t ground, const Bitmap& texture, const HalfPixels& corners,
                   const TexelBox& box, Truth truth)
{
    const Matrix map = InverseProjection(corners);
    std::array<double, 2> squares{};
    std::array<double, 2> counts{};
    Difference result;
    for (int y = 0; y < drawn.Height(); ++y)
        for (int x = 0; x < drawn.Width(); ++x) {
            Colour colour{};
            int hits = 0;
            for (int n = 0; n < kSamples * kSamples; ++n) {
                const auto [s, t] =
                    Apply(map, x + (n % kSamples + 0.5) / kSamples, y + (n / kSamples + 0.5) / kSamples);
                if (!(s >= 0 && s < 1 && t >= 0 && t < 1))
                    continue;
                ++hits;
                const Colour texel =
                    TexelAt(texture, box, box.left + s * (box.right - box.left), box.top + t * (box.bottom - box.top));
                for (std::size_t k = 0; k < 4; ++k)
                    colour[k] += texel[k] / (kSamples * kSamples);
            }
            if (truth == Truth::Point) {
                const auto [s, t] = Apply(map, x + 0.5, y + 0.5);
                colour = BilinearAt(texture, box, box.left + std::clamp(s, 0.0, 1.0) * (box.right - box.left),
                                    box.top + std::clamp(t, 0.0, 1.0) * (box.bottom - box.top));
                for (double& channel : colour)
                    channel *= static_cast<double>(hits) / (kSamples * kSamples);
            }
            const std::uint32_t pixel = PixelAt(drawn, x, y);
            const std::size_t kind = hits == kSamples * kSamples ? 0 : 1;
            for (unsigned k = 0; k < 3; ++k) {
                const double wanted = colour[k] + (ground >> (8 * k) & 255U) * (1 - colour[3] / 255);
                const double error = wanted - (pixel >> (8 * k) & 255U);
                if (hits > 0)
                    squares[kind] += error * error;
                else
                    result.outside = std::max(result.outside, std::abs(error));
            }
            counts[kind] += hits > 0 ? 3 : 0;
        }
    const auto decibels = [&](std::size_t kind) {
        return 10 * std::log10(255 * 255 * std::max(counts[kind], 1.0) / std::max(squares[kind], 1e-3));
    };
    result.inside = decibels(0);
    result.edge = decibels(1);
    return result;
}

constexpr int kCardWidth = 71;
constexpr int kCardHeight = 96;
constexpr TexelBox kWhole{0, 0, kCardWidth, kCardHeight};
constexpr TexelBox kPart{10, 20, 50, 70};
const HalfPixels kRotated{100, 41, 230, 101, 150, 275, 20, 215};
const HalfPixels kTilted{80, 31, 215, 52, 236, 241, 50, 206};
const HalfPixels kTiltedSmall{80, 31, 160, 62, 137, 121, 50, 106};

struct Shot {
    const char* name;
    HalfPixels corners;
    TexelBox box;
    long state;
    Truth truth;
    double inside; ///< at least, decibels
    double edge;

    friend void PrintTo(const Shot& shot, std::ostream* out) { *out << shot.name; }
};

class Picture : public testing::TestWithParam<Shot>
{
};

TEST_P(Picture, IsCloseToTheTruth)
{
    const Shot& shot = GetParam();
    const OwnedBitmap card = MakeCard(kCardWidth, kCardHeight);
    const OwnedBitmap target = MakeFilled(140, 150, kGreen);
    DrawQuad(target.get(), card.get(), shot.corners, shot.box, shot.state);
    const Difference difference = Compare(*target, kGreen, *card, shot.corners, shot.box, shot.truth);
    EXPECT_GE(difference.inside, shot.inside);
    EXPECT_GE(difference.edge, shot.edge);
    EXPECT_LE(difference.outside, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Shots, Picture,
    testing::Values(Shot{"WholePixels", Upright(40, 30, 142, 192), kWhole, 0, Truth::Area, 65, 60},
                    Shot{"HalfPixels", Upright(41, 31, 142, 192), kWhole, 0, Truth::Area, 58, 56},
                    Shot{"HalfPixelsAtRest", Upright(41, 31, 142, 192), kWhole, 7, Truth::Area, 58, 56},
                    Shot{"Stretched", Upright(21, 9, 200, 255), kWhole, 0, Truth::Point, 58, 56},
                    Shot{"Part", Upright(21, 10, 111, 172), kPart, 0, Truth::Point, 58, 56},
                    Shot{"MirroredBothWays", Upright(40, 30, 142, 192), {71, 96, 0, 0}, 0, Truth::Area, 58, 56},
                    Shot{"MirroredAcross", Upright(41, 30, 142, 192), {71, 0, 0, 96}, 0, Truth::Area, 58, 56},
                    Shot{"Rotated", kRotated, kWhole, 0, Truth::Point, 58, 52},
                    Shot{"RotatedPartMirrored", kRotated, {10, 70, 50, 20}, 0, Truth::Point, 58, 52},
                    Shot{"Tilted", kTilted, kWhole, 0, Truth::Point, 58, 52},
                    Shot{"TiltedAtRest", kTilted, kWhole, 1, Truth::Area, 33, 38},
                    Shot{"TiltedSmall", kTiltedSmall, kWhole, 0, Truth::Area, 33, 27},
                    Shot{"TiltedSmallAtRest", kTiltedSmall, kWhole, 1, Truth::Area, 40, 37},
                    Shot{"Third", Upright(41, 31, 47, 64), kWhole, 0, Truth::Area, 32, 30},
                    Shot{"ThirdAtRest", Upright(41, 31, 47, 64), kWhole, 1, Truth::Area, 39, 30},
                    Shot{"RotatedThird", {100, 41, 142, 61, 115, 118, 73, 98}, kWhole, 0, Truth::Area, 31, 28},
                    Shot{"RotatedThirdAtRest", {100, 41, 142, 61, 115, 118, 73, 98}, kWhole, -1, Truth::Area, 40, 38},
                    Shot{"TenthAtRest", Upright(41, 31, 15, 19), kWhole, 1, Truth::Area, 40, 34},
                    Shot{"ThirdOfPart", Upright(41, 31, 27, 34), kPart, 0, Truth::Area, 33, 30}),
    [](const testing::TestParamInfo<Shot>& shot) { return std::string(shot.param.name); });

TEST(PictureExactness, AnUprightPictureAtWholePixelsIsBlendedUnfiltered)
{
    std::mt19937 random(5);
    const OwnedBitmap noise = MakeNoise(33, 21, random);
    for (const long state : {0L, 1L})
        for (const auto& [left, top] : {std::pair{4L, 6L}, {-20L, 2L}, {60L, -14L}}) {
            const OwnedBitmap target = MakeNoise(40, 25, random);
            const std::vector<std::uint32_t> before = PixelsOf(*target);
            DrawQuad(target.get(), noise.get(), Upright(left, top, 66, 42), WholeOf(*noise), state);
            for (int y = 0; y < 25; ++y)
                for (int x = 0; x < 40; ++x) {
                    const long u = x - left / 2, v = y - top / 2;
                    const bool covered = u >= 0 && u < 33 && v >= 0 && v < 21;
                    const std::uint32_t source =
                        covered ? PixelAt(*noise, static_cast<int>(u), static_cast<int>(v)) : 0;
                    const std::uint32_t ground = before[static_cast<std::size_t>(y * 40 + x)];
                    for (unsigned shift = 0; shift < 32; shift += 8) {
                        const double kept = (ground >> shift & 255U) * (255 - (source >> 24)) / 255.0;
                        const double sum = std::min((source >> shift & 255U) + std::floor(kept + 0.5), 255.0);
                        ASSERT_EQ(PixelAt(*target, x, y) >> shift & 255U, sum) << x << ' ' << y;
                    }
                }
        }
}

TEST(PictureExactness, OnePictureKeepsItsColourAtRoundCorners)
{
    // White times any alpha over green stays on the line between both; a fringe would leave it.
    const OwnedBitmap disc = MakeBitmap(41, 41);
    for (int y = 0; y < 41; ++y)
        for (int x = 0; x < 41; ++x) {
            const double alpha = std::clamp(20.5 - std::hypot(x - 20, y - 20), 0.0, 1.0);
            std::memset(disc->Buffer() + (y * 41 + x) * 4, static_cast<int>(std::lround(255 * alpha)), 4);
        }
    for (const HalfPixels& corners : {kRotated, kTilted, kTiltedSmall, Upright(41, 31, 25, 27)})
        for (const long state : {0L, 1L}) {
            const OwnedBitmap target = MakeFilled(140, 150, kGreen);
            DrawQuad(target.get(), disc.get(), corners, WholeOf(*disc), state);
            for (const std::uint32_t pixel : PixelsOf(*target)) {
                const int blue = pixel & 255U, green = pixel >> 8 & 255U, red = pixel >> 16 & 255U;
                ASSERT_EQ(red, blue);
                ASSERT_NEAR(green, 127 + red * 128 / 255.0, 1.1);
                ASSERT_EQ(pixel >> 24, 255U);
            }
        }
}

TEST(PictureExactness, NeighboursShareTheirEdgeWithoutGapOrOverlap)
{
    std::mt19937 random(9);
    const OwnedBitmap white = MakeFilled(8, 8, kWhite);
    const OwnedBitmap first = MakeBitmap(60, 60);
    const OwnedBitmap second = MakeBitmap(60, 60);
    const auto place = [&] { return static_cast<long>(random() % 81) + 20; };
    for (int round = 0; round < 100; ++round) {
        const long top = place(), bottom = place();
        Fill(*first, 0);
        Fill(*second, 0);
        DrawQuad(first.get(), white.get(), {-5, -9, top, -9, bottom, 150, -5, 150}, WholeOf(*white));
        DrawQuad(second.get(), white.get(), {top, -9, 300, -9, 200, 150, bottom, 150}, WholeOf(*white));
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 60; ++x)
                ASSERT_NEAR((PixelAt(*first, x, y) >> 24) + (PixelAt(*second, x, y) >> 24), 255, 1) << x << ' ' << y;
    }
}

TEST(PictureExactness, ColoursAboveTheirAlphaSaturate)
{
    const OwnedBitmap glow = MakeFilled(6, 6, 0x40FF8000U);
    const OwnedBitmap target = MakeFilled(10, 10, 0xFFC0C0C0U);
    DrawQuad(target.get(), glow.get(), Upright(4, 4, 12, 12), WholeOf(*glow));
    EXPECT_EQ(PixelAt(*target, 4, 4), 0xFFFFFF90U); // 192 * (255 - 64) / 255 = 144 remain of the ground
    EXPECT_EQ(PixelAt(*target, 1, 1), 0xFFC0C0C0U);
}

TEST(FilteredPictures, ForgetWhatWasOverwritten)
{
    for (const long state : {0L, 1L}) {
        const OwnedBitmap texture = MakeFilled(64, 64, 0xFFFF0000U);
        const OwnedBitmap target = MakeFilled(12, 12, kGreen);
        const auto middle = [&] {
            DrawQuad(target.get(), texture.get(), Upright(3, 3, 17, 17), WholeOf(*texture), state);
            return PixelAt(*target, 6, 6);
        };
        EXPECT_EQ(middle(), 0xFFFF0000U);
        std::uint8_t* const kept = texture->Buffer();
        EXPECT_EQ(middle(), 0xFFFF0000U);
        std::memset(kept, 255, 64 * 64 * 4);
        texture->Changed();
        EXPECT_EQ(middle(), kWhite);
        texture->FillRect({0, 0, 64, 64}, Rgba{0, 0, 255, 255});
        EXPECT_EQ(middle(), 0xFF0000FFU);
        texture->Realloc(32, 32);
        texture->FillRect({0, 0, 32, 32}, Rgba{0, 255, 0, 255});
        EXPECT_EQ(middle(), 0xFF00FF00U);
    }
}

TEST(FilteredPictures, ComeBackAfterTheirRoomWasUsedForOthers)
{
    std::mt19937 random(3);
    const OwnedBitmap noise = MakeNoise(1100, 1000, random);
    const OwnedBitmap target = MakeBitmap(520, 520);
    const auto picture = [&](int column) {
        Fill(*target, kGreen);
        DrawQuad(target.get(), noise.get(), Upright(3, 4, 1011, 1003), {column * 1.0, 0, column + 1000.0, 1000});
        return PixelsOf(*target);
    };
    const std::vector<std::uint32_t> first = picture(0);
    for (int column = 1; column < 20; ++column)
        EXPECT_NE(picture(column), first);
    EXPECT_EQ(picture(0), first);
}

} // namespace
