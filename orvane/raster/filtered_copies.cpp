// SPDX-License-Identifier: MIT
#include "orvane/raster/filtered_copies.h"

#include "host/bitmap.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <list>
#include <new>
#include <unordered_map>
#include <vector>

namespace orvane::raster
{

namespace
{

struct Copy {
    const Bitmap* bitmap;
    CopyRequest request;
    std::vector<std::uint32_t> pixels;

    std::size_t Bytes() const { return pixels.size() * sizeof(std::uint32_t); }
};

std::vector<std::uint32_t> PixelsOf(const Bitmap& bitmap, const CopyRequest& request)
{
    const TexelSource part = PartOf(bitmap, request.window);
    if (request.width == part.width && request.height == part.height) {
        return Blurred(part, request.blur);
    }
    std::vector<std::uint32_t> pixels = ShrinkByArea(part, request.width, request.height);
    if (request.blur != BlurWeights{}) {
        pixels = Blurred({pixels.data(), request.width, request.width, request.height}, request.blur);
    }
    return pixels;
}

class CopyStore
{
public:
    const Copy& Find(const Bitmap& bitmap, const CopyRequest& request);
    void Forget(const Bitmap* bitmap) noexcept;

private:
    using Position = std::list<Copy>::iterator;

    struct Owner {
        std::uint64_t revision = 0;
        std::vector<Position> copies;
    };

    const Copy& Make(Owner& owner, const Bitmap& bitmap, const CopyRequest& request);
    void MakeRoom(std::size_t bytes) noexcept;
    void Drop(Owner& owner) noexcept;

    std::list<Copy> m_copies; ///< the latest used first
    std::unordered_map<const Bitmap*, Owner> m_owners;
    std::size_t m_bytes = 0;
};

const Copy& CopyStore::Find(const Bitmap& bitmap, const CopyRequest& request)
{
    Owner& owner = m_owners[&bitmap];
    if (owner.revision != bitmap.Revision()) {
        Drop(owner);
        owner.revision = bitmap.Revision();
    }
    for (const Position copy : owner.copies) {
        if (copy->request == request) {
            m_copies.splice(m_copies.begin(), m_copies, copy);
            return *copy;
        }
    }
    return Make(owner, bitmap, request);
}

// Whatever throws does so before anything is recorded.
const Copy& CopyStore::Make(Owner& owner, const Bitmap& bitmap, const CopyRequest& request)
{
    std::list<Copy> made;
    made.push_back({&bitmap, request, PixelsOf(bitmap, request)});
    owner.copies.reserve(owner.copies.size() + 1);
    MakeRoom(made.front().Bytes());
    m_bytes += made.front().Bytes();
    m_copies.splice(m_copies.begin(), made);
    owner.copies.push_back(m_copies.begin());
    return m_copies.front();
}

void CopyStore::MakeRoom(std::size_t bytes) noexcept
{
    while (!m_copies.empty() && m_bytes + bytes > kFilteredCopyBudget) {
        const Position oldest = std::prev(m_copies.end());
        std::vector<Position>& siblings = m_owners.find(oldest->bitmap)->second.copies;
        siblings.erase(std::find(siblings.begin(), siblings.end(), oldest));
        m_bytes -= oldest->Bytes();
        m_copies.erase(oldest);
    }
}

void CopyStore::Drop(Owner& owner) noexcept
{
    for (const Position copy : owner.copies) {
        m_bytes -= copy->Bytes();
        m_copies.erase(copy);
    }
    owner.copies.clear();
}

void CopyStore::Forget(const Bitmap* bitmap) noexcept
{
    const auto owner = m_owners.find(bitmap);
    if (owner == m_owners.end()) {
        return;
    }
    Drop(owner->second);
    m_owners.erase(owner);
}

/// Null until a copy is first needed. Never deleted: a bitmap may be destroyed as late as the process ends.
CopyStore* g_store = nullptr;

} // namespace

std::optional<TexelSource> FilteredCopy(const Bitmap& bitmap, const CopyRequest& request)
{
    const std::size_t pixels = static_cast<std::size_t>(request.width) * static_cast<std::size_t>(request.height);
    if (pixels > kFilteredCopyBudget / sizeof(std::uint32_t)) {
        return std::nullopt;
    }
    try {
        if (g_store == nullptr) {
            g_store = new CopyStore;
        }
        const Copy& copy = g_store->Find(bitmap, request);
        return TexelSource{copy.pixels.data(), request.width, request.width, request.height};
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

void ForgetFilteredCopies(const Bitmap* bitmap) noexcept
{
    if (g_store != nullptr) {
        g_store->Forget(bitmap);
    }
}

} // namespace orvane::raster
