// SPDX-License-Identifier: MIT
#include "orvane/png_file.h"

#include "host/owned_bitmap.h"
#include "tests/support/test_host.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace
{

class PngFile : public HostTest
{
protected:
    ~PngFile() override { std::filesystem::remove(file); }

    /// Every colour and alpha from the lowest alpha on, premultiplied.
    static OwnedBitmap Picture(std::uint32_t lowestAlpha)
    {
        OwnedBitmap picture(BitmapManager::Instance().Create(64, 48));
        std::minstd_rand random;
        for (int y = 0; y < picture->Height(); ++y) {
            for (int x = 0; x < picture->Width(); ++x) {
                const auto byte = [&random] { return static_cast<std::uint8_t>(random() >> 8); };
                const auto alpha = static_cast<std::uint8_t>(lowestAlpha + byte() % (256U - lowestAlpha));
                picture->FillRect({x, y, 1, 1}, {byte(), byte(), byte(), alpha});
            }
        }
        return picture;
    }
    /// How many bytes of colour a pixel of the file has.
    int Channels() const
    {
        constexpr std::size_t kColourType = 25;
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        return bytes.size() > kColourType && bytes[kColourType] == 2 ? 3 : 4;
    }

    const std::string file = testing::TempDir() + "png_file_" + std::to_string(std::random_device()()) + ".png";
};

TEST_F(PngFile, IsReadAsItWasWritten)
{
    struct Case {
        std::uint32_t lowestAlpha;
        int channels;
        int tolerance; ///< of premultiplied colours: straight ones have as many digits
    };
    for (const Case& c : {Case{255, 3, 0}, {254, 4, 1}, {0, 4, 1}}) {
        const OwnedBitmap written = Picture(c.lowestAlpha);
        ASSERT_TRUE(orvane::SavePng(*written, file));
        EXPECT_EQ(Channels(), c.channels) << c.lowestAlpha;
        const OwnedBitmap read(BitmapManager::Instance().Load(file, true));
        ASSERT_NE(read, nullptr);
        ASSERT_EQ(read->Width(), written->Width());
        ASSERT_EQ(read->Height(), written->Height());
        for (int i = 0; i < written->Width() * written->Height() * 4; ++i) {
            const int difference = std::abs(read->Buffer()[i] - written->Buffer()[i]);
            ASSERT_LE(difference, i % 4 == 3 ? 0 : c.tolerance) << "byte " << i << ", lowest alpha " << c.lowestAlpha;
        }
    }
}

TEST_F(PngFile, TellsWhyItCannotBeWritten)
{
    const OwnedBitmap empty(BitmapManager::Instance().Create(0, 0));
    EXPECT_FALSE(orvane::SavePng(*empty, file));
    EXPECT_FALSE(std::filesystem::exists(file));
    const OwnedBitmap picture = Picture(0);
    EXPECT_FALSE(orvane::SavePng(*picture, file + "/below.png"));
    ASSERT_EQ(host.lines.size(), 2U);
    EXPECT_NE(host.lines[0].find("there is no picture"), std::string::npos) << host.lines[0];
    EXPECT_NE(host.lines[1].find("/below.png"), std::string::npos) << host.lines[1];
}

} // namespace
