// SPDX-License-Identifier: MIT
// The truth and the distance to it, in cases that can be worked out by hand.
#include "bench/contest/picture_error.h"
#include "bench/contest/truth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

using namespace contest;

constexpr int kSize = 16;
constexpr int kSamples = 16;
constexpr std::uint32_t kWhite = 0xFFFFFFFFU;
constexpr std::uint32_t kBlack = 0xFF000000U;

Picture Checkerboard(int size, std::uint32_t even, std::uint32_t odd)
{
    Picture picture{size, size, {}, {}};
    for (int i = 0; i < size * size; ++i) {
        picture.premultiplied.push_back((i / size + i % size) % 2 == 0 ? even : odd);
    }
    return picture;
}

Quad Upright(double left, double top, double side)
{
    return {{{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}}};
}

std::size_t At(int x, int y)
{
    return static_cast<std::size_t>(y) * kSize + static_cast<std::size_t>(x);
}

void ExpectColour(const TrueColour& actual, float red, float green, float blue)
{
    EXPECT_NEAR(actual[0], red, 0.01F);
    EXPECT_NEAR(actual[1], green, 0.01F);
    EXPECT_NEAR(actual[2], blue, 0.01F);
}

Truth Render(const Frame& frame, const Picture& picture)
{
    return RenderTruth(kSize, kSize, frame, picture, kSamples);
}

TEST(Truth, PixelsCoveredInPartShowTheTableThroughTheRest)
{
    const Truth truth = Render({Upright(4.5, 4.0, 4.0)}, Checkerboard(4, kWhite, kWhite));
    for (const auto* colours : {&truth.area, &truth.bilinear}) {
        ExpectColour((*colours)[At(3, 5)], 0.0F, 127.0F, 0.0F);
        ExpectColour((*colours)[At(4, 5)], 127.5F, 191.0F, 127.5F); // half of it
        ExpectColour((*colours)[At(5, 5)], 255.0F, 255.0F, 255.0F);
    }
    EXPECT_EQ(truth.places[At(1, 5)], Place::Outside);
    EXPECT_EQ(truth.places[At(3, 5)], Place::Edge); // beside one
    EXPECT_EQ(truth.places[At(4, 5)], Place::Edge);
    EXPECT_EQ(truth.places[At(5, 5)], Place::Inside);
}

TEST(Truth, ShrunkPicturesAreMeansByAreaAndSinglePointsByBilinearSampling)
{
    // three texels to a pixel, five of nine of the colour in their middle: the middle texel of pixel (4, 4) is white
    const Truth truth = Render({Upright(4.0, 4.0, 2.0)}, Checkerboard(6, kWhite, kBlack));
    // 16 points do not divide by 3: the outer texels have 5 points, the middle one 6
    const float white = 255.0F * (5 * 5 * 4 + 6 * 6) / (16.0F * 16.0F);
    ExpectColour(truth.area[At(4, 4)], white, white, white);
    ExpectColour(truth.area[At(5, 4)], 255.0F - white, 255.0F - white, 255.0F - white);
    ExpectColour(truth.bilinear[At(4, 4)], 255.0F, 255.0F, 255.0F);
    ExpectColour(truth.bilinear[At(5, 4)], 0.0F, 0.0F, 0.0F);
}

TEST(Truth, BilinearSamplesMixNeighbouringTexels)
{
    // half a pixel to the right: between a white and a black texel, whichever row
    const Truth truth = Render({Upright(4.5, 4.0, 4.0)}, Checkerboard(4, kWhite, kBlack));
    ExpectColour(truth.bilinear[At(6, 6)], 127.5F, 127.5F, 127.5F);
    ExpectColour(truth.area[At(6, 6)], 127.5F, 127.5F, 127.5F);
}

TEST(Truth, LaterCardsLieOverEarlierOnesAndHideTheirEdges)
{
    constexpr std::uint32_t kHalfRed = 0x80800000U;
    const Truth seeThrough =
        Render({Upright(4.0, 4.0, 8.0), Upright(4.0, 4.0, 8.0)}, Checkerboard(8, kHalfRed, kHalfRed));
    const float through = 1.0F - 128.0F / 255.0F;
    ExpectColour(seeThrough.area[At(8, 8)], 128.0F + 128.0F * through, 127.0F * through * through, 0.0F);

    const Truth hidden = Render({Upright(5.5, 5.5, 4.0), Upright(2.0, 2.0, 12.0)}, Checkerboard(4, kBlack, kBlack));
    EXPECT_EQ(hidden.places[At(5, 7)], Place::Inside);
}

TEST(Truth, PerspectiveHalvesThePictureWhereTheDiagonalsMeet)
{
    // Twice as wide below as above: the diagonals, and so the picture's middle row, meet a third of the way down.
    Picture halves{2, 2, {kWhite, kWhite, kBlack, kBlack}, {}};
    const Truth truth = Render({Quad{{{4.0, 2.0}, {8.0, 2.0}, {10.0, 14.0}, {2.0, 14.0}}}}, halves);
    ExpectColour(truth.area[At(6, 5)], 255.0F, 255.0F, 255.0F);
    ExpectColour(truth.area[At(6, 6)], 0.0F, 0.0F, 0.0F);
}

TEST(PictureError, IsTheRatioInDecibelsOverWhatCardsTouch)
{
    const Truth truth = Render({Upright(4.0, 4.0, 8.0)}, Checkerboard(8, kBlack, kBlack));
    Pixmap picture{kSize, kSize, {}};
    for (const TrueColour& colour : truth.area) {
        for (const float channel : colour) {
            picture.bytes.push_back(static_cast<std::uint8_t>(channel));
        }
    }
    EXPECT_EQ(Compare(picture, truth).area, kPerfect);

    Pixmap farAway = picture;
    farAway.bytes[0] = 255; // no card near
    EXPECT_EQ(Compare(farAway, truth).conformance, kPerfect);

    Pixmap oneLevel = picture;
    for (std::uint8_t& channel : oneLevel.bytes) {
        ++channel;
    }
    const double decibels = 20.0 * std::log10(255.0);
    EXPECT_NEAR(Compare(oneLevel, truth).area, decibels, 1e-9);
    EXPECT_NEAR(Compare(oneLevel, truth).edges, decibels, 1e-9);
    EXPECT_EQ(Compare(oneLevel, truth).worst, 1.0);

    Pixmap inside = picture;
    inside.bytes[At(8, 8) * 3] = 51; // a fifth of the peak, in one of 3 x 10 x 10 channels: 8 x 8 and their border
    EXPECT_NEAR(Compare(inside, truth).conformance, 20.0 * std::log10(5.0) + 10.0 * std::log10(300.0), 1e-9);
    EXPECT_EQ(Compare(inside, truth).edges, kPerfect);

    picture.width = kSize / 2;
    EXPECT_THROW(Compare(picture, truth), std::invalid_argument);
}

} // namespace
