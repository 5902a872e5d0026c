// SPDX-License-Identifier: MIT
#include "cardtable/texture_list.h"

#include "geometry/int32.h"
#include "geometry/list_walk.h"
#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "host/render.h"

#include <array>
#include <cstddef>
#include <cstdint>

void DestroyTextures(CLList& textures)
{
    for (Bitmap* texture : TypedWalk<Bitmap>(textures)) {
        BitmapManager::Instance().Destroy(texture);
    }
    textures.KillAll();
}

Bitmap* CopyOf(const Bitmap& source)
{
    Bitmap* const copy = BitmapManager::Instance().Create(source.Width(), source.Height());
    if (copy != nullptr) {
        Render::Instance().Copy(&source, copy, 0, 0, 0, 0, source.Width(), source.Height());
    }
    return copy;
}

void ScaleBytes(Bitmap& bitmap, double factor)
{
    std::array<std::uint8_t, 256> scaled{};
    for (std::size_t byte = 0; byte < scaled.size(); ++byte) {
        scaled[byte] = static_cast<std::uint8_t>(TruncateToInt32(static_cast<double>(byte) * factor) & 0xFF);
    }
    constexpr std::size_t kPixelBytes = 4;
    const std::size_t size =
        static_cast<std::size_t>(bitmap.Width()) * static_cast<std::size_t>(bitmap.Height()) * kPixelBytes;
    std::uint8_t* const bytes = bitmap.Buffer();
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = scaled[bytes[i]];
    }
}
