// SPDX-License-Identifier: MIT
#include "tests/fuzz/sheet_files.h"

#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "orvane/png_file.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <unistd.h>

namespace
{

std::string MakeFolder()
{
    std::string folder = (std::filesystem::temp_directory_path() / "cardtable_fuzz_XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        std::abort();
    }
    return folder;
}

/// Every pixel differs from its neighbours; the corners of each cell are see-through.
void Write(const std::string& file, int width, int height)
{
    Bitmap* bitmap = BitmapManager::Instance().Create(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int cellX = x % SheetFiles::kCardWidth;
            const int cellY = y % SheetFiles::kCardHeight;
            const bool corner = (cellX == 0 || cellX == SheetFiles::kCardWidth - 1) &&
                                (cellY == 0 || cellY == SheetFiles::kCardHeight - 1);
            const Rgba colour{static_cast<std::uint8_t>(x * 11), static_cast<std::uint8_t>(y * 13), 90,
                              static_cast<std::uint8_t>(corner ? 60 : 255)};
            bitmap->FillRect({x, y, 1, 1}, colour);
        }
    }
    if (!orvane::SavePng(*bitmap, file)) {
        std::abort();
    }
    BitmapManager::Instance().Destroy(bitmap);
}

} // namespace

SheetFiles::SheetFiles() : m_folder(MakeFolder())
{
    Write(sheet, kCardWidth * kColumns, kCardHeight * kRows);
    Write(back, kCardWidth, kCardHeight);
    std::ofstream(damaged, std::ios::binary) << "\x89PNG\r\n\x1A\n no picture";
}

SheetFiles::~SheetFiles()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}
