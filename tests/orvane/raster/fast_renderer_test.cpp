// SPDX-License-Identifier: MIT
// The fast renderer against the reference, on random quadrilaterals. ORVANE_FUZZ_QUADS in the environment sets how
// many.
#include "orvane/raster/renderer_choice.h"
#include "tests/orvane/raster/quad_shot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>

namespace
{

using namespace orvane::raster;

/// Puts the process's choice back.
struct RendererGuard {
    RendererGuard() = default;
    RendererGuard(const RendererGuard&) = delete;
    RendererGuard& operator=(const RendererGuard&) = delete;
    ~RendererGuard()
    {
        SetRenderer(Renderer::Fast);
        if (!InstructionSets().empty())
            SetInstructionSet(InstructionSets().back());
    }
};

long FuzzQuads()
{
    const char* const wanted = std::getenv("ORVANE_FUZZ_QUADS");
    return wanted != nullptr ? std::atol(wanted) : 30000;
}

class Dice
{
public:
    explicit Dice(unsigned seed) : m_random(seed) {}
    long operator()(long least, long most) { return std::uniform_int_distribution<long>(least, most)(m_random); }
    double Real(double least, double most) { return std::uniform_real_distribution<double>(least, most)(m_random); }
    std::mt19937& Generator() { return m_random; }

private:
    std::mt19937 m_random;
};

struct Scene {
    HalfPixels corners;
    TexelBox box;
    long state;
};

/// A rectangle turned about its middle and, with depth, seen in perspective.
HalfPixels Turned(Dice& dice, double width, double height, double depth)
{
    const double angle = dice.Real(-3.2, 3.2), tilt = dice.Real(-depth, depth);
    const double x = dice.Real(-20, 140), y = dice.Real(-20, 140);
    HalfPixels corners{};
    for (std::size_t i = 0; i < 4; ++i) {
        const double px = i == 1 || i == 2 ? width : -width, py = i >= 2 ? height : -height;
        const double rx = px * std::cos(angle) - py * std::sin(angle), ry = px * std::sin(angle) + py * std::cos(angle);
        const double scale = 1 / (1 + tilt * rx / (width + height));
        corners[2 * i] = std::lround(x + rx * scale);
        corners[2 * i + 1] = std::lround(y + ry * scale);
    }
    return corners;
}

void MakeParallelogram(HalfPixels& corners)
{
    corners[4] = corners[2] + corners[6] - corners[0];
    corners[5] = corners[3] + corners[7] - corners[1];
}

/// Its right end lies in the target, where a place of 32 bits, counted from the left end, loses another bit of its
/// fraction.
HalfPixels WideBeyondTheLeft(Dice& dice)
{
    const long right = dice(0, 100), left = right - 2 * ((512L << dice(0, 2)) + dice(0, 16));
    const auto aslant = [&dice](long place) { return place + dice(-5, 5); };
    HalfPixels corners{aslant(left),  aslant(-20), aslant(right), aslant(-20),
                       aslant(right), aslant(140), aslant(left),  aslant(140)};
    if (dice(0, 1) == 0)
        MakeParallelogram(corners);
    return corners;
}

Scene RandomScene(Dice& dice, const Bitmap& texture)
{
    Scene scene{{}, WholeOf(texture), dice(0, 1)};
    if (dice(0, 3) == 0) {
        const auto cut = [&dice](int size) { return static_cast<double>(dice(0, 4 * size)) / 4; };
        scene.box = {cut(texture.Width()), cut(texture.Height()), cut(texture.Width()), cut(texture.Height())};
    }
    const double width = std::abs(scene.box.right - scene.box.left),
                 height = std::abs(scene.box.bottom - scene.box.top);
    switch (dice(0, 5)) {
    case 0:
        scene.corners = Upright(dice(-60, 140), dice(-60, 140), std::lround(2 * width), std::lround(2 * height));
        break;
    case 1:
        scene.corners = Upright(dice(-60, 140), dice(-60, 140), dice(1, 160), dice(1, 160));
        break;
    case 2:
        scene.corners = Turned(dice, dice.Real(1, 80), dice.Real(1, 80), 0);
        MakeParallelogram(scene.corners); // rounding has spoilt it
        break;
    case 3:
        scene.corners = Turned(dice, dice.Real(1, 80), dice.Real(1, 80), 0.95);
        break;
    case 4:
        scene.corners = WideBeyondTheLeft(dice);
        break;
    default:
        std::generate(scene.corners.begin(), scene.corners.end(), [&dice] { return dice(-40, 160); });
    }
    return scene;
}

struct Drawing {
    std::vector<std::uint32_t> pixels;
    CRect rectangle;
};

Drawing Draw(const Scene& scene, const std::vector<std::uint32_t>& ground, Bitmap& target, Bitmap& texture)
{
    std::memcpy(target.Buffer(), ground.data(), ground.size() * 4);
    const CRect rectangle = DrawQuad(&target, &texture, scene.corners, scene.box, scene.state);
    return {PixelsOf(target), rectangle};
}

int LargestDifference(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b)
{
    int largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        for (unsigned shift = 0; shift < 32; shift += 8)
            largest = std::max(
                largest, std::abs(static_cast<int>(a[i] >> shift & 255U) - static_cast<int>(b[i] >> shift & 255U)));
    return largest;
}

std::string Described(const Scene& scene, const Bitmap& texture)
{
    std::string text = "state " + std::to_string(scene.state) + ", corners";
    for (const long corner : scene.corners)
        text += ' ' + std::to_string(corner);
    for (const double edge : {scene.box.left, scene.box.top, scene.box.right, scene.box.bottom})
        text += ", " + std::to_string(edge);
    return text + " of " + std::to_string(texture.Width()) + " x " + std::to_string(texture.Height());
}

bool ChangesOutside(const Drawing& drawing, const std::vector<std::uint32_t>& ground, int width)
{
    for (std::size_t i = 0; i < ground.size(); ++i) {
        const long x = static_cast<long>(i) % width, y = static_cast<long>(i) / width;
        const CRect& r = drawing.rectangle;
        const bool inside = x >= r.left && x < r.right && y >= r.top && y < r.bottom;
        if (!inside && drawing.pixels[i] != ground[i])
            return true;
    }
    return false;
}

// Weights of 15 bits and 32-bit positions leave errors far below half a level, but a value near the middle between two
// levels may be rounded either way: by one, for the renderers and between them. The instruction sets compute the same.
TEST(FastRenderer, AgreesWithTheReferenceForEveryInstructionSet)
{
    const RendererGuard guard;
    Dice dice(7);
    OwnedBitmap texture;
    OwnedBitmap target;
    const long rounds = FuzzQuads();
    for (long round = 0; round < rounds; ++round) {
        if (round % 50 == 0) {
            // Now and then one that places of 32 bits do not reach across.
            const int width = static_cast<int>(dice(0, 19) == 0 ? dice(2030, 2200) : dice(1, 90));
            texture = MakeNoise(width, static_cast<int>(dice(1, 60)), dice.Generator());
            if (round % 100 == 0)
                Fill(*texture, static_cast<std::uint32_t>(dice(0, 1)) * 0xFF204060U);
            target = MakeNoise(static_cast<int>(dice(1, 80)), static_cast<int>(dice(1, 60)), dice.Generator());
        }
        const std::vector<std::uint32_t> ground = PixelsOf(*target);
        const Scene scene = RandomScene(dice, *texture);
        SetRenderer(Renderer::Reference);
        const Drawing reference = Draw(scene, ground, *target, *texture);
        SetRenderer(Renderer::Fast);
        Drawing first;
        for (const std::string_view name : InstructionSets()) {
            SetInstructionSet(name);
            const Drawing fast = Draw(scene, ground, *target, *texture);
            ASSERT_LE(LargestDifference(fast.pixels, reference.pixels), 1) << name << Described(scene, *texture);
            ASSERT_FALSE(ChangesOutside(fast, ground, target->Width())) << name << Described(scene, *texture);
            if (first.pixels.empty())
                first = fast;
            ASSERT_EQ(first.pixels, fast.pixels) << name << Described(scene, *texture);
        }
    }
}

TEST(FastRenderer, DrawsTheSamePictureEverywhere)
{
    const RendererGuard guard;
    Dice dice(9);
    const OwnedBitmap texture = MakeNoise(50, 40, dice.Generator());
    constexpr int width = 90, height = 80;
    for (int round = 0; round < 1500; ++round) {
        Scene scene = RandomScene(dice, *texture);
        const OwnedBitmap target = MakeFilled(width, height, kGreen);
        DrawQuad(target.get(), texture.get(), scene.corners, scene.box, scene.state);
        // A target of another row length shows a part of the same plane.
        const int left = static_cast<int>(dice(-30, 30)), top = static_cast<int>(dice(-30, 30));
        for (std::size_t i = 0; i < 8; ++i)
            scene.corners[i] += 2 * (i % 2 == 0 ? left : top);
        const OwnedBitmap other = MakeFilled(static_cast<int>(dice(1, 130)), static_cast<int>(dice(1, 120)), kGreen);
        DrawQuad(other.get(), texture.get(), scene.corners, scene.box, scene.state);
        for (int y = std::max(0, top); y < std::min(other->Height(), height + top); ++y)
            for (int x = std::max(0, left); x < std::min(other->Width(), width + left); ++x)
                ASSERT_EQ(PixelAt(*other, x, y), PixelAt(*target, x - left, y - top)) << Described(scene, *texture);
    }
}

TEST(FastRenderer, IsChosenByName)
{
    const RendererGuard guard;
    EXPECT_FALSE(SetInstructionSet("abacus"));
    for (const std::string_view name : InstructionSets())
        EXPECT_TRUE(SetInstructionSet(name));
    SetRenderer(Renderer::Reference);
    EXPECT_EQ(CurrentRenderer(), Renderer::Reference);
}

} // namespace
