// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/png_size.h"

#include "host/bitmap.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>

namespace klondike
{

namespace
{

/// The signature, then the header chunk's length and name: the same in every file.
constexpr std::string_view kStart{"\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16};
/// The last chunk: no data, its name, its check sum. A few bytes may follow it.
constexpr std::string_view kEnd{"\0\0\0\0IEND\xae\x42\x60\x82", 12};
constexpr std::streamoff kTail = 64;

int SideAt(std::string_view bytes)
{
    std::uint32_t side = 0;
    for (const char byte : bytes.substr(0, 4)) {
        side = side << 8 | static_cast<unsigned char>(byte);
    }
    return side <= static_cast<std::uint32_t>(Bitmap::kMaxSide) ? static_cast<int>(side) : 0;
}

} // namespace

std::optional<PngSize> ReadPngSize(const std::string& file)
{
    constexpr std::int64_t kMostPixels = std::int64_t{1} << 27; // what the host decodes
    std::ifstream in(file, std::ios::binary);
    std::array<char, kStart.size() + 8> head{};
    if (!in.read(head.data(), head.size())) {
        return std::nullopt;
    }
    const std::string_view bytes(head.data(), head.size());
    const PngSize size{SideAt(bytes.substr(kStart.size())), SideAt(bytes.substr(kStart.size() + 4))};
    if (!bytes.starts_with(kStart) || size.width == 0 || size.height == 0 ||
        std::int64_t{size.width} * size.height > kMostPixels) {
        return std::nullopt;
    }
    std::array<char, kTail> tail{};
    in.seekg(0, std::ios::end);
    const std::streamoff length = in.tellg();
    in.seekg(std::max<std::streamoff>(0, length - kTail));
    in.read(tail.data(), tail.size());
    const std::string_view end(tail.data(), static_cast<std::size_t>(in.gcount()));
    return end.find(kEnd) == std::string_view::npos ? std::nullopt : std::optional(size);
}

} // namespace klondike
