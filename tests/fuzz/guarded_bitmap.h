// SPDX-License-Identifier: MIT
#pragma once

#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "tests/fuzz/check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A bitmap whose pixels lie between two strips of others, which nobody may touch.
class GuardedBitmap
{
public:
    GuardedBitmap(int width, int height, std::uint32_t guard)
        : m_count(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
          m_storage(m_count + 2 * kGuard, guard), m_guard(guard), m_bitmap(BitmapManager::Instance().Create(0, 0))
    {
        m_bitmap->m_width = width;
        m_bitmap->m_height = height;
        m_bitmap->m_pixels = reinterpret_cast<std::uint8_t*>(m_storage.data() + kGuard);
        m_bitmap->Changed();
    }
    ~GuardedBitmap()
    {
        m_bitmap->m_pixels = nullptr; // this storage's, not the bitmap's
        BitmapManager::Instance().Destroy(m_bitmap);
    }
    GuardedBitmap(const GuardedBitmap&) = delete;
    GuardedBitmap& operator=(const GuardedBitmap&) = delete;

    Bitmap* Get() const { return m_bitmap; }
    std::uint32_t* Pixels() { return m_storage.data() + kGuard; }
    const std::uint32_t* Pixels() const { return m_storage.data() + kGuard; }
    std::size_t Count() const { return m_count; }

    void CheckGuards() const
    {
        const auto isGuard = [this](std::uint32_t pixel) { return pixel == m_guard; };
        const auto end = m_storage.begin() + static_cast<std::ptrdiff_t>(kGuard + m_count);
        FUZZ_CHECK(std::all_of(m_storage.begin(), m_storage.begin() + kGuard, isGuard));
        FUZZ_CHECK(std::all_of(end, m_storage.end(), isGuard));
    }

private:
    static constexpr std::size_t kGuard = 64;

    std::size_t m_count;
    std::vector<std::uint32_t> m_storage;
    std::uint32_t m_guard;
    Bitmap* m_bitmap;
};
