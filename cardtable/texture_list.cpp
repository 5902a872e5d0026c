// SPDX-License-Identifier: MIT
#include "cardtable/texture_list.h"

#include "geometry/int32.h"
#include "geometry/list_walk.h"
#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "host/owned_bitmap.h"
#include "host/render.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace
{

/// More cards than any sheet has: a grid beyond it is a mistake, and would take all memory.
constexpr long long kMostCards = 65536;

bool HasTooManyCards(const SheetGrid& grid)
{
    const long long fullRows = std::max(grid.numRows - 1LL, 0LL);
    return fullRows * std::max(grid.numColumns, 0L) + grid.numLastRow > kMostCards || grid.numRows > kMostCards;
}

/// The start of a cell in a sheet; one that no sheet can reach where the product does not fit.
int CellStart(long cellSize, long index)
{
    constexpr long long kOutside = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(static_cast<long long>(cellSize) * index, kOutside));
}

void HandOver(OwnedBitmap& texture, CLList& textures)
{
    textures.InsertLast(texture.get(), 0);
    texture.release();
}

/// Multiplies bytes by a factor, see ShadeTextures.
class ByteScale
{
public:
    explicit ByteScale(double factor)
    {
        for (std::size_t byte = 0; byte < m_scaled.size(); ++byte) {
            m_scaled[byte] = static_cast<std::uint8_t>(TruncateToInt32(static_cast<double>(byte) * factor) & 0xFF);
        }
        FindMultiplier();
    }

    void Run(const std::uint8_t* from, std::uint8_t* to, std::size_t count) const
    {
        if (m_multiplier != kNone) {
            Multiply(from, to, count);
            return;
        }
        for (std::size_t i = 0; i < count; ++i) {
            to[i] = m_scaled[from[i]];
        }
    }

private:
    static constexpr std::uint32_t kNone = 0x10000;

    /// Looks for a 16-bit fraction whose products with all bytes truncate to the scaled bytes; the usual factors, from
    /// 0 to below 1, have one. Multiplying is several times as fast as looking each byte up.
    void FindMultiplier()
    {
        std::uint32_t least = 0;
        std::uint32_t most = kNone - 1;
        for (std::uint32_t byte = 1; byte < m_scaled.size(); ++byte) {
            const std::uint32_t product = std::uint32_t{m_scaled[byte]} << 16;
            least = std::max(least, (product + byte - 1) / byte);
            most = std::min(most, (product + 0xFFFF) / byte);
        }
        if (m_scaled[0] == 0 && least <= most) {
            m_multiplier = least;
        }
    }

    /// The multiplier's two bytes apart, so that every product fits into 16 bits and compilers take many at a time.
    void Multiply(const std::uint8_t* __restrict from, std::uint8_t* __restrict to, std::size_t count) const
    {
        const auto high = static_cast<std::uint16_t>(m_multiplier >> 8);
        const auto low = static_cast<std::uint16_t>(m_multiplier & 0xFF);
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint16_t byte = from[i];
            const auto carry = static_cast<std::uint16_t>(static_cast<std::uint16_t>(byte * low) >> 8);
            to[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(byte * high + carry) >> 8);
        }
    }

    std::array<std::uint8_t, 256> m_scaled{};
    std::uint32_t m_multiplier = kNone;
};

} // namespace

void DestroyTextures(CLList& textures)
{
    for (Bitmap* texture : TypedWalk<Bitmap>(textures)) {
        BitmapManager::Instance().Destroy(texture);
    }
    textures.KillAll();
}

bool CutSheet(const Bitmap& sheet, const SheetGrid& grid, CLList& textures)
{
    if (HasTooManyCards(grid)) {
        return false;
    }
    const int width = static_cast<int>(grid.cardWidth);
    const int height = static_cast<int>(grid.cardHeight);
    for (long row = 0; row < grid.numRows; ++row) {
        const long count = row == grid.numRows - 1 ? grid.numLastRow : grid.numColumns;
        for (long column = 0; column < count; ++column) {
            OwnedBitmap card(BitmapManager::Instance().Create(width, height));
            if (card == nullptr) {
                return false;
            }
            Render::Instance().Copy(&sheet, card.get(), 0, 0, CellStart(width, column), CellStart(height, row), width,
                                    height);
            HandOver(card, textures);
        }
    }
    return true;
}

void ShadeTextures(CLList& faces, double factor, CLList& shaded)
{
    constexpr std::size_t kPixelBytes = 4;
    const ByteScale scale(factor);
    for (const Bitmap* face : TypedWalk<Bitmap>(faces)) {
        OwnedBitmap copy(BitmapManager::Instance().Create(face->Width(), face->Height()));
        const std::size_t size =
            static_cast<std::size_t>(face->Width()) * static_cast<std::size_t>(face->Height()) * kPixelBytes;
        scale.Run(face->Buffer(), copy->Buffer(), size);
        HandOver(copy, shaded);
    }
}
