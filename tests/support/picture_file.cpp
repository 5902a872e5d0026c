// SPDX-License-Identifier: MIT
#include "tests/support/picture_file.h"

#include "orvane/png_file.h"
#include "tests/support/test_host.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <system_error>

PictureFile::PictureFile(int width, int height, const std::function<std::uint32_t(int x, int y)>& colour)
    : m_path(testing::TempDir() + "cardtable_" + std::to_string(std::random_device()()) + ".png")
{
    const OwnBitmap picture(width, height);
    auto* pixel = reinterpret_cast<std::uint32_t*>(picture->Buffer());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            *pixel++ = colour(x, y);
        }
    }
    EXPECT_TRUE(orvane::SavePng(*picture, m_path));
}

PictureFile::~PictureFile()
{
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}
