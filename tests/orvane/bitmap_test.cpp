// SPDX-License-Identifier: MIT
#include "host/render.h"
#include "orvane/orvane.h"
#include "tests/orvane/test_bitmaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace
{

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr Rgba kOpaque{1, 2, 3, 255};

using Rectangle = render::Rectangle<int>;

/// Any int, the dangerous ones and those near the bitmap often.
int RandomInt(std::mt19937& random)
{
    constexpr int kSpecial[] = {kMin, kMin + 1, kMax, kMax - 1, -1, 0, 1, -32768, 32767, 65536};
    if (random() % 4 == 0)
        return kSpecial[random() % std::size(kSpecial)];
    return static_cast<int>(random() % 40) - 12;
}

/// Whether start <= value < start + length, in whole numbers.
bool Holds(int start, int length, int value)
{
    return value >= start && std::int64_t{value} < std::int64_t{start} + length;
}

TEST(Bitmap, FillReplacesExactlyThePartInside)
{
    std::mt19937 random(3);
    for (int i = 0; i < 3000; ++i) {
        const Rectangle filled{RandomInt(random), RandomInt(random), RandomInt(random), RandomInt(random)};
        Rectangle cleared{RandomInt(random), RandomInt(random), RandomInt(random), RandomInt(random)};
        const Rectangle asked = cleared;
        const OwnedBitmap bitmap = MakeBitmap(16, 9);
        bitmap->FillRect(filled, kOpaque);
        bitmap->ClearRect(cleared);
        ASSERT_EQ(cleared, asked);
        const auto pixels = PixelsOf(*bitmap);
        for (int y = 0; y < 9; ++y) {
            for (int x = 0; x < 16; ++x) {
                const auto isIn = [&](const Rectangle& r) { return Holds(r.x, r.width, x) && Holds(r.y, r.height, y); };
                const std::uint32_t expected = isIn(filled) && !isIn(cleared) ? 0xFF010203U : 0U;
                ASSERT_EQ(pixels[static_cast<std::size_t>(y * 16 + x)], expected) << i << ": " << x << ", " << y;
            }
        }
    }
}

TEST(Bitmap, FillStoresEveryColourPremultipliedAndRounded)
{
    const OwnedBitmap bitmap = MakeBitmap(1, 1);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int value = 0; value < 256; ++value) {
            const auto a = static_cast<std::uint8_t>(alpha);
            const auto v = static_cast<std::uint8_t>(value);
            bitmap->FillRect({0, 0, 1, 1}, {v, 0, static_cast<std::uint8_t>(255 - v), a});
            const auto scaled = [&](int c) { return static_cast<std::uint8_t>(std::lround(c * alpha / 255.0)); };
            const std::uint8_t* bytes = std::as_const(*bitmap).Buffer();
            ASSERT_EQ(bytes[0], scaled(255 - value));
            ASSERT_EQ(bytes[1], 0);
            ASSERT_EQ(bytes[2], scaled(value));
            ASSERT_EQ(bytes[3], a);
        }
    }
}

TEST(Bitmap, CopyReplacesExactlyThePartInBothBitmapsAlsoWithinOne)
{
    std::mt19937 random(4);
    for (int i = 0; i < 4000; ++i) {
        const OwnedBitmap source = MakeNoise(13, 11, random);
        const OwnedBitmap other = MakeNoise(10, 14, random);
        Bitmap& destination = i % 2 == 0 ? *source : *other;
        const auto from = PixelsOf(*source);
        auto expected = PixelsOf(destination);
        const int dx = RandomInt(random), dy = RandomInt(random), sx = RandomInt(random), sy = RandomInt(random);
        const int width = RandomInt(random), height = RandomInt(random);
        for (int y = 0; y < destination.Height(); ++y) {
            for (int x = 0; x < destination.Width(); ++x) {
                const std::int64_t u = std::int64_t{sx} + x - dx;
                const std::int64_t v = std::int64_t{sy} + y - dy;
                if (Holds(dx, width, x) && Holds(dy, height, y) && u >= 0 && u < 13 && v >= 0 && v < 11)
                    expected[static_cast<std::size_t>(y * destination.Width() + x)] =
                        from[static_cast<std::size_t>(v * 13 + u)];
            }
        }
        Render::Instance().Copy(source.get(), &destination, dx, dy, sx, sy, width, height);
        ASSERT_EQ(PixelsOf(destination), expected) << i;
        Render::Instance().Copy(nullptr, &destination, 0, 0, 0, 0, 5, 5);
        Render::Instance().Copy(&destination, nullptr, 0, 0, 0, 0, 5, 5);
    }
}

TEST(Bitmap, ReallocLeavesEverythingTransparent)
{
    const OwnedBitmap bitmap = MakeBitmap(20, 10);
    const std::uint8_t* const pixels = std::as_const(*bitmap).Buffer();
    std::uint64_t revision = bitmap->Revision();
    for (const auto& [width, height] : {std::pair{20, 10}, {5, 4}, {1, 200}, {20, 10}}) {
        bitmap->FillRect({0, 0, 999, 999}, kOpaque);
        EXPECT_TRUE(bitmap->Realloc(width, height));
        EXPECT_EQ(bitmap->Width(), width);
        EXPECT_EQ(bitmap->Height(), height);
        EXPECT_EQ(std::as_const(*bitmap).Buffer(), pixels) << "the memory suffices";
        const auto all = PixelsOf(*bitmap);
        EXPECT_EQ(std::count(all.begin(), all.end(), 0U), width * height);
        EXPECT_GT(bitmap->Revision(), revision);
        revision = bitmap->Revision();
    }
    EXPECT_FALSE(bitmap->Realloc(Bitmap::kMaxSide + 1, 1));
    EXPECT_FALSE(bitmap->Realloc(1, kMax));
    EXPECT_EQ(bitmap->Width(), 20);
    for (const auto& [width, height] : {std::pair{0, 7}, {7, 0}, {kMin, 3}, {-1, -1}}) {
        EXPECT_TRUE(bitmap->Realloc(3, 3));
        EXPECT_TRUE(bitmap->Realloc(width, height));
        EXPECT_EQ(bitmap->Buffer(), nullptr);
        EXPECT_EQ(bitmap->Width() + bitmap->Height(), 0);
        bitmap->FillRect({0, 0, 9, 9}, kOpaque);
    }
}

TEST(BitmapManager, CreatesEmptyForNoSizeAndNothingAboveTheLargest)
{
    std::vector<std::string> lines;
    orvane::Settings settings;
    settings.logSink = [&](const char*, orvane::LogLevel, const char* text) { lines.push_back(text); };
    const orvane::Host host(settings);
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {kMin, 5}}) {
        const OwnedBitmap bitmap = MakeBitmap(width, height);
        ASSERT_NE(bitmap, nullptr);
        EXPECT_EQ(bitmap->Width() + bitmap->Height(), 0);
    }
    EXPECT_NE(MakeBitmap(Bitmap::kMaxSide, 1), nullptr);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(BitmapManager::Instance().Create(Bitmap::kMaxSide + 1, 1), nullptr);
    EXPECT_EQ(BitmapManager::Instance().Create(0, kMax), nullptr);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NE(lines[0].find("32768 x 1"), std::string::npos);
}

TEST(BitmapManager, DestroyedBitmapIsEmptyAndDoesNothing)
{
    Bitmap* stale = BitmapManager::Instance().Create(8, 8);
    Bitmap* pointer = stale;
    BitmapManager::Instance().Destroy(pointer);
    EXPECT_EQ(pointer, nullptr);
    BitmapManager::Instance().Destroy(pointer);
    pointer = stale;
    BitmapManager::Instance().Destroy(pointer);
    EXPECT_EQ(pointer, nullptr);

    EXPECT_EQ(stale->Buffer(), nullptr);
    EXPECT_EQ(stale->Width(), 0);
    EXPECT_FALSE(stale->Realloc(4, 4));
    stale->FillRect({0, 0, 4, 4}, kOpaque);
    const OwnedBitmap other = MakeBitmap(4, 4);
    Render::Instance().Copy(stale, other.get(), 0, 0, 0, 0, 4, 4);
    Render::Instance().Copy(other.get(), stale, 0, 0, 0, 0, 4, 4);
    EXPECT_EQ(stale->Buffer(), nullptr);
}

TEST(BitmapManager, RecordComesBackAfterManyDeathsOnlyAndWithANewRevision)
{
    constexpr int kRest = 16384;
    Bitmap* const stale = BitmapManager::Instance().Create(1, 1);
    const std::uint64_t revision = stale->Revision();
    Bitmap* pointer = stale;
    BitmapManager::Instance().Destroy(pointer);
    int deaths = 0;
    OwnedBitmap bitmap = MakeBitmap(1, 1);
    for (; bitmap.get() != stale && deaths < 2 * kRest; ++deaths) {
        EXPECT_EQ(stale->Width(), 0);
        bitmap.reset();
        bitmap = MakeBitmap(1, 1);
    }
    EXPECT_GE(deaths, kRest);
    ASSERT_EQ(bitmap.get(), stale) << "memory grows without end";
    EXPECT_EQ(stale->Width(), 1);
    EXPECT_GT(stale->Revision(), revision + 1);
}

} // namespace
