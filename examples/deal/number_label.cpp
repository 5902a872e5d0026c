// SPDX-License-Identifier: MIT
#include "examples/deal/number_label.h"

#include <array>
#include <string>
#include <string_view>

namespace deal
{

namespace
{

constexpr int kDigitWidth = 3;
constexpr int kDigitHeight = 5;
constexpr int kDot = 2; // pixels
constexpr int kMargin = 5;
constexpr Rgba kPlate{16, 24, 20, 255};
constexpr Rgba kInk{232, 228, 208, 255};

constexpr std::array<std::string_view, 10> kDigits{
    "####.##.##.####", // 0
    ".#.##..#..#.###", // 1
    "###..#####..###", // 2
    "###..####..####", // 3
    "#.##.####..#..#", // 4
    "####..###..####", // 5
    "####..####.####", // 6
    "###..#..#..#..#", // 7
    "####.#####.####", // 8
    "####.####..####", // 9
};

void DrawDigit(Bitmap& label, std::string_view dots, int left)
{
    for (int y = 0; y < kDigitHeight; ++y) {
        for (int x = 0; x < kDigitWidth; ++x) {
            if (dots[static_cast<std::size_t>(y * kDigitWidth + x)] == '#') {
                label.FillRect({left + x * kDot, kMargin + y * kDot, kDot, kDot}, kInk);
            }
        }
    }
}

} // namespace

OwnedBitmap NumberLabel(int number)
{
    constexpr int kAdvance = (kDigitWidth + 1) * kDot;
    const std::string text = std::to_string(number);
    OwnedBitmap label(BitmapManager::Instance().Create(static_cast<int>(text.size()) * kAdvance - kDot + 2 * kMargin,
                                                       kDigitHeight * kDot + 2 * kMargin));
    label->FillRect({0, 0, label->Width(), label->Height()}, kPlate);
    int left = kMargin;
    for (const char digit : text) {
        DrawDigit(*label, kDigits[static_cast<std::size_t>(digit - '0')], left);
        left += kAdvance;
    }
    return label;
}

} // namespace deal
