// SPDX-License-Identifier: MIT
#include "tests/examples/test_deck.h"

#include "host/owned_bitmap.h"
#include "orvane/png_file.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <random>
#include <system_error>

namespace
{

constexpr int kColumns = 13;
constexpr int kRows = 4;
constexpr int kEdge = 3; // pixels of white left of and above each card

Rgba ColourOf(int card)
{
    const int mixed = card * 0x04A187;
    return {static_cast<std::uint8_t>(mixed >> 16), static_cast<std::uint8_t>(mixed >> 8),
            static_cast<std::uint8_t>(mixed), 255};
}

} // namespace

TestDeck::TestDeck()
{
    static std::atomic<int> number{0};
    std::random_device random;
    m_folder = std::filesystem::temp_directory_path() /
               ("deal_test_" + std::to_string(random()) + "_" + std::to_string(number++));
    std::filesystem::create_directories(m_folder);

    const OwnedBitmap sheet(BitmapManager::Instance().Create(kColumns * kCellWidth, kRows * kCellHeight));
    sheet->FillRect({0, 0, sheet->Width(), sheet->Height()}, {255, 255, 255, 255});
    for (int card = 0; card < kColumns * kRows; ++card) {
        const int left = card % kColumns * kCellWidth;
        const int top = card / kColumns * kCellHeight;
        sheet->FillRect({left + kEdge, top + kEdge, kCellWidth - kEdge, kCellHeight - kEdge}, ColourOf(card));
    }
    EXPECT_TRUE(orvane::SavePng(*sheet, Path("sheet.png")));
    const OwnedBitmap back(BitmapManager::Instance().Create(kCellWidth, kCellHeight));
    back->FillRect({0, 0, kCellWidth, kCellHeight}, {32, 80, 160, 255});
    EXPECT_TRUE(orvane::SavePng(*back, Path("back.png")));
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
