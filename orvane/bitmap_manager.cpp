// SPDX-License-Identifier: MIT
#include "host/bitmap_manager.h"

#include "host/log.h"
#include "orvane/image_file.h"
#include "orvane/raster/filtered_copies.h"

#include <new>
#include <utility>

namespace
{

/// A record is used again after this many later deaths at the earliest.
constexpr std::size_t kRest = 16384;

/// Made for each line: a bitmap may be asked for before static objects of this file would exist.
void LogTooLarge(int width, int height)
{
    const Log log("orvane.bitmap");
    log.Error("cannot create a bitmap of %d x %d pixels: a side is at most %d", width, height, Bitmap::kMaxSide);
}

void LogLoadFailure(const std::string& file, const char* reason)
{
    const Log log("orvane.image");
    log.Error("cannot load \"%s\": %s", file.c_str(), reason);
}

} // namespace

BitmapManager& BitmapManager::Instance()
{
    // Trivially destroyed: static objects that die late may still destroy their bitmaps.
    static constinit BitmapManager manager;
    return manager;
}

Bitmap* BitmapManager::Load(const std::string& file, bool /*flag*/)
{
    Bitmap* bitmap = NewRecord();
    try {
        const std::string reason = orvane::LoadImageFile(file, *bitmap);
        if (!reason.empty()) {
            Destroy(bitmap);
            LogLoadFailure(file, reason.c_str());
        }
    } catch (const std::bad_alloc&) {
        // A small file can ask for any amount: that is a fault of the file, not of the program.
        Destroy(bitmap);
        LogLoadFailure(file, "not enough memory for its pixels");
    } catch (...) {
        Destroy(bitmap);
        throw;
    }
    return bitmap;
}

Bitmap* BitmapManager::Create(int width, int height)
{
    if (width > Bitmap::kMaxSide || height > Bitmap::kMaxSide) {
        LogTooLarge(width, height);
        return nullptr;
    }
    Bitmap* bitmap = NewRecord();
    try {
        bitmap->Realloc(width, height);
    } catch (...) {
        Destroy(bitmap);
        throw;
    }
    return bitmap;
}

void BitmapManager::Destroy(Bitmap*& bitmap)
{
    Bitmap* const dead = std::exchange(bitmap, nullptr);
    if (dead == nullptr || !dead->m_alive) {
        return;
    }
    orvane::raster::ForgetFilteredCopies(dead);
    dead->Free();
    dead->m_alive = false;
    dead->m_nextDead = nullptr;
    (m_newestDead == nullptr ? m_oldestDead : m_newestDead->m_nextDead) = dead;
    m_newestDead = dead;
    ++m_numDead;
}

Bitmap* BitmapManager::NewRecord()
{
    Bitmap* record = nullptr;
    if (m_numDead > kRest) {
        record = m_oldestDead;
        m_oldestDead = std::exchange(record->m_nextDead, nullptr);
        --m_numDead;
    } else {
        record = new Bitmap;
    }
    record->m_alive = true;
    return record;
}
