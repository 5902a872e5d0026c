// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "host/export.h"

#include <cstddef>
#include <string>

/// Makes, loads and destroys bitmaps.
class ORVANE_API BitmapManager
{
public:
    /// The one manager of the process.
    static BitmapManager& Instance();

    /// Loads a picture file (PNG, JPEG, WebP, BMP and what else the image library reads), converted to premultiplied
    /// 32-bit pixels. The flag is reserved; the library passes true. The new bitmap belongs to the caller. Returns
    /// null, and writes one error line to the log, for a file that is missing, is no picture, is damaged, is larger
    /// than Bitmap::kMaxSide on a side or 2^27 pixels in all, or does not fit into memory. Of PNG, JPEG, WebP, BMP and
    /// GIF files such sizes are refused before their memory is taken.
    Bitmap* Load(const std::string& file, bool flag);
    /// A transparent bitmap of that size, which belongs to the caller. A side of 0 or less gives an empty bitmap.
    /// Returns null, and writes one error line, for a side above Bitmap::kMaxSide. Throws std::bad_alloc.
    Bitmap* Create(int width, int height);
    /// Frees the pixels and sets the pointer to null. A null pointer, and a bitmap that is destroyed already, are
    /// accepted.
    void Destroy(Bitmap*& bitmap);

    BitmapManager(const BitmapManager&) = delete;
    BitmapManager& operator=(const BitmapManager&) = delete;

private:
    constexpr BitmapManager() = default;
    ~BitmapManager() = default;
    Bitmap* NewRecord();

    Bitmap* m_oldestDead = nullptr; ///< records of destroyed bitmaps, in the order of their deaths
    Bitmap* m_newestDead = nullptr;
    std::size_t m_numDead = 0;
};
