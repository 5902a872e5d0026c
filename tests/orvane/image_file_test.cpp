// SPDX-License-Identifier: MIT
#include "orvane/orvane.h"
#include "tests/orvane/test_bitmaps.h"

#include <gtest/gtest.h>

#include <SDL_image.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{

using namespace std::string_literals;

using Bytes = std::string;

/// A pixel as a bitmap keeps it, worked out with real numbers.
std::uint32_t Pixel(int r, int g, int b, int a)
{
    const auto scaled = [a](int c) { return static_cast<std::uint32_t>(std::lround(c * a / 255.0)); };
    return static_cast<std::uint32_t>(a) << 24 | scaled(r) << 16 | scaled(g) << 8 | scaled(b);
}

Bytes LittleEndian(std::uint64_t value, int count)
{
    Bytes bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

Bytes BigEndian(std::uint32_t value)
{
    const Bytes bytes = LittleEndian(value, 4);
    return {bytes.rbegin(), bytes.rend()};
}

Bytes PngChunk(const Bytes& typeAndData)
{
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : typeAndData) {
        crc ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return BigEndian(static_cast<std::uint32_t>(typeAndData.size() - 4)) + typeAndData + BigEndian(~crc);
}

/// A PNG file of not compressed rows, each with its filter byte; further chunks stand before the pixels.
Bytes Png(int width, int height, int bits, int colourType, const Bytes& chunks, const Bytes& rows)
{
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char byte : rows) {
        a = (a + static_cast<std::uint8_t>(byte)) % 65521U;
        b = (b + a) % 65521U;
    }
    const Bytes header = BigEndian(static_cast<std::uint32_t>(width)) + BigEndian(static_cast<std::uint32_t>(height)) +
                         static_cast<char>(bits) + static_cast<char>(colourType) + Bytes(3, '\0');
    const Bytes stored =
        "\x78\x01\x01"s + LittleEndian(rows.size(), 2) + LittleEndian(~rows.size(), 2) + rows + BigEndian(b << 16 | a);
    return "\x89PNG\r\n\x1A\n" + PngChunk("IHDR" + header) + chunks + PngChunk("IDAT" + stored) + PngChunk("IEND");
}

/// A BMP file; what follows the 40-byte header comes with the pixels.
Bytes Bmp(std::int64_t width, std::int64_t height, int bits, int compression, const Bytes& tables, const Bytes& pixels)
{
    const std::size_t offset = 14 + 40 + tables.size();
    return "BM" + LittleEndian(offset + pixels.size(), 4) + LittleEndian(0, 4) + LittleEndian(offset, 4) +
           LittleEndian(40, 4) + LittleEndian(static_cast<std::uint64_t>(width), 4) +
           LittleEndian(static_cast<std::uint64_t>(height), 4) + LittleEndian(1, 2) +
           LittleEndian(static_cast<std::uint64_t>(bits), 2) +
           LittleEndian(static_cast<std::uint64_t>(compression), 4) + Bytes(20, '\0') + tables + pixels;
}

Bytes Bmp24(std::int64_t width, std::int64_t height)
{
    return Bmp(width, height, 24, 0, "", "\x01\x02\x03\x0A\x14\x1E\0\0"s);
}

/// Two by two: red, half-clear green, clear, blue.
const Bytes kWebP = "RIFF\x3A\0\0\0WEBPVP8L\x2E\0\0\0"
                    "\x2F\x01\x40\x00\x10\x1F\x20\x10\x48\x92\xD8\x1F\x75\x0D\x21\x01\x41\xF5\xFF\x2F\x81\x00\xC1\x88"
                    "\xFF\x4B\x02\x01\x42\x3A\xE5\x02\x6F\x59\xAA\x04\x99\xB4\x6D\xA8\xED\xAE\x45\xF4\x3F\x3E"s;

/// Writes files to a folder of its own, loads them, and keeps the log lines.
class ImageFile : public testing::Test
{
protected:
    ImageFile()
        : m_folder(std::filesystem::path(testing::TempDir()) /
                   ("orvane_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()))),
          m_host(MakeSettings())
    {
        std::filesystem::create_directories(m_folder);
    }
    ~ImageFile() override { std::filesystem::remove_all(m_folder); }

    std::string PathOf(const std::string& name) const { return (m_folder / name).string(); }

    OwnedBitmap Load(const std::string& name)
    {
        return OwnedBitmap(BitmapManager::Instance().Load(PathOf(name), true));
    }

    OwnedBitmap LoadBytes(const std::string& name, const Bytes& bytes)
    {
        std::ofstream(PathOf(name), std::ios::binary) << bytes;
        return Load(name);
    }

    /// The file gives no bitmap, but one error line with its name and the reason.
    void ExpectRefused(const std::string& name, const OwnedBitmap& bitmap, const std::string& reason)
    {
        EXPECT_EQ(bitmap, nullptr) << name;
        ASSERT_EQ(m_lines.size(), 1U) << name;
        EXPECT_NE(m_lines[0].find("orvane.image"), std::string::npos) << m_lines[0];
        EXPECT_NE(m_lines[0].find(PathOf(name)), std::string::npos) << m_lines[0];
        EXPECT_NE(m_lines[0].find(reason), std::string::npos) << m_lines[0];
        m_lines.clear();
    }

    std::vector<std::string> m_lines;

private:
    orvane::Settings MakeSettings()
    {
        orvane::Settings settings;
        settings.logSink = [this](const char* channel, orvane::LogLevel, const char* text) {
            m_lines.push_back(std::string(channel) + ": " + text);
        };
        return settings;
    }

    std::filesystem::path m_folder;
    orvane::Host m_host;
};

TEST_F(ImageFile, EveryPixelLayoutBecomesPremultiplied)
{
    const Bytes palette = PngChunk("PLTE\xC8\x64\x32\xC8\x64\x32\x00\x00\xFF"s);
    const Bytes indices("\0\0\1\2", 4);
    const Bytes bmpPalette("\x32\x64\xC8\0\xFF\0\0\0", 8);
    struct Case {
        const char* name;
        Bytes bytes;
        std::vector<std::uint32_t> pixels;
    };
    const std::uint32_t brown = Pixel(200, 100, 50, 255);
    const std::uint32_t blue = Pixel(0, 0, 255, 255);
    const Case cases[] = {
        {"rgb.png", Png(2, 1, 8, 2, "", "\0\xC8\x64\x32\0\0\xFF"s), {brown, blue}},
        {"rgba.png", Png(2, 1, 8, 6, "", "\0\xC8\x64\x32\x80\x07\x08\x09\0"s), {Pixel(200, 100, 50, 128), 0}},
        {"rgba16.png", Png(1, 1, 16, 6, "", "\0\xC8\0\x64\0\x32\0\x40\0"s), {Pixel(200, 100, 50, 64)}},
        {"rgb_key.png", Png(2, 1, 8, 2, PngChunk("tRNS\0\xC8\0\x64\0\x32"s), "\0\xC8\x64\x32\0\0\xFF"s), {0, blue}},
        {"grey.png", Png(2, 1, 8, 0, "", "\0\x40\xFF"s), {Pixel(64, 64, 64, 255), Pixel(255, 255, 255, 255)}},
        {"grey_alpha.png", Png(1, 1, 8, 4, "", "\0\xC8\x33"s), {Pixel(200, 200, 200, 51)}},
        {"bits.png",
         Png(3, 1, 1, 0, "", "\0\xA0"s),
         {Pixel(255, 255, 255, 255), Pixel(0, 0, 0, 255), Pixel(255, 255, 255, 255)}},
        {"index.png", Png(3, 1, 8, 3, palette, indices), {brown, brown, blue}},
        // Two entries of one colour, one of them transparent.
        {"index_key.png", Png(3, 1, 8, 3, palette + PngChunk("tRNS\0"s), indices), {0, brown, blue}},
        {"index_alpha.png",
         Png(3, 1, 8, 3, palette + PngChunk("tRNS\xFF\x80\x14"s), indices),
         {brown, Pixel(200, 100, 50, 128), Pixel(0, 0, 255, 20)}},
        {"rgb.bmp", Bmp(1, 2, 24, 0, "", "\x32\x64\xC8\0\xFF\0\0\0"s), {blue, brown}},
        {"top_down.bmp", Bmp(1, -2, 24, 0, "", "\x32\x64\xC8\0\xFF\0\0\0"s), {brown, blue}},
        {"index.bmp", Bmp(2, 1, 1, 0, bmpPalette, "\x40\0\0\0"s), {brown, blue}},
        {"565.bmp",
         Bmp(2, 1, 16, 3, LittleEndian(0xF800, 4) + LittleEndian(0x07E0, 4) + LittleEndian(0x001F, 4),
             LittleEndian(0xF800, 2) + LittleEndian(0x001F, 2)),
         {Pixel(255, 0, 0, 255), blue}},
        {"none.xpm",
         "/* XPM */\nstatic char * x[] = {\n\"2 1 2 1\",\n\"a c None\",\n\"b c #0000FF\",\n\"ab\"};\n",
         {0, blue}},
        {"lossless.webp", kWebP, {Pixel(255, 0, 0, 255), Pixel(0, 255, 0, 128), 0, blue}},
    };
    for (const Case& c : cases) {
        const OwnedBitmap bitmap = LoadBytes(c.name, c.bytes);
        ASSERT_NE(bitmap, nullptr) << c.name << ": " << (m_lines.empty() ? "" : m_lines[0]);
        EXPECT_EQ(PixelsOf(*bitmap), c.pixels) << c.name;
    }
    EXPECT_TRUE(m_lines.empty());
}

class ImageFileFormat : public ImageFile
{
protected:
    /// A picture of soft colours, so that lossy formats keep them nearly.
    ImageFileFormat() : m_surface(SDL_CreateRGBSurfaceWithFormat(0, 33, 17, 32, SDL_PIXELFORMAT_ABGR8888))
    {
        for (int y = 0; y < 17; ++y) {
            for (int x = 0; x < 33; ++x)
                static_cast<Uint32*>(m_surface->pixels)[y * m_surface->pitch / 4 + x] =
                    SDL_MapRGBA(m_surface->format, 128, static_cast<Uint8>(x * 4), static_cast<Uint8>(y * 8), 255);
        }
    }
    ~ImageFileFormat() override { SDL_FreeSurface(m_surface); }

    Bytes BytesOf(const std::string& name) const
    {
        std::ifstream file(PathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    SDL_Surface* m_surface;
};

TEST_F(ImageFileFormat, WrittenPicturesComeBackAndThoseCutOffDoNot)
{
    ASSERT_EQ(IMG_SavePNG(m_surface, PathOf("a.png").c_str()), 0);
    ASSERT_EQ(IMG_SaveJPG(m_surface, PathOf("a.jpg").c_str(), 95), 0);
    ASSERT_EQ(SDL_SaveBMP(m_surface, PathOf("a.bmp").c_str()), 0);
    std::ofstream(PathOf("a.webp"), std::ios::binary) << kWebP;
    for (const std::string name : {"a.png", "a.jpg", "a.bmp", "a.webp"}) {
        const OwnedBitmap bitmap = Load(name);
        ASSERT_NE(bitmap, nullptr) << name;
        EXPECT_EQ(bitmap->Width(), name == "a.webp" ? 2 : 33);
        if (name != "a.webp") {
            const std::uint8_t* const pixel = bitmap->Buffer() + std::size_t{4} * (10 * 33 + 20);
            EXPECT_NEAR(pixel[0], 80, 6) << name;
            EXPECT_NEAR(pixel[1], 80, 6) << name;
            EXPECT_NEAR(pixel[2], 128, 6) << name;
            EXPECT_EQ(pixel[3], 255) << name;
        }

        const Bytes whole = BytesOf(name);
        for (std::size_t size = 1; size < whole.size(); size += size < 60 || size + 9 > whole.size() ? 1 : 37)
            ExpectRefused("cut_" + name, LoadBytes("cut_" + name, whole.substr(0, size)), "");
        ASSERT_NE(LoadBytes("more_" + name, whole + "behind the end"), nullptr) << name;
    }
}

TEST_F(ImageFileFormat, DamagedFilesGiveABitmapOrOneLineAndNothingWorse)
{
    ASSERT_EQ(IMG_SavePNG(m_surface, PathOf("a.png").c_str()), 0);
    ASSERT_EQ(IMG_SaveJPG(m_surface, PathOf("a.jpg").c_str(), 95), 0);
    const Bytes gif =
        "GIF89a\2\0\1\0\x80\0\0\xC8\x64\x32\0\0\xFF\x21\xF9\4\1\0\0\0\0\x2C\0\0\0\0\2\0\1\0\0\2\2\x44\x0A\0\x3B"s;
    std::mt19937 random(11);
    testing::internal::CaptureStderr(); // the decoders' own words
    for (const auto& [name, whole] : {std::pair{"d.png", BytesOf("a.png")},
                                      {"d.jpg", BytesOf("a.jpg")},
                                      {"d.webp", kWebP},
                                      {"d.bmp", Bmp24(2, 1)},
                                      {"d.gif", gif}}) {
        for (int i = 0; i < 150; ++i) {
            Bytes damaged = whole;
            for (int change = 0; change < 3; ++change) {
                // Away from the sizes: their extremes have a test of their own, and take much memory.
                const std::size_t first = name == std::string("d.bmp") ? 26 : 40;
                damaged[std::min(damaged.size() - 1, first + random() % damaged.size())] = static_cast<char>(random());
            }
            const OwnedBitmap bitmap = LoadBytes(name, damaged);
            EXPECT_EQ(m_lines.size(), bitmap == nullptr ? 1U : 0U) << name;
            m_lines.clear();
        }
    }
    testing::internal::GetCapturedStderr();
}

TEST_F(ImageFile, WhatIsNoPictureIsRefusedWithItsReason)
{
    std::filesystem::create_directories(PathOf("folder.png"));
    ExpectRefused("missing.png", Load("missing.png"), "");
    ExpectRefused("folder.png", Load("folder.png"), "");
    ExpectRefused("empty.png", LoadBytes("empty.png", ""), "empty");
    ExpectRefused("text.png", LoadBytes("text.png", "no picture at all\n"), "");
    ExpectRefused("%s%n.png", LoadBytes("%s%n.png", "\n"), "");
}

TEST_F(ImageFile, HostileSizesAreRefusedBeforeTheirMemoryIsTaken)
{
    const Bytes row("\0\xC8\x64\x32", 4);
    const Bytes jpegHead("\xFF\xD8\xFF\xC0\0\x11\x08\xFF\xFF\xFF\xFF\3\1\x11\0\2\x11\0\3\x11\0\xFF\xD9", 23);
    const Bytes gifHead("GIF89a\xFF\xFF\xFF\xFF\0\0\0\x3B", 14);
    Bytes webP = "RIFF" + LittleEndian(22, 4) + "WEBPVP8X" + LittleEndian(10, 4) + LittleEndian(0, 4) +
                 LittleEndian(0xFFFFFF, 3) + LittleEndian(0xFFFFFF, 3);
    struct Case {
        const char* name;
        Bytes bytes;
        const char* reason;
    };
    const Case cases[] = {
        {"wide.png", Png(0x7FFFFFFF, 1, 8, 2, "", row), "2147483647 x 1"},
        {"high.png", Png(1, 32768, 8, 2, "", row), "1 x 32768"},
        {"hollow.png", Png(11000, 11000, 8, 6, "", row), "cut off"},
        {"none.png", Png(0, 0, 8, 2, "", row), ""},
        {"wide.jpg", jpegHead, "65535 x 65535"},
        {"wide.webp", webP, "16777216 x 16777216"},
        {"wide.gif", gifHead, "65535 x 65535"},
        {"large.gif", "GIF89a\xFF\x7F\xFF\x7F\0\0\0\x3B"s, "134217728 in all"},
        {"picture.gif", "GIF89a\2\0\2\0\0\0\0!\xF9\1\0\0,\0\0\0\0\xFF\xFF\1\0\0\2\1\0\0;"s, "65535 x 2"},
        {"hollow.jpg", "\xFF\xD8\xFF\xC0\0\x0B\x08\x27\x10\x27\x10\1\1\x11\0\xFF\xD9"s, "cut off"},
        {"wide.bmp", Bmp24(0x7FFFFFFF, 1), "2147483647 x 1"},
        {"high.bmp", Bmp24(1, -0x80000000LL), "1 x 2147483648"},
        {"hollow.bmp", Bmp24(11000, 11000), "cut off"},
        {"negative.bmp", Bmp24(-5, 1), ""},
        {"none.bmp", Bmp24(0, 0), ""},
        {"bits.bmp", Bmp(1, 1, 0, 0, "", "xxxxxxxx"), ""},
    };
    for (const Case& c : cases)
        ExpectRefused(c.name, LoadBytes(c.name, c.bytes), c.reason);
}

} // namespace
