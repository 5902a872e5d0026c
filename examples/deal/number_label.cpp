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
constexpr std::uint32_t kPlate = 0xFF101814U;
constexpr std::uint32_t kInk = 0xFFE8E4D0U;

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

void DrawDigit(Picture& label, std::string_view dots, int left)
{
    for (int y = 0; y < kDigitHeight * kDot; ++y) {
        for (int x = 0; x < kDigitWidth * kDot; ++x) {
            if (dots[static_cast<std::size_t>(y / kDot * kDigitWidth + x / kDot)] == '#') {
                label.At(left + x, kMargin + y) = kInk;
            }
        }
    }
}

} // namespace

Picture NumberLabel(int number)
{
    constexpr int kAdvance = (kDigitWidth + 1) * kDot;
    const std::string text = std::to_string(number);
    Picture label = MakePicture(static_cast<int>(text.size()) * kAdvance - kDot + 2 * kMargin,
                                kDigitHeight * kDot + 2 * kMargin, kPlate);
    int left = kMargin;
    for (const char digit : text) {
        DrawDigit(label, kDigits[static_cast<std::size_t>(digit - '0')], left);
        left += kAdvance;
    }
    return label;
}

} // namespace deal
