// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap_manager.h"

/// A bitmap that is destroyed at the end of its scope unless it has been handed over.
class ScopedBitmap
{
public:
    explicit ScopedBitmap(Bitmap* bitmap) : m_bitmap(bitmap) {}
    ~ScopedBitmap() { BitmapManager::Instance().Destroy(m_bitmap); }
    ScopedBitmap(const ScopedBitmap&) = delete;
    ScopedBitmap& operator=(const ScopedBitmap&) = delete;

    Bitmap* Get() const { return m_bitmap; }
    Bitmap* Release()
    {
        Bitmap* const bitmap = m_bitmap;
        m_bitmap = nullptr;
        return bitmap;
    }

private:
    Bitmap* m_bitmap;
};
