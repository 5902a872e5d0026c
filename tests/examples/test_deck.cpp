// SPDX-License-Identifier: MIT
#include "tests/examples/test_deck.h"

#include "examples/deal/picture.h"

#include <atomic>
#include <cstdint>
#include <random>
#include <system_error>

namespace
{

constexpr int kColumns = 13;
constexpr int kRows = 4;

} // namespace

TestDeck::TestDeck()
{
    static std::atomic<int> number{0};
    std::random_device random;
    m_folder = std::filesystem::temp_directory_path() /
               ("deal_test_" + std::to_string(random()) + "_" + std::to_string(number++));
    std::filesystem::create_directories(m_folder);

    deal::Picture sheet = deal::MakePicture(kColumns * kCellWidth, kRows * kCellHeight, 0xFFFFFFFFU);
    for (int y = 0; y < sheet.height; ++y) {
        for (int x = 0; x < sheet.width; ++x) {
            const auto card = static_cast<std::uint32_t>(y / kCellHeight * kColumns + x / kCellWidth);
            if (x % kCellWidth > 2 && y % kCellHeight > 2) {
                sheet.At(x, y) = 0xFF000000U | card * 0x04A187U;
            }
        }
    }
    deal::SavePng(sheet, Path("sheet.png"));
    deal::SavePng(deal::MakePicture(kCellWidth, kCellHeight, 0xFF2050A0U), Path("back.png"));
}

TestDeck::~TestDeck()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

deal::DeckFiles TestDeck::Files() const
{
    deal::DeckFiles files;
    files.sheet = Path("sheet.png");
    files.back = Path("back.png");
    files.rows = kRows;
    files.columns = kColumns;
    files.lastRow = kColumns;
    return files;
}
