// SPDX-License-Identifier: MIT
#include "bench/card_sheet.h"

#include "orvane/png_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <unistd.h>

namespace bench
{

namespace
{

/// How much of a pixel a card covers, 0 to 1; the place is counted from the card's corner.
double Coverage(int x, int y, int width, int height)
{
    const double radius = 0.06 * width;
    const double dx = std::abs(x + 0.5 - width / 2.0) - (width / 2.0 - radius);
    const double dy = std::abs(y + 0.5 - height / 2.0) - (height / 2.0 - radius);
    const double outside = dx > 0.0 && dy > 0.0 ? std::hypot(dx, dy) - radius : std::max(dx, dy) - radius;
    return std::clamp(0.5 - outside, 0.0, 1.0);
}

void SetPixel(std::uint8_t* pixel, double blue, double green, double red, double alpha)
{
    const double values[] = {blue, green, red, 255.0};
    for (const double value : values) {
        *pixel++ = static_cast<std::uint8_t>(std::lround(value * alpha));
    }
}

} // namespace

OwnedBitmap MakeBitmap(int width, int height)
{
    OwnedBitmap bitmap(BitmapManager::Instance().Create(width, height));
    if (bitmap == nullptr) {
        throw std::bad_alloc();
    }
    return bitmap;
}

OwnedBitmap DrawSheet(int columns, int rows, int cardWidth, int cardHeight)
{
    OwnedBitmap sheet = MakeBitmap(columns * cardWidth, rows * cardHeight);
    std::uint8_t* pixel = sheet->Buffer();
    for (int y = 0; y < sheet->Height(); ++y) {
        for (int x = 0; x < sheet->Width(); ++x, pixel += 4) {
            const int card = y / cardHeight * columns + x / cardWidth;
            const int left = x % cardWidth;
            const int top = y % cardHeight;
            const bool printed = ((left + card) / 7 + (top + 3 * card) / 9) % 3 == 0;
            SetPixel(pixel, printed ? 40.0 : 245.0, printed ? 30.0 + 3 * card : 250.0, printed ? 200.0 : 250.0,
                     Coverage(left, top, cardWidth, cardHeight));
        }
    }
    return sheet;
}

OwnedBitmap DrawTable(int width, int height)
{
    OwnedBitmap table = MakeBitmap(width, height);
    std::uint8_t* pixel = table->Buffer();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, pixel += 4) {
            SetPixel(pixel, 60.0, 100.0 + (x * 7 + y * 13) % 16, 40.0, 1.0);
        }
    }
    return table;
}

TemporaryPicture::TemporaryPicture(const Bitmap& picture)
{
    static int number = 0;
    const auto name = "cardtable-bench-" + std::to_string(getpid()) + "-" + std::to_string(++number) + ".png";
    m_path = (std::filesystem::temp_directory_path() / name).string();
    if (!orvane::SavePng(picture, m_path)) {
        throw std::runtime_error("cannot write " + m_path);
    }
}

TemporaryPicture::~TemporaryPicture()
{
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

} // namespace bench
