// SPDX-License-Identifier: MIT
#pragma once

#include "bench/contest/picture.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

namespace contest
{

/// The target of a contestant that draws into whatever memory it is given. Rows begin at multiples of 64 bytes.
class TargetMemory
{
public:
    TargetMemory() = default;
    TargetMemory(int width, int height)
    {
        const int stride = (width + kWordsALine - 1) / kWordsALine * kWordsALine;
        const std::size_t words = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height);
        m_words.reset(static_cast<std::uint32_t*>(std::aligned_alloc(kWordsALine * 4, words * 4)));
        if (m_words == nullptr) {
            throw std::bad_alloc();
        }
        m_pixels = {m_words.get(), width, height, stride};
    }

    const Pixels& Get() const { return m_pixels; }
    int RowBytes() const { return m_pixels.stride * 4; }
    /// For libraries that take bytes.
    unsigned char* Bytes() const { return reinterpret_cast<unsigned char*>(m_words.get()); }

private:
    static constexpr int kWordsALine = 16; ///< of the cache

    struct Free {
        void operator()(std::uint32_t* words) const { std::free(words); }
    };
    std::unique_ptr<std::uint32_t, Free> m_words;
    Pixels m_pixels;
};

} // namespace contest
